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

namespace {

double lastOf(const SampleReader& samples, unsigned b) {
  return samples.block(b).xAt(samples.countIn(b) - 1);
}

// The first of the blocks b to last for which reaches(block) holds, or last; it goes on holding.
template <class Reaches>
unsigned firstBlock(unsigned b, unsigned last, const Reaches& reaches) {
  while (b < last) {
    const unsigned middle = b + (last - b) / 2;
    if (reaches(middle))
      last = middle;
    else
      b = middle + 1;
  }
  return b;
}

}  // namespace

int FindSampleInBlocks(const SampleReader& samples, unsigned& b, unsigned last, double value,
                       bool roundUp) {
  const auto findIn = [&](unsigned block) {
    b = block;
    const int place = FindSample(samples.block(b), 0, samples.countIn(b), value, roundUp);
    return place < 0 ? -1 : static_cast<int>(b << SampleBlock::kShift) + place;
  };
  int found = -1;
  if (b > last)
    return found;
  if (!samples.ascending()) {
    for (unsigned block = b; block <= last && found < 0; ++block)
      found = findIn(block);
    return found;
  }
  found = findIn(firstBlock(b, last, [&](unsigned block) {
    const double x = lastOf(samples, block);
    return value <= x || same(value, x);
  }));
  // A value in the gap before that block lies before all others too, of which only the last one may
  // have a single sample, and then takes it.
  return found < 0 && b < last ? findIn(last) : found;
}

unsigned BlockAround(const SampleReader& samples, unsigned last, double value) {
  const auto begins = [&](unsigned b) { return !(value < samples.block(b).xAt(0)); };
  const auto reaches = [&](unsigned b) { return !(value > lastOf(samples, b)); };
  unsigned b = 0;
  if (samples.ascending()) {
    b = firstBlock(0, last, reaches);
    return begins(b) ? b : last;
  }
  while (b < last && !(begins(b) && reaches(b)))
    ++b;
  return b;
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
