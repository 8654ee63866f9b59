#pragma once

#include <limits>

#include "sparlow/axis/AxisData.h"

namespace sparlow::test {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr bool kLinear = false;
constexpr bool kLog = true;

/// An axis that took its range as a host gives it one.
inline AxisData Finished(double min, double max, const char* unit, bool log,
                         unsigned pixels = 1000) {
  AxisData axis;
  axis.log = log;
  axis.SetFuncName(unit);
  axis.SetMin(min);
  axis.SetMax(max);
  axis.SetParams();
  axis.SetScale(pixels);
  return axis;
}

}  // namespace sparlow::test
