// Units and labels of both axes.

#include <cstdlib>

#include "sparlow/graph/Graph.h"

namespace sparlow {

namespace {

/// Device pixels at the far end of an axis in which no label begins.
constexpr int endMargin = 10;

CString labelText(const AxisData& axis, int slot) {
  const char* const text = axis.GetStr(slot);
  return text ? text : "";
}

}  // namespace

void Graph::DrawLabels(CDC* dc) {
  dc->SetBkMode(TRANSPARENT);
  const COLORREF colorBefore = dc->SetTextColor(colors->text);
  DrawVerticalLabels(dc);
  DrawHorizontalLabels(dc);
  dc->SetTextColor(colorBefore);
}

void Graph::DrawVerticalLabels(CDC* dc) {
  const int right = -dc->LogicalToDevice(4);
  dc->SetTextAlign(TA_RIGHT | TA_BOTTOM);
  dc->TextOut(right, 0, axis->ver.GetName());

  dc->SetTextAlign(TA_RIGHT | TA_TOP);
  int slot = 0;
  int previous = 0;
  AxisData::StepIter& step = axis->ver.iter;
  for (step.InitLabel(&axis->ver); step.pos < height - endMargin; step.NextLabel(true)) {
    const CString text = labelText(axis->ver, slot);
    const int cellHeight = dc->GetTextExtent(text).cy;
    const int top = height - cellHeight / 2 - step.pos;
    // A step without a label is in nobody's way.
    if (!text.empty() && std::abs(top - previous) >= cellHeight) {
      dc->TextOut(right, top, text);
      previous = top;
    }
    slot += axis->ver.LabelSlotStep();
  }
}

void Graph::DrawHorizontalLabels(CDC* dc) {
  const int top = height + dc->LogicalToDevice(4);
  const int rightEdge = width + dc->LogicalToDevice(16);
  const CString unit = axis->hor.GetName();
  dc->SetTextAlign(TA_RIGHT | TA_TOP);
  dc->TextOut(rightEdge, top, unit);
  const int end = rightEdge - dc->GetTextExtent(unit).cx;

  dc->SetTextAlign(TA_CENTER | TA_TOP);
  int slot = 0;
  int previous = 0;
  AxisData::StepIter& step = axis->hor.iter;
  for (step.InitLabel(&axis->hor); step.pos < width - endMargin; step.NextLabel(true)) {
    const CString text = labelText(axis->hor, slot);
    const int textWidth = dc->GetTextExtent(text).cx;
    const bool overlaps = slot != 0 && std::abs(step.pos - previous) < textWidth;
    if (!text.empty() && !overlaps && step.pos + textWidth / 2 < end) {
      dc->TextOut(step.pos, top, text);
      previous = step.pos;
    }
    slot += axis->hor.LabelSlotStep();
  }
}

}  // namespace sparlow
