#include "sparlow/platform/window/Help.h"

#include <filesystem>
#include <system_error>

#include "sparlow/platform/window/WindowPeer.h"

namespace sparlow {

void HtmlHelp(HWND, const char* path, UINT command, std::uintptr_t topic) {
  WindowSystem* const system = WindowSystem::Current();
  if (system && path && command == HH_HELP_CONTEXT)
    system->OpenHelp(path, topic);
}

std::string GetModuleFileName() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::string() : program.string();
}

}  // namespace sparlow
