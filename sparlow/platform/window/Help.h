#pragma once

#include <cstdint>
#include <string>

#include "sparlow/platform/window/Messages.h"

namespace sparlow {

/// Opens a topic by its number.
inline constexpr UINT HH_HELP_CONTEXT = 15;

/// Opens a help file at a topic. Where no viewer knows topics the whole file is opened; nothing
/// happens when the file isn't there.
void HtmlHelp(HWND window, const char* path, UINT command, std::uintptr_t topic);

/// The path of the program that runs; empty where the system doesn't provide it.
/// Threads: any.
std::string GetModuleFileName();

}  // namespace sparlow
