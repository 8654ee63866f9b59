#pragma once

#include "sparlow/platform/base/Geometry.h"
#include "sparlow/platform/window/CMenu.h"

namespace sparlow::qt {

/// Shows a menu and returns the command that was chosen, or 0 (WindowSystem::TrackMenu).
UINT TrackMenu(CMenu& menu, CPoint at, HWND owner);

}  // namespace sparlow::qt
