// One frame of a graph, for screen and paper alike: the parts in the order in which they are
// painted.

#include "sparlow/axis/EngineeringPrefix.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/graph/SelectedPen.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

void drawLine(CDC* dc, int x0, int y0, int x1, int y1) {
  dc->MoveTo(x0, y0);
  dc->LineTo(x1, y1);
}

}  // namespace

void Graph::GraphToDC(CDC* dc, const CRect& area) {
  const auto [x0, y0] = plotOriginIn(area);
  dc->SetPixelFactor(pixelFactor);
  dc->SetViewportOrg(x0, y0);
  DrawCaption(dc);
  DrawGrid(dc);
  DrawAxis(dc);
  DrawLabels(dc);
  DrawLegend(dc);
  // The frame's own pixels lie outside, so that no curve paints over it.
  CRgn plot;
  plot.CreateRectRgn(x0 + 1, y0 + 1, x0 + width, y0 + height);
  dc->SelectClipRgn(&plot);
  DrawSecondaryGraphs(dc);
  ViewData* const series = activeViewData;
  if (series->waveform)
    series->DrawWaveform(dc, colors->edgeFalling, colors->edgeRising);
  else
    DrawPrimaryGraph(dc);
  DrawCustomOverlay(dc);
  dc->SelectClipRgn(nullptr);
  dc->SetViewportOrg(0, 0);
}

void Graph::DrawPrimaryGraph(CDC* dc) {
  activeViewData.load()->Draw(dc, height, false);
}

void Graph::DrawCaption(CDC* dc) {
  const ViewData* const series = activeViewData;
  dc->SetBkMode(TRANSPARENT);
  const COLORREF colorBefore = dc->SetTextColor(series->GetColor());
  const CPoint origin = dc->GetViewportOrg();
  double from = series->GetxAnalyzeFrom();
  double to = series->GetxAnalyzeTo();
  if (from < to) {
    char unitFrom[kUnitChars];
    char unitTo[kUnitChars];
    FormatUnitValue(from, unitFrom, "s");
    FormatUnitValue(to, unitTo, "s");
    constexpr int digits = 6;
    DrawCaptionStrLeft(dc, "Source interval: " + FormatNumber(from, digits) + " " + unitFrom +
                               " - " + FormatNumber(to, digits) + " " + unitTo);
    dc->SetViewportOrg(origin.x, origin.y - Offset::CaptionLine(pixelFactor));
  }
  DrawCaptionStrLeft(dc, series->GetName());

  CString count = FormatText("%u", series->GetnSamples());
  if (!series->IntervalWhole())
    count += FormatText("(%u)", series->GetIntervalSize());
  DrawCaptionStrRight(dc, count + " " + series->GetCptName() + "s");
  dc->SetViewportOrg(origin.x, origin.y);
  dc->SetTextColor(colorBefore);
}

void Graph::DrawCaptionStrLeft(CDC* dc, const CString& text) {
  dc->SetTextAlign(TA_LEFT | TA_BOTTOM);
  dc->TextOut(0, -Offset::FromGraphEdge(pixelFactor), text);
}

void Graph::DrawCaptionStrRight(CDC* dc, const CString& text) {
  dc->SetTextAlign(TA_RIGHT | TA_BOTTOM);
  dc->TextOut(width, -Offset::FromGraphEdge(pixelFactor), text);
}

void Graph::DrawGrid(CDC* dc) {
  const SelectedPen pen(dc, PS_DOT, dc->LogicalToDevice(1), colors->grid);
  dc->SetROP2(R2_COPYPEN);
  // A line at pixel 0 would lie on the frame.
  AxisData::StepIter& row = axis->ver.iter;
  for (row.Init(&axis->ver); row.pos < height; row.Next(false)) {
    if (row.pos != 0)
      drawLine(dc, 0, height - row.pos, width, height - row.pos);
  }
  AxisData::StepIter& column = axis->hor.iter;
  for (column.Init(&axis->hor); column.pos < width; column.Next(false)) {
    if (column.pos != 0)
      drawLine(dc, column.pos, height, column.pos, 0);
  }
}

void Graph::DrawAxis(CDC* dc) {
  dc->SetROP2(R2_COPYPEN);
  {
    const SelectedPen pen(dc, PS_SOLID, dc->LogicalToDevice(1), colors->frame);
    dc->MoveTo(0, 0);
    dc->LineTo(0, height);
    dc->LineTo(width, height);
    dc->LineTo(width, 0);
    dc->LineTo(0, 0);
  }
  const SelectedPen heavy(dc, PS_SOLID, dc->LogicalToDevice(2), colors->fixedAxis);
  if (!axis->ver.autoRange)
    drawLine(dc, 0, 0, 0, height);
  if (!axis->hor.autoRange)
    drawLine(dc, 0, height, width, height);
}

}  // namespace sparlow
