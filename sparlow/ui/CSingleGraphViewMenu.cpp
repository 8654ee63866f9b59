// The popup menu of a view, its commands, and the message by which a host gives the same commands.

#include <cstddef>

#include "sparlow/platform/window/CMenu.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/ui/CSingleGraphView.h"
#include "sparlow/ui/GraphMenu.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

using View = CSingleGraphView;

namespace {

void enable(CMenu& menu, UINT command, bool on) {
  menu.EnableMenuItem(command, MF_BYCOMMAND | (on ? MF_ENABLED : MF_GRAYED));
}

void check(CMenu& menu, UINT command, bool on) {
  menu.CheckMenuItem(command, MF_BYCOMMAND | (on ? MF_CHECKED : MF_UNCHECKED));
}

struct Command {
  UINT id;
  void (Graph::*run)();
};
/// The first ones are in the order of their codes in WM_SPARLOW_COMMAND.
constexpr std::size_t kCodes = 6;
constexpr Command commands[] = {
    {ID_VIEW_SAMPLE_ZOOM_IN, &Graph::ZoomInBySample},
    {ID_VIEW_SAMPLE_ZOOM_OUT, &Graph::ZoomOutBySample},
    {ID_VIEW_CURSOR_ZOOM_IN, &Graph::ZoomInByCursor},
    {ID_VIEW_FULL_ZOOM_OUT, &Graph::ZoomOutFull},
    {ID_X_RANGE, &Graph::OnXRange},
    {ID_Y_RANGE, &Graph::OnYRange},
    {ID_Y_AUTO_ZOOM, &Graph::OnYAutoZoom},
};

}  // namespace

void View::CreatePopupMenu(CPoint point) {
  if (!graph)
    return;
  // A key that is let go while the menu is open is let go there.
  keyRepeat = 0;
  CMenu menu;
  const CMenu* const popup = graph->CreateCustomPopupMenu(menu);
  // What was chosen is posted.
  if (popup && ClientToScreen(GetSafeHwnd(), &point))
    popup->TrackPopupMenu(0, point.x, point.y, this);
}

LRESULT View::OnInitMenuPopup(WPARAM wParam, LPARAM) {
  auto* const popup = reinterpret_cast<CMenu*>(wParam);
  if (!popup)
    return 0;
  switch (popup->GetMenuItemID(0)) {
    case ID_VIEW_SAMPLE_ZOOM_IN:
      UpdatePopupMenu(popup);
      break;
    case ID_X_AUTO_RANGE:
      UpdateSubPopupMenuHorAxis(popup);
      break;
    case ID_Y_AUTO_ZOOM:
      UpdateSubPopupMenuVerAxis(popup);
      break;
    default:
      break;
  }
  return 0;
}

void View::UpdatePopupMenu(CMenu* menu) {
  const bool valid = DataValid();
  const bool zooms = valid && graph->GetXAutoRange();
  enable(*menu, ID_VIEW_SAMPLE_ZOOM_IN, zooms);
  enable(*menu, ID_VIEW_SAMPLE_ZOOM_OUT, zooms);
  enable(*menu, ID_VIEW_CURSOR_ZOOM_IN, zooms && graph->GetActiveViewData()->ValidCursor());
  enable(*menu, ID_VIEW_FULL_ZOOM_OUT, zooms);
  enable(*menu, ID_MULTIPLE_ONLY, valid && graph->IsMultiple());
}

void View::UpdateSubPopupMenuHorAxis(CMenu* menu) {
  check(*menu, ID_X_AUTO_RANGE, graph && graph->GetXAutoRange());
  UpdatePopupMenu(menu);
}

void View::UpdateSubPopupMenuVerAxis(CMenu* menu) {
  check(*menu, ID_Y_AUTO_ZOOM, graph && graph->GetYAutoZoom());
  check(*menu, ID_Y_AUTO_RANGE, graph && graph->GetYAutoRange());
  enable(*menu, ID_Y_AUTO_ZOOM, graph && graph->CanYScroll());
}

void View::OnGraphCommand(UINT id) {
  for (const Command& command : commands) {
    if (graph && command.id == id)
      (graph.get()->*command.run)();
  }
}

LRESULT View::OnSparlowCommand(WPARAM code, LPARAM) {
  if (code < kCodes)
    OnGraphCommand(commands[code].id);
  return 0;
}

}  // namespace sparlow
