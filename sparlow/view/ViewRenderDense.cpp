// Full renders of many samples a column: the end of a column is searched, and its lowest and highest
// pixel come from the ranges that the store keeps, so that a column costs the logarithm of its
// samples. The columns are those of a fold sample by sample, pixel by pixel; where that isn't
// certain, the samples are folded.

#include <cstdlib>

#include "sparlow/view/RenderFold.h"

namespace sparlow {

namespace {

/// Below so many samples a pixel a fold is as fast; sooner where each sample takes a logarithm.
constexpr unsigned leastDensity = 128;
constexpr unsigned leastDensityOfLogs = 32;
/// Samples that are looked at one by one before the end of their column is searched.
constexpr unsigned nearSamples = 16;

/// The first sample behind `low` that lies on another pixel than it, or end. Samples ascend in x, so
/// those of a pixel lie together. guess: how many those may be.
unsigned endOfPixel(const SampleReader& samples, const LinearMapping& hor, unsigned low,
                    unsigned end, int pixel, unsigned guess) {
  const auto same = [&](unsigned sample) { return hor(samples.x(sample)) == pixel; };
  unsigned high = end;  // low is on the pixel, high isn't
  const unsigned probe = low + std::min(guess, high - low - 1);
  // In growing steps away from the guess, which is nearly right where samples come evenly.
  if (probe == low || same(probe)) {
    low = probe;
    unsigned step = 1;
    for (; high - low > step && same(low + step); step *= 2)
      low += step;
    high = std::min(high, low + std::min(step, high - low));
  } else {
    high = probe;
    unsigned step = 1;
    for (; high - low > step && !same(high - step); step *= 2)
      high -= step;
    low = std::max(low, high - std::min(step, high - low));
  }
  while (high - low > 1) {
    const unsigned middle = low + (high - low) / 2;
    (same(middle) ? low : high) = middle;
  }
  return high;
}

}  // namespace

bool ViewData::stopRequested() const {
  const Event* const stop = terminator;
  return renderStop.relaxed() || (stop && stop->IsSet());
}

bool ViewData::isDense(const Fold& fold, const GraphAxis& axis) {
  if (!fold.full || !fold.samples.ascending() || axis.hor.log || fold.end <= fold.sample)
    return false;
  const LinearMapping hor = axis.hor.HorLinear();
  if (!hor.KeepsOrder() || (!axis.ver.log && !axis.ver.VerLinear().KeepsOrder()))
    return false;
  const std::int64_t pixels =
      std::int64_t{hor(fold.samples.x(fold.end - 1))} - hor(fold.samples.x(fold.sample));
  const unsigned density = axis.ver.log ? leastDensityOfLogs : leastDensity;
  return fold.end - fold.sample >= (std::abs(pixels) + 1) * density;
}

template <class Ver>
void ViewData::foldDense(Fold& fold, const LinearMapping& hor, const Ver& ver) {
  const SampleReader& samples = fold.samples;
  const auto pixelOf = [&](unsigned sample) { return ver(samples.y(sample)); };
  unsigned width = nearSamples;
  fold.column = 0;
  while (fold.sample < fold.end && fold.column < kMaxColumns && !fold.stopped) {
    const unsigned begin = fold.sample;
    const int first = pixelOf(begin);
    Column work{hor(samples.x(begin)), first, first, first, first};
    // The last column has no room for a second sample.
    const unsigned end = fold.column + 1 < kMaxColumns ? fold.end : begin + 1;
    const unsigned near = std::min(end, begin + nearSamples);
    unsigned next = begin + 1;
    while (next < near && hor(samples.x(next)) == work.x)
      work.add(pixelOf(next++));
    if (next == near && near < end) {
      next = endOfPixel(samples, hor, near - 1, end, work.x, width);
      if (next > near)
        fold.stopped = !addRange(work, samples, ver, near, next);
    }
    width = next - begin;
    fold.alone = fold.alone && width == 1;
    putColumn(fold.column++, work);
    fold.sample = next;
    fold.stopped = fold.stopped || stopRequested();
  }
}

// Where an end of a range is too near the next pixel to be sure, so is that of the parts that reach
// as far, and of no others. False when it was told to stop.
template <class Ver>
bool ViewData::addRange(Column& column, const SampleReader& samples, const Ver& ver, unsigned from,
                        unsigned end) const {
  const YRange range = samples.RangeOfY(from, end);
  int least, most;
  if (ver.PixelsOf(range.low, range.high, least, most)) {
    column.min = std::min(column.min, least);
    column.max = std::max(column.max, most);
    column.last = ver(samples.y(end - 1));
    return true;
  }
  if (end - from <= SampleBlock::kRunSamples) {
    for (unsigned sample = from; sample < end; ++sample)
      column.add(ver(samples.y(sample)));
    return !stopRequested();
  }
  // Whole runs, and whole groups while there are some, so that their ranges are read.
  const unsigned half = (end - from) / 2;
  const unsigned whole =
      half >= SampleBlock::kGroupSamples ? SampleBlock::kGroupSamples : SampleBlock::kRunSamples;
  const unsigned middle = (from + half + whole / 2) & ~(whole - 1);
  return addRange(column, samples, ver, from, middle) &&
         addRange(column, samples, ver, middle, end);
}

bool ViewData::renderDense(Fold& fold, const GraphAxis& axis) {
  if (!isDense(fold, axis))
    return false;
  if (axis.ver.log)
    foldDense(fold, axis.hor.HorLinear(), axis.ver.VerLog());
  else
    foldDense(fold, axis.hor.HorLinear(), axis.ver.VerLinear());
  return true;
}

}  // namespace sparlow
