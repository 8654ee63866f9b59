// From the columns to the screen: the frame in the memory bitmap, and its copy to the window.

#include "sparlow/graph/Graph.h"
#include "sparlow/platform/Windows.h"

namespace sparlow {

void Graph::DrawAll() {
  CRect client;
  if (!memDC || !GetClientRect(hWnd, &client))
    return;
  const HDC windowDC = GetDC(hWnd);
  DeleteObject(memBitmap);
  memBitmap = CreateCompatibleBitmap(windowDC, client.Width(), client.Height());
  CDC frame(memDC);
  const HBITMAP bitmapBefore = frame.SelectObject(memBitmap);
  CFont font;
  CreateTextFont(&font, &frame);
  const CFont* const fontBefore = frame.SelectObject(&font);

  frame.FillSolidRect(client, active ? colors->backActive : colors->backInactive);
  // Asked once: a render that is done in between has invalidated the window again.
  const bool rendering = workers->RenderDue();
  const bool ready = !rendering && DataAndAxisValid();
  if (rendering)
    drawMessage(&frame, client, "Rendering graph");
  else if (ready)
    GraphToDC(&frame, client);
  else
    drawMessage(&frame, client, "No Data Available");

  CDC window(windowDC);
  window.BitBlt(client.left, client.top, client.Width(), client.Height(), memDC, 0, 0, SRCCOPY);
  frame.SelectObject(bitmapBefore);
  frame.SelectObject(fontBefore);
  if (active && ready)
    DrawCursors(&window, client);
  frame.Detach();
  ReleaseDC(hWnd, windowDC);
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
