#pragma once

#include <vector>

#include "sparlow/platform/window/Messages.h"
#include "sparlow/platform/window/Resources.h"

namespace sparlow {

/// Commands of the popup menu of a graph. A menu that a series brings itself may hold them too; the
/// last three are in none of this library's, but are kept up to date in menus that have them.
inline constexpr UINT ID_VIEW_SAMPLE_ZOOM_IN = 32830;
inline constexpr UINT ID_VIEW_SAMPLE_ZOOM_OUT = 32831;
inline constexpr UINT ID_VIEW_CURSOR_ZOOM_IN = 32832;
inline constexpr UINT ID_VIEW_FULL_ZOOM_OUT = 32833;
inline constexpr UINT ID_X_RANGE = 32840;
inline constexpr UINT ID_Y_AUTO_ZOOM = 32842;
inline constexpr UINT ID_Y_RANGE = 32844;
inline constexpr UINT ID_X_AUTO_RANGE = 32839;
inline constexpr UINT ID_Y_AUTO_RANGE = 32843;
inline constexpr UINT ID_MULTIPLE_ONLY = 40004;

/// The menu of a series that brings none of its own (kSeriesMenuId). Its one popup is what is
/// shown.
std::vector<MenuItemTemplate> GraphMenu();

}  // namespace sparlow
