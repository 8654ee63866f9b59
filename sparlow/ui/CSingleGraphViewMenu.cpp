// The popup menu of a view, its commands, and the message by which a host gives the same commands.

#include <iterator>

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

void View::OnViewSampleZoomIn() {
  if (graph)
    graph->ZoomInBySample();
}

void View::OnViewSampleZoomOut() {
  if (graph)
    graph->ZoomOutBySample();
}

void View::OnViewCursorZoomIn() {
  if (graph)
    graph->ZoomInByCursor();
}

void View::OnViewFullZoomOut() {
  if (graph)
    graph->ZoomOutFull();
}

void View::OnMenuXRangeDlg() {
  if (graph)
    graph->OnXRange();
}

void View::OnMenuYAutoZoom() {
  if (graph)
    graph->OnYAutoZoom();
}

void View::OnMenuYRangeDlg() {
  if (graph)
    graph->OnYRange();
}

LRESULT View::OnSparlowCommand(WPARAM code, LPARAM) {
  static constexpr void (View::*commands[])() = {
      &View::OnViewSampleZoomIn, &View::OnViewSampleZoomOut, &View::OnViewCursorZoomIn,
      &View::OnViewFullZoomOut,  &View::OnMenuXRangeDlg,     &View::OnMenuYRangeDlg};
  if (code < std::size(commands)) {
    // Taken first: GCC 12's bounds sanitizer spoils an index inside such a call.
    const auto command = commands[code];
    (this->*command)();
  }
  return 0;
}

}  // namespace sparlow
