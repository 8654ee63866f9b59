#include "sparlow/data/SampleSearch.h"

#include <cmath>

namespace sparlow {

namespace {

bool same(double value, double x) {
  return std::fabs(value - x) < kSearchTolerance;
}

}  // namespace

int FindSample(const SampleBlock& block, unsigned lo, unsigned hi, double value, bool roundUp) {
  if (std::isnan(value))
    return -1;
  while (hi - lo > 1) {
    if (hi - lo == 2) {
      const double a = block.xAt(lo), b = block.xAt(lo + 1);
      if (same(value, a))
        return static_cast<int>(lo);
      if (same(value, b))
        return static_cast<int>(lo + 1);
      if (value < a || value > b)
        return -1;
      return static_cast<int>(roundUp ? lo + 1 : lo);
    }
    const unsigned mid = lo + (hi - lo) / 2;
    const double middle = block.xAt(mid);
    if (same(value, middle))
      return static_cast<int>(mid);
    if (value > middle)
      lo = mid;
    else
      hi = mid + 1;
  }
  return value - block.xAt(lo) < kSearchTolerance ? static_cast<int>(lo) : -1;
}

unsigned FirstNotBelow(const SampleReader& samples, unsigned lo, unsigned hi, double value) {
  if (!samples.ascending()) {
    while (lo < hi && samples.x(lo) < value)
      ++lo;
    return lo;
  }
  while (lo < hi) {
    const unsigned mid = lo + (hi - lo) / 2;
    if (samples.x(mid) < value)
      lo = mid + 1;
    else
      hi = mid;
  }
  return lo;
}

unsigned LastNotAbove(const SampleReader& samples, unsigned lo, unsigned hi, double value) {
  if (!samples.ascending()) {
    while (lo < hi && samples.x(hi) > value)
      --hi;
    return hi;
  }
  while (lo < hi) {
    const unsigned mid = hi - (hi - lo) / 2;
    if (samples.x(mid) > value)
      hi = mid - 1;
    else
      lo = mid;
  }
  return lo;
}

}  // namespace sparlow
