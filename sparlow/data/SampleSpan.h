#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

#include "sparlow/data/SampleBlock.h"

namespace sparlow {

/// The samples of one appending call; x given, or evenly spaced where xs is null.
struct SampleSpan {
  const double* xs;
  double firstX;
  double stepX;
  std::span<const double> ys;

  double x(std::size_t i) const { return xs ? xs[i] : firstX + Number(i) * stepX; }
  double y(std::size_t i) const { return ys[i]; }
  /// Copies samples from one on. The numbers of samples are exact in a double, and so are sums.
  void CopyTo(double* toX, double* toY, std::size_t begin, unsigned count) const {
    const double first = Number(begin);
    for (unsigned i = 0; i < count; ++i)
      toX[i] = xs ? xs[begin + i] : firstX + (first + static_cast<int>(i)) * stepX;
    std::copy_n(ys.data() + begin, count, toY);
  }
  /// Of a signed number: a conversion in one instruction.
  static double Number(std::size_t i) {
    return static_cast<double>(static_cast<std::ptrdiff_t>(i));
  }
};

/// What was appended in one go: how many samples of the span were looked at, and the bounds of
/// those that were taken, low above high if there are none.
struct Appended {
  std::size_t end;
  YRange x;
  YRange y;
};

}  // namespace sparlow
