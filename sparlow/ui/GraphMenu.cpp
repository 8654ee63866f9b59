#include "sparlow/ui/GraphMenu.h"

namespace sparlow {

std::vector<MenuItemTemplate> GraphMenu() {
  const MenuItemTemplate separator;
  const MenuItemTemplate horizontal{0, "Horizontal Axis", {{ID_X_RANGE, "Set Range...", {}}}};
  const MenuItemTemplate vertical{
      0, "Vertical Axis", {{ID_Y_AUTO_ZOOM, "AutoZoom", {}}, {ID_Y_RANGE, "Set Range...", {}}}};
  return {{0,
           "Popup",
           {{ID_VIEW_SAMPLE_ZOOM_IN, "Zoom In\t+", {}},
            {ID_VIEW_SAMPLE_ZOOM_OUT, "Zoom Out\t-", {}},
            separator,
            {ID_VIEW_CURSOR_ZOOM_IN, "Zoom In To Cursors\tCtrl+ +", {}},
            {ID_VIEW_FULL_ZOOM_OUT, "Zoom Out Full Graph\tCtrl+ -", {}},
            separator,
            horizontal,
            vertical}}};
}

}  // namespace sparlow
