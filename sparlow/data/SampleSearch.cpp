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

// The first of the blocks from b on for which reaches(block) holds, or last; it goes on holding.
template <class Reaches>
unsigned firstBlockThat(unsigned b, unsigned last, const Reaches& reaches) {
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

int FindSampleInBlocks(const SampleReader& samples, double value, bool roundUp,
                       unsigned firstBlock) {
  const unsigned blocks = samples.blockCount();
  const auto sampleOf = [](unsigned block, int place) {
    return static_cast<int>(block << SampleBlock::kShift) + place;
  };
  if (std::isnan(value))
    return -1;
  if (!samples.ascending()) {
    for (unsigned block = firstBlock; block < blocks; ++block) {
      // A single sample is found by any value below it, if there is no other.
      if (samples.countIn(block) == 1 && block > 0 && !same(value, samples.block(block).xAt(0)))
        continue;
      const int place = FindSample(samples.block(block), 0, samples.countIn(block), value, roundUp);
      if (place >= 0)
        return sampleOf(block, place);
    }
    return -1;
  }
  const unsigned found = firstBlockThat(0, blocks, [&](unsigned block) {
    const double x = lastOf(samples, block);
    return value <= x || same(value, x);
  });
  if (found == blocks)
    return -1;
  const SampleBlock& block = samples.block(found);
  const double first = block.xAt(0);
  if (value >= first || same(value, first))
    return sampleOf(found, FindSample(block, 0, samples.countIn(found), value, roundUp));
  if (roundUp)
    return sampleOf(found, 0);
  return found == 0 ? -1 : sampleOf(found - 1, SampleBlock::kSamples - 1);
}

unsigned BlockAround(const SampleReader& samples, unsigned last, double value) {
  const auto begins = [&](unsigned b) { return !(value < samples.block(b).xAt(0)); };
  const auto reaches = [&](unsigned b) { return !(value > lastOf(samples, b)); };
  unsigned b = 0;
  if (samples.ascending()) {
    b = firstBlockThat(0, last, reaches);
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
