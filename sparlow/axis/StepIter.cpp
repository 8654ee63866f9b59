#include <algorithm>
#include <cmath>

#include "sparlow/axis/AxisData.h"

namespace sparlow {
namespace {

// Bounds that no finished axis comes near: it has at least 5 steps over its pixels, or 10 over one.
constexpr double kLeastPixelsPerStep = 0.01;
constexpr std::uint64_t kMostSteps = 1000000;

bool FiniteAboveZero(double value) {
  return value > 0.0 && std::isfinite(value);
}

bool Walkable(const AxisData& axis) {
  const double scale = axis.scale;
  if (!FiniteAboveZero(axis.step) || !FiniteAboveZero(scale))
    return false;
  if (axis.log)
    return FiniteAboveZero(axis.min);
  return std::isfinite(axis.firstStep - axis.min) && axis.step / scale >= kLeastPixelsPerStep;
}

// Unlike a sample, a step whose pixel is not a number ends the walk.
int WalkPixel(double pixel) {
  return std::isnan(pixel) ? kFarPixel : SaturatePixel(pixel);
}

}  // namespace

void AxisData::StepIter::Init(const AxisData* walked) {
  InitCommon(walked);
  if (pos < kFarPixel && axis->log)
    Next(false);
}

void AxisData::StepIter::InitLabel(const AxisData* walked) {
  InitCommon(walked);
  if (pos < kFarPixel && axis->log)
    NextLabel(false);
}

void AxisData::StepIter::InitCommon(const AxisData* walked) {
  axis = walked;
  digit = 0;
  firstPos = pos = kFarPixel;
  if (!axis || !Walkable(*axis))
    return;
  if (!axis->log) {
    firstPos = pos = WalkPixel((axis->firstStep - axis->min) / axis->scale);
    return;
  }
  firstPos = 0;
  const LogLayout layout = LayOutLogSteps(axis->min, axis->max, axis->step);
  if (!layout.valid)
    return;
  pos = 0;
  static_cast<LogSteps&>(*this) = layout.first;
}

int AxisData::StepIter::LogPos(double value) const {
  return WalkPixel((std::log10(value) - std::log10(axis->min)) / axis->scale);
}

int AxisData::StepIter::Next(bool useLabelStep) {
  if (pos >= kFarPixel)
    return pos;
  if (axis->log) {
    pos = LogPos(Take());
    return pos;
  }
  const std::uint64_t next =
      std::uint64_t{digit} + static_cast<std::uint32_t>(useLabelStep ? axis->LabelSlotStep() : 1);
  if (next > kMostSteps) {
    pos = kFarPixel;
    return pos;
  }
  digit = static_cast<std::uint32_t>(next);
  const std::int64_t far = WalkPixel(digit * axis->step / axis->scale);
  pos = static_cast<int>(std::min<std::int64_t>(far + firstPos, kFarPixel));
  return pos;
}

int AxisData::StepIter::NextLabel(bool useLabelStep) {
  if (pos >= kFarPixel || !axis->log || !axis->decadeLabels)
    return Next(useLabelStep);
  pos = LogPos(
      TakeLabel(*this, axis->twoAndFiveLabels ? LogLabels::oneTwoAndFives : LogLabels::decades));
  return pos;
}

}  // namespace sparlow
