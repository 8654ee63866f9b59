// Ranges that the user fixes.

#include <cmath>
#include <utility>

#include "sparlow/graph/AxisRangeEditor.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

AxisRangeEditor* installed = nullptr;

/// Takes what was edited. Ends that aren't numbers leave the ones that the axis has.
void take(AxisData& axis, AxisRange range) {
  axis.autoRange = range.autoRange;
  if (!std::isfinite(range.min) || !std::isfinite(range.max))
    return;
  // The axis would sort its ends, but not the interval that is to follow it.
  if (!range.autoRange && range.min > range.max)
    std::swap(range.min, range.max);
  axis.fixedMin = range.min;
  axis.fixedMax = range.max;
}

}  // namespace

AxisRangeEditor* AxisRangeEditor::Current() {
  return installed;
}

void AxisRangeEditor::Install(AxisRangeEditor* editor) {
  installed = editor;
}

void Graph::OnXRange() {
  editRange(&GraphAxis::hor);
}

void Graph::OnYRange() {
  editRange(&GraphAxis::ver);
}

void Graph::editRange(AxisData GraphAxis::*which) {
  AxisRangeEditor* const editor = AxisRangeEditor::Current();
  if (!editor || !axis || pipeline.Closed())
    return;
  const WindowHold hold(hWnd);
  const AxisData& before = axis->*which;
  const bool wasAutomatic = before.autoRange;
  AxisRange range{before.fixedMin, before.fixedMax, wasAutomatic, before.funcName, before.log};
  editor->Edit(range);
  changeAndUpdate([&] {
    AxisData& edited = axis->*which;
    take(edited, range);
    edited.SetParamsFixed();
    if (range.autoRange && (range.confirmed || !wasAutomatic))
      axis->preset = false;
    if (!DataValid())
      return false;
    if (which == &GraphAxis::hor)
      ResetInterval();
    return true;
  });
}

}  // namespace sparlow
