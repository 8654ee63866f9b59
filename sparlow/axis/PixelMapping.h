#pragma once

#include <cmath>
#include <limits>

#include "sparlow/axis/DoublePair.h"

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
/// The same of two.
inline void SaturatePixels(DoublePair pixels, int* first) noexcept {
  pixels.NumberOrZero().AtMost(kFarPixel).AtLeast(-kFarPixel).ToInts(first);
}

/// The way from a value to its pixel on a linear axis, taken from the axis once and then used for
/// many samples.
class LinearMapping {
 public:
  /// Pixels counted from min upward: (value - min) / scale.
  static LinearMapping FromMin(double min, double scale) noexcept { return {min, scale}; }
  /// Pixels counted from max downward: (max - value) / scale. A difference and a quotient change
  /// nothing but their sign when an operand's sign changes, so both directions share one formula
  /// and still agree to the last bit.
  static LinearMapping FromMax(double max, double scale) noexcept { return {max, -scale}; }

  int operator()(double value) const noexcept { return SaturatePixel((value - origin_) / scale_); }
  /// The pixels of the values valueAt(0), valueAt(1) ...: two at a time, since divisions are what a
  /// render's time goes into.
  template <class ValueAt>
  void Map(const ValueAt& valueAt, unsigned count, int* pixels) const noexcept {
    const DoublePair origin(origin_), scale(scale_);
    unsigned i = 0;
    for (; i + 2 <= count; i += 2)
      SaturatePixels((DoublePair(valueAt(i), valueAt(i + 1)) - origin) / scale, pixels + i);
    if (i < count)
      pixels[i] = (*this)(valueAt(i));
  }

  /// Rounding keeps the order of differences and quotients, so pixels are in the order of the
  /// values, or in the opposite one. Returns false where the axis gives no such order.
  bool KeepsOrder() const noexcept {
    return std::isfinite(origin_) && std::isfinite(scale_) && scale_ != 0.0;
  }
  /// The smallest and the largest pixel of all values from low to high, where order is kept.
  bool PixelsOf(double low, double high, int& least, int& most) const noexcept {
    const int a = (*this)(low), b = (*this)(high);
    least = a < b ? a : b;
    most = a < b ? b : a;
    return true;
  }

  friend bool operator==(const LinearMapping&, const LinearMapping&) = default;

 private:
  LinearMapping(double origin, double scale) noexcept : origin_(origin), scale_(scale) {}

  double origin_;  // value of pixel 0
  double scale_;   // axis units for each pixel, negative when pixels grow toward min
};

/// The way from a value to its pixel on a logarithmic axis. It rises or falls over the values above
/// 0 as the logarithm does; 0 and the negative values stand apart from that order.
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
  template <class ValueAt>
  void Map(const ValueAt& valueAt, unsigned count, int* pixels) const noexcept {
    for (unsigned i = 0; i < count; ++i)
      pixels[i] = (*this)(valueAt(i));
  }

  /// The smallest and the largest pixel of values between low and high, which are two of them.
  /// Returns false where that isn't certain: a computed logarithm may fall while the value rises,
  /// so an end that lies within its error of the next pixel proves nothing about the values beside
  /// it.
  bool PixelsOf(double low, double high, int& least, int& most) const noexcept {
    int first = (*this)(low), last = first;
    if (low != high) {
      // Above 0, but who knows how near.
      if (low == 0.0 || !clear(low) || !clear(high))
        return false;
      last = (*this)(high);
      if (low < 0.0 && high > 0.0 && !endsAtNegatives(last))
        return false;
    }
    least = first < last ? first : last;
    most = first < last ? last : first;
    return true;
  }

  friend bool operator==(const LogMapping&, const LogMapping&) = default;

 private:
  LogMapping(double origin, double scale, double min, double zeroScale, int beyondMin) noexcept
      : origin_(origin), scale_(scale), min_(min), zeroScale_(zeroScale), beyondMin_(beyondMin) {}

  // Of values on both sides of 0, of which the highest lies on a pixel: the negative ones are the
  // other end. Not on an axis turned round, where the smallest positive ones run away from them,
  // nor where a 0 would lie beyond the highest.
  bool endsAtNegatives(int highest) const noexcept {
    const int zero = (*this)(0.0);
    return beyondMin_ < 0 ? scale_ > 0.0 && zero <= highest : scale_ < 0.0 && zero >= highest;
  }
  // The value's pixel can't be another one by an error of its logarithm.
  bool clear(double value) const noexcept {
    if (!(value > 0.0))
      return true;
    const double pixel = (std::log10(value) - origin_) / scale_;
    // Far above any error: logarithms lie within 324, the last digit of those is below 1e-13.
    const double error = 1e-11 / std::fabs(scale_);
    return std::fabs(pixel - std::nearbyint(pixel)) > error ||
           std::fabs(pixel) > kFarPixel + 1.0 + error;
  }

  double origin_;  // logarithm of the value of pixel 0
  double scale_;   // decades for each pixel, negative when pixels grow toward min
  double min_;
  double zeroScale_;  // decades for each pixel, whatever the direction
  int beyondMin_;     // pixel of every negative value
};

}  // namespace sparlow
