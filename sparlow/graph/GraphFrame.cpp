// From the columns to the screen: the frame in the memory bitmap, and its copy to the window.

#include "sparlow/graph/Graph.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow {

void Graph::DrawAll() {
  const WindowHold hold(hWnd);
  // Asked once: a render that is done in between has invalidated the window again.
  const bool rendering = RenderDue();
  const bool ready = !rendering && DataAndAxisValid();
  frame.Paint(hWnd, [&](CDC& dc, const CRect& client) {
    CFont font;
    CreateTextFont(&font, &dc);
    dc.SelectObject(&font);
    frameBackground = active ? colors->backActive : colors->backInactive;
    dc.FillSolidRect(client, frameBackground);
    if (rendering)
      drawMessage(&dc, client, "Rendering graph");
    else if (ready)
      GraphToDC(&dc, client);
    else
      drawMessage(&dc, client, "No Data Available");
  });
  if (active && ready)
    DrawCursors();
}

void Graph::drawMessage(CDC* dc, const CRect& area, const char* text) {
  dc->SetBkMode(TRANSPARENT);
  const unsigned alignBefore = dc->SetTextAlign(TA_CENTER | TA_BOTTOM);
  const COLORREF colorBefore = dc->SetTextColor(colors->text);
  dc->TextOut(area.Width() / 2, area.Height() / 2, text);
  dc->SetTextColor(colorBefore);
  dc->SetTextAlign(alignBefore);
}

}  // namespace sparlow
