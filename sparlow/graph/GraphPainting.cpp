// One frame of a graph, for screen and paper alike: the parts in the order in which they are painted.

#include "sparlow/graph/GraphPainter.h"
#include "sparlow/graph/GraphParts.h"
#include "sparlow/graph/SelectedPen.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

void drawBox(CDC* dc, CPoint a, CPoint b) {
  dc->MoveTo(a.x, a.y);
  dc->LineTo(b.x, a.y);
  dc->LineTo(b.x, b.y);
  dc->LineTo(a.x, b.y);
  dc->LineTo(a.x, a.y);
}

}  // namespace

void Graph::DrawAll() {
  const WindowHold hold(hWnd);
  // Asked once: a render that is done in between has invalidated the window again.
  const bool rendering = RenderDue();
  const bool ready = !rendering && DataAndAxisValid();
  parts->frame.Paint(hWnd, [&](CDC& dc, const CRect& client) {
    CFont font;
    GraphPainter::CreateTextFont(&font, &dc);
    dc.SelectObject(&font);
    parts->frameBackground = active ? colors->backActive : colors->backInactive;
    dc.FillSolidRect(client, parts->frameBackground);
    if (rendering)
      GraphPainter::DrawMessage(dc, client, "Rendering graph", *colors);
    else if (ready)
      GraphToDC(&dc, client);
    else
      GraphPainter::DrawMessage(dc, client, "No Data Available", *colors);
  });
  if (active && ready)
    DrawCursors();
}

void Graph::GraphToDC(CDC* dc, const CRect& area) {
  const auto [x0, y0] = layout.Origin(area);
  const CSize plot{layout.Width(), layout.Height()};
  ViewData* const series = activeViewData;
  dc->SetPixelFactor(pixelFactor);
  dc->SetViewportOrg(x0, y0);
  const GraphPainter painter(*dc, *axis, *colors, plot);
  painter.DrawCaption(*series);
  painter.DrawGrid();
  painter.DrawAxis();
  painter.DrawLabels();
  DrawLegend(dc);
  // The frame's own pixels lie outside, so that no curve paints over it.
  CRgn inside;
  inside.CreateRectRgn(x0 + 1, y0 + 1, x0 + plot.cx, y0 + plot.cy);
  dc->SelectClipRgn(&inside);
  DrawSecondaryGraphs(dc);
  if (series->waveform)
    series->DrawWaveform(dc, colors->edgeFalling, colors->edgeRising);
  else
    DrawPrimaryGraph(dc);
  DrawCustomOverlay(dc);
  dc->SelectClipRgn(nullptr);
  dc->SetViewportOrg(0, 0);
}

void Graph::DrawPrimaryGraph(CDC* dc) {
  activeViewData.load()->Draw(dc, layout.Height(), false);
}

void Graph::DrawCursors() {
  const WindowHold hold(hWnd);
  // While a render is due the axes' scale is a worker's, and the window shows a message.
  if (RenderDue())
    return;
  parts->frame.Use([this](HDC painted) {
    const CClientDC window(hWnd);
    drawMarkers(window.GetSafeHdc(), painted, {});
  });
}

void Graph::drawMarkers(HDC dc, HDC painted, const CRect& area) {
  const ViewData* const series = activeViewData;
  if (!dc || !DataAndAxisValid() || !series->ValidCursor())
    return;
  const SavedDC before(dc);
  const CPoint origin = layout.Origin(area);
  CDC(dc).SetPixelFactor(pixelFactor);
  CDC(dc).SetViewportOrg(origin.x, origin.y);
  CDC(painted).SetViewportOrg(origin.x, origin.y);
  markers.Draw(dc, painted, *series, axis, layout.Height());
}

void Graph::DrawZoomBox(CDC* dc) {
  if (!axis->hor.autoRange)
    return;
  const CPoint origin = layout.Origin();
  dc->SetPixelFactor(pixelFactor);
  dc->SetViewportOrg(origin.x, origin.y);
  const SelectedPen pen(dc, PS_DASHDOTDOT, dc->LogicalToDevice(1), 0x000000);
  dc->SetROP2(R2_NOTXORPEN);
  // Drawn a second time, the old box gives back what it lay on.
  drawBox(dc, zoomStart, zoomPrev);
  drawBox(dc, zoomStart, zoomEnd);
}

}  // namespace sparlow
