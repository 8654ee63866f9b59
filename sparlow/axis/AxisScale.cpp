// From a wanted range to a finished axis: ends that can be drawn, a round step, an engineering
// power.

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "sparlow/axis/AxisData.h"
#include "sparlow/axis/DecimalSteps.h"

namespace sparlow {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
// Where a span is beyond a double. Spans up to twice this stay below 1e308.
constexpr double kFarthestEnd = kLargest / 4;

// Above these, neither 1 / step nor a min of max x 1e-10 leaves the normal doubles.
constexpr double kLeastLogMin = 1e-290;
constexpr double kLeastLogMax = 1e-280;

constexpr double kLinearWidening = 0.01;
constexpr double kLogDecadesBelow = 1e-10;
constexpr double kLogLeastSpan = 1e-14;
constexpr double kLogWidening = 0.1;
/// A logarithmic axis of more decades shows values of so many sizes that no prefix suits them.
constexpr double kMostDecadesWithPrefix = 3 * (1 + 1e-12);

}  // namespace

void AxisData::SetParams() {
  AdjustMaxMin();
  SetRange();
  CalculateStep();
  firstStep = StepsUpTo(min, step) * step;
  if (autoRange) {
    fixedMin = min;
    fixedMax = max;
  }
  CalculatePower();
  SetLabels();
}

void AxisData::SetParamsFixed() {
  if (autoRange)
    return;
  if (std::isfinite(fixedMin) && std::isfinite(fixedMax)) {
    min = fixedMin;
    max = fixedMax;
  }
  SetParams();
}

void AxisData::SetAuxParams(const char* unit) {
  SetFuncName(unit);
  CalculatePower();
  SetLabels();
}

void AxisData::CorrectMinMax(int percent) {
  if (!autoRange)
    return;
  double below = 0.0;
  double above = 0.0;
  if (log) {
    const double share = percent * 0.01;
    below = std::fabs(min) * share;
    above = std::fabs(max) * share;
  } else {
    below = above = std::fabs(max - min) * percent * 0.01;
  }
  // Ends that have no margin are left for SetParams to repair.
  if (!std::isfinite(below) || !std::isfinite(above))
    return;
  min -= below;
  max += above;
}

void AxisData::AdjustMaxMin() {
  if (log)
    AdjustLog();
  else
    AdjustLinear();
}

void AxisData::AdjustLinear() {
  if (std::isnan(min))
    min = std::isnan(max) ? 0.0 : max;
  if (std::isnan(max))
    max = min;
  if (min > max)
    std::swap(min, max);
  if (!std::isfinite(max - min)) {
    min = std::clamp(min, -kFarthestEnd, kFarthestEnd);
    max = std::clamp(max, -kFarthestEnd, kFarthestEnd);
  }

  if (!(std::fabs(max - min) < epsilon))
    return;
  if (std::fabs(min) < epsilon) {
    min = 0.0;
    max = epsilon;
    return;
  }
  const double widening = std::fabs(min) * kLinearWidening;
  min = std::max(min - widening, -kLargest);
  max = std::min(max + widening, kLargest);
}

void AxisData::AdjustLog() {
  if (!(max > 0.0))
    max = 1.0;
  max = std::clamp(max, kLeastLogMax, kLargest);
  if (!(min > 0.0) || min > max)
    min = max * kLogDecadesBelow;
  min = std::max(min, kLeastLogMin);

  if (std::fabs(max) * kLogLeastSpan >= std::fabs(max - min)) {
    min -= std::fabs(min) * kLogWidening;
    max = std::min(max + std::fabs(max) * kLogWidening, kLargest);
  }
}

void AxisData::CalculateStep() {
  step = log ? LogStep(min, max) : LinearStep(min, max);
}

void AxisData::CalculatePower() {
  const double span = std::fabs(max - min);
  const double end = std::fabs(max);
  const bool prefix = !log || range <= kMostDecadesWithPrefix;
  power = prefix ? FindUnitPower(span > end ? span : end, funcName) : 0;
}

}  // namespace sparlow
