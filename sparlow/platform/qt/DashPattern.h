#pragma once

#include <array>
#include <cstddef>

#include "sparlow/platform/paint/Device.h"

namespace sparlow::qt {

/// The lengths of a pen's dashes and gaps by turns, in widths of the pen; none for a solid pen.
/// Threads: constant; any.
class DashPattern {
 public:
  explicit DashPattern(int style);

  bool IsSolid() const { return count_ == 0; }
  std::size_t Count() const { return count_; }
  int Length(std::size_t i) const { return lengths_[i]; }

  /// Calls run(begin, end) for every dash of a line that goes from begin to end, in pixels, as far
  /// as it lies between first and last. The pattern starts at begin.
  template <class Run>
  void ForEachDash(int penWidth, int begin, int end, int first, int last, Run run) const;

 private:
  int period() const;

  std::array<int, 6> lengths_{};
  std::size_t count_ = 0;
};

template <class Run>
void DashPattern::ForEachDash(int penWidth, int begin, int end, int first, int last,
                              Run run) const {
  first = std::max(first, begin);
  last = std::min(last, end);
  if (first >= last)
    return;
  if (IsSolid()) {
    run(first, last);
    return;
  }
  // Whole periods that can't be seen are jumped over.
  const int step = period() * penWidth;
  int at = begin + (first - begin) / step * step;
  for (std::size_t i = 0; at < last; i = (i + 1) % count_) {
    const int next = at + lengths_[i] * penWidth;
    if (i % 2 == 0 && next > first)
      run(std::max(at, first), std::min(next, last));
    at = next;
  }
}

}  // namespace sparlow::qt
