// From the columns to the screen: the frame in the memory bitmap, and its copy to the window.

#include <utility>

#include "sparlow/graph/Graph.h"
#include "sparlow/platform/Windows.h"

namespace sparlow {

void Graph::DrawAll() {
  CRect client;
  if (!memDC || !GetClientRect(hWnd, &client))
    return;
  CClientDC window(hWnd);
  DeleteObject(std::exchange(memBitmap, nullptr));
  memBitmap = CreateCompatibleBitmap(window.GetSafeHdc(), client.Width(), client.Height());
  // What a host draws or throws leaves no pen, font or bitmap behind.
  const SavedDC before(memDC);
  CDC frame(memDC);
  frame.SelectObject(memBitmap);
  CFont font;
  CreateTextFont(&font, &frame);
  frame.SelectObject(&font);

  frameBackground = active ? colors->backActive : colors->backInactive;
  frame.FillSolidRect(client, frameBackground);
  // Asked once: a render that is done in between has invalidated the window again.
  const bool rendering = RenderDue();
  const bool ready = !rendering && DataAndAxisValid();
  if (rendering)
    drawMessage(&frame, client, "Rendering graph");
  else if (ready)
    GraphToDC(&frame, client);
  else
    drawMessage(&frame, client, "No Data Available");

  window.BitBlt(client.left, client.top, client.Width(), client.Height(), memDC, 0, 0, SRCCOPY);
  if (active && ready)
    DrawCursors(window.GetSafeHdc(), client);
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
