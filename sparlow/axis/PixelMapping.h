#pragma once

#include <cmath>
#include <limits>

namespace sparlow {

static_assert(std::numeric_limits<double>::is_iec559,
              "a quotient by a scale of 0 must be infinite or not a number, and nothing worse");

/// The farthest pixel: whatever lies beyond it counts as lying there. The sum of two is beyond an
/// int.
inline constexpr int kFarPixel = 1 << 30;

/// The whole pixel of a pixel position, truncated toward zero: plus or minus kFarPixel for one
/// beyond it, 0 for one that is not a number.
inline int SaturatePixel(double pixel) noexcept {
  if (pixel >= kFarPixel)
    return kFarPixel;
  if (pixel <= -kFarPixel)
    return -kFarPixel;
  return pixel == pixel ? static_cast<int>(pixel) : 0;
}

/// The way from a value to its pixel on a linear axis, taken from the axis once and then used for
/// many samples.
/// Threads: a value; any thread, each with its own.
class LinearMapping {
 public:
  /// Pixels counted from min upward: (value - min) / scale.
  static LinearMapping FromMin(double min, double scale) noexcept { return {min, scale}; }
  /// Pixels counted from max downward: (max - value) / scale. A difference and a quotient change
  /// nothing but their sign when an operand's sign changes, so both directions share one formula
  /// and still agree to the last bit.
  static LinearMapping FromMax(double max, double scale) noexcept { return {max, -scale}; }

  int operator()(double value) const noexcept { return SaturatePixel((value - origin_) / scale_); }

  friend bool operator==(const LinearMapping&, const LinearMapping&) = default;

 private:
  LinearMapping(double origin, double scale) noexcept : origin_(origin), scale_(scale) {}

  double origin_;  // value of pixel 0
  double scale_;   // axis units for each pixel, negative when pixels grow toward min
};

/// The way from a value to its pixel on a logarithmic axis. It rises or falls over the values above
/// 0 as the logarithm does; 0 and the negative values stand apart from that order.
/// Threads: a value; any thread, each with its own.
class LogMapping {
 public:
  /// Pixels counted from min upward: (log10(value) - log10(min)) / scale.
  static LogMapping FromMin(double min, double scale) noexcept {
    return {std::log10(min), scale, min, scale, -kFarPixel};
  }
  /// Pixels counted from max downward: (log10(max) - log10(value)) / scale.
  static LogMapping FromMax(double min, double max, double scale) noexcept {
    return {std::log10(max), -scale, min, scale, kFarPixel};
  }

  /// 0 maps to abs(log10(min)) / scale in both directions. A negative value has no logarithm and
  /// lies far beyond the min end.
  int operator()(double value) const noexcept {
    if (value > 0.0)
      return SaturatePixel((std::log10(value) - origin_) / scale_);
    if (value == 0.0)
      return SaturatePixel(std::fabs(std::log10(min_)) / zeroScale_);
    return value < 0.0 ? beyondMin_ : 0;
  }

  friend bool operator==(const LogMapping&, const LogMapping&) = default;

 private:
  LogMapping(double origin, double scale, double min, double zeroScale, int beyondMin) noexcept
      : origin_(origin), scale_(scale), min_(min), zeroScale_(zeroScale), beyondMin_(beyondMin) {}

  double origin_;  // logarithm of the value of pixel 0
  double scale_;   // decades for each pixel, negative when pixels grow toward min
  double min_;
  double zeroScale_;  // decades for each pixel, whatever the direction
  int beyondMin_;     // pixel of every negative value
};

}  // namespace sparlow
