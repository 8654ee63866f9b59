#include "sparlow/graph/GraphPainter.h"

#include <cstdlib>

#include "sparlow/axis/EngineeringPrefix.h"
#include "sparlow/axis/GraphAxis.h"
#include "sparlow/graph/GraphColors.h"
#include "sparlow/graph/Offset.h"
#include "sparlow/graph/SelectedPen.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

/// Device pixels at the far end of an axis in which no label begins.
constexpr int endMargin = 10;

/// Calls draw(slot, position, text) for each step of an axis of a length that has a label: a step
/// without one is in nobody's way.
template <class Draw>
void forEachLabel(AxisData& axis, int length, Draw draw) {
  int slot = 0;
  AxisData::StepIter& step = axis.iter;
  for (step.InitLabel(&axis); step.pos < length - endMargin; step.NextLabel(true)) {
    const char* const text = axis.GetStr(slot);
    if (text && *text)
      draw(slot, step.pos, CString(text));
    slot += axis.LabelSlotStep();
  }
}

}  // namespace

void GraphPainter::drawLine(int x0, int y0, int x1, int y1) const {
  dc_.MoveTo(x0, y0);
  dc_.LineTo(x1, y1);
}

void GraphPainter::CreateTextFont(CFont* font, CDC* dc) {
  constexpr int points = 11;
  font->CreateFont(MulDiv(points, dc->GetDeviceCaps(LOGPIXELSY), 72), FW_NORMAL, "Arial");
}

void GraphPainter::DrawMessage(CDC& dc, const CRect& area, const char* text,
                               const GraphColors& colors) {
  dc.SetBkMode(TRANSPARENT);
  const unsigned alignBefore = dc.SetTextAlign(TA_CENTER | TA_BOTTOM);
  const COLORREF colorBefore = dc.SetTextColor(colors.text);
  dc.TextOut(area.Width() / 2, area.Height() / 2, text);
  dc.SetTextColor(colorBefore);
  dc.SetTextAlign(alignBefore);
}

void GraphPainter::DrawCaption(const ViewData& series) const {
  dc_.SetBkMode(TRANSPARENT);
  const COLORREF colorBefore = dc_.SetTextColor(series.GetColor());
  const CPoint origin = dc_.GetViewportOrg();
  double from = series.GetxAnalyzeFrom();
  double to = series.GetxAnalyzeTo();
  if (from < to) {
    char unitFrom[kUnitChars];
    char unitTo[kUnitChars];
    FormatUnitValue(from, unitFrom, "s");
    FormatUnitValue(to, unitTo, "s");
    constexpr int digits = 6;
    drawCaptionStrLeft("Source interval: " + FormatNumber(from, digits) + " " + unitFrom + " - " +
                       FormatNumber(to, digits) + " " + unitTo);
    dc_.SetViewportOrg(origin.x, origin.y - Offset::CaptionLine(dc_.GetPixelFactor()));
  }
  drawCaptionStrLeft(series.GetName());

  CString count = FormatText("%u", series.GetnSamples());
  if (!series.IntervalWhole())
    count += FormatText("(%u)", series.GetIntervalSize());
  drawCaptionStrRight(count + " " + series.GetCptName() + "s");
  dc_.SetViewportOrg(origin.x, origin.y);
  dc_.SetTextColor(colorBefore);
}

void GraphPainter::drawCaptionStrLeft(const CString& text) const {
  dc_.SetTextAlign(TA_LEFT | TA_BOTTOM);
  dc_.TextOut(0, -Offset::FromGraphEdge(dc_.GetPixelFactor()), text);
}

void GraphPainter::drawCaptionStrRight(const CString& text) const {
  dc_.SetTextAlign(TA_RIGHT | TA_BOTTOM);
  dc_.TextOut(plot_.cx, -Offset::FromGraphEdge(dc_.GetPixelFactor()), text);
}

void GraphPainter::DrawGrid() const {
  const SelectedPen pen(&dc_, PS_DOT, dc_.LogicalToDevice(1), colors_.grid);
  dc_.SetROP2(R2_COPYPEN);
  // A line at pixel 0 would lie on the frame.
  AxisData::StepIter& row = axis_.ver.iter;
  for (row.Init(&axis_.ver); row.pos < plot_.cy; row.Next(false)) {
    if (row.pos != 0)
      drawLine(0, plot_.cy - row.pos, plot_.cx, plot_.cy - row.pos);
  }
  AxisData::StepIter& column = axis_.hor.iter;
  for (column.Init(&axis_.hor); column.pos < plot_.cx; column.Next(false)) {
    if (column.pos != 0)
      drawLine(column.pos, plot_.cy, column.pos, 0);
  }
}

void GraphPainter::DrawAxis() const {
  dc_.SetROP2(R2_COPYPEN);
  {
    const SelectedPen pen(&dc_, PS_SOLID, dc_.LogicalToDevice(1), colors_.frame);
    dc_.MoveTo(0, 0);
    dc_.LineTo(0, plot_.cy);
    dc_.LineTo(plot_.cx, plot_.cy);
    dc_.LineTo(plot_.cx, 0);
    dc_.LineTo(0, 0);
  }
  const SelectedPen heavy(&dc_, PS_SOLID, dc_.LogicalToDevice(2), colors_.fixedAxis);
  if (!axis_.ver.autoRange)
    drawLine(0, 0, 0, plot_.cy);
  if (!axis_.hor.autoRange)
    drawLine(0, plot_.cy, plot_.cx, plot_.cy);
}

void GraphPainter::DrawLabels() const {
  dc_.SetBkMode(TRANSPARENT);
  const COLORREF colorBefore = dc_.SetTextColor(colors_.text);
  drawVerticalLabels();
  drawHorizontalLabels();
  dc_.SetTextColor(colorBefore);
}

void GraphPainter::drawVerticalLabels() const {
  const int right = -dc_.LogicalToDevice(4);
  dc_.SetTextAlign(TA_RIGHT | TA_BOTTOM);
  dc_.TextOut(right, 0, axis_.ver.GetName());

  dc_.SetTextAlign(TA_RIGHT | TA_TOP);
  int previous = 0;
  forEachLabel(axis_.ver, plot_.cy, [&](int, int position, const CString& text) {
    const int cellHeight = dc_.GetTextExtent(text).cy;
    const int top = plot_.cy - cellHeight / 2 - position;
    if (std::abs(top - previous) < cellHeight)
      return;
    dc_.TextOut(right, top, text);
    previous = top;
  });
}

void GraphPainter::drawHorizontalLabels() const {
  const int top = plot_.cy + dc_.LogicalToDevice(4);
  const int rightEdge = plot_.cx + dc_.LogicalToDevice(16);
  const CString unit = axis_.hor.GetName();
  dc_.SetTextAlign(TA_RIGHT | TA_TOP);
  dc_.TextOut(rightEdge, top, unit);
  const int end = rightEdge - dc_.GetTextExtent(unit).cx;

  dc_.SetTextAlign(TA_CENTER | TA_TOP);
  int previous = 0;
  forEachLabel(axis_.hor, plot_.cx, [&](int slot, int position, const CString& text) {
    const int textWidth = dc_.GetTextExtent(text).cx;
    const bool overlaps = slot != 0 && std::abs(position - previous) < textWidth;
    if (overlaps || position + textWidth / 2 >= end)
      return;
    dc_.TextOut(position, top, text);
    previous = position;
  });
}

}  // namespace sparlow
