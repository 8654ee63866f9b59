#include "sparlow/axis/AxisData.h"

#include <algorithm>
#include <cmath>

namespace sparlow {

void AxisData::Reset() {
  if (!autoRange)
    return;
  power = 0;
  min = max = 0.0;
  scale = 0.0;
  range = step = firstStep = 0.0;
  maxLabelLength = 10;
  SetFuncName(nullptr);
  CopyUnitText(name, nullptr);
}

void AxisData::ResetFixed() {
  autoRange = true;
  fixedMin = fixedMax = 0.0;
}

void AxisData::SetMin(const double& value) {
  if (autoRange)
    min = value;
}

void AxisData::SetMax(const double& value) {
  if (autoRange)
    max = value;
}

void AxisData::SetRange() {
  if (!log) {
    range = std::fabs(max - min);
    return;
  }
  range = std::log10(std::fabs(max) / std::fabs(min));
  // The ratio of two ends may be beyond a double though its logarithm isn't.
  if (!std::isfinite(range))
    range = std::log10(std::fabs(max)) - std::log10(std::fabs(min));
}

void AxisData::CalculateScale(std::uint32_t pixels) {
  scale = range / std::max(pixels, 1u);
}

double AxisData::GetValueByPos(int pixel) const {
  if (log)
    return std::pow(10.0, std::log10(min) + pixel * scale);
  return pixel * scale + min;
}

double AxisData::GetValueByPosInv(int pixel) const {
  if (log)
    return std::pow(10.0, std::log10(max) - pixel * scale);
  return max - pixel * scale;
}

const char* AxisData::GetName() {
  CopyUnitText(name, PrefixedUnit(power, funcName).c_str());
  return name;
}

void AxisData::SetFuncName(const char* unit) {
  CopyUnitText(funcName, unit);
}

}  // namespace sparlow
