#include "sparlow/graph/AxisRangeEditor.h"

#include <cmath>
#include <utility>

#include "sparlow/axis/AxisData.h"

namespace sparlow {

namespace {

AxisRangeEditor* installed = nullptr;

}  // namespace

AxisRangeEditor* AxisRangeEditor::Current() {
  return installed;
}

void AxisRangeEditor::Install(AxisRangeEditor* editor) {
  installed = editor;
}

void AxisRange::ApplyTo(AxisData& axis) const {
  axis.autoRange = autoRange;
  if (std::isfinite(min) && std::isfinite(max)) {
    axis.fixedMin = min;
    axis.fixedMax = max;
    // The axis would sort its ends, but not the interval that is to follow it.
    if (!autoRange && min > max)
      std::swap(axis.fixedMin, axis.fixedMax);
  }
  axis.SetParamsFixed();
}

}  // namespace sparlow
