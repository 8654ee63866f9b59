#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "sparlow/axis/AxisData.h"
#include "sparlow/data/SampleSearch.h"
#include "sparlow/data/SourceData.h"

namespace sparlow {

namespace {

bool isFixed(const AxisData* axis) {
  return axis && !axis->autoRange;
}

}  // namespace

SampleInterval SourceData::effectiveInterval(unsigned size) const {
  // inTransfer before nTo: a transfer that ends meanwhile has published nTo first.
  const bool follows = inTransfer;
  return cutTo(size, follows);
}

bool SourceData::IntervalWhole() const {
  const unsigned size = nSamples;
  return size != 0 && effectiveInterval(size) == SampleInterval{0, size};
}

unsigned SourceData::GetAnalyzeFrom() const {
  if (inTransfer || !AnalyzeDataBetweenCursors)
    return 0;
  return std::min<unsigned>(static_cast<unsigned>(std::max<int>(iLCursor, 0)), nSamples);
}

unsigned SourceData::GetAnalyzeTo() const {
  if (inTransfer)
    return GetTo();
  const unsigned size = nSamples;
  if (!AnalyzeDataBetweenCursors)
    return size;
  return std::min(static_cast<unsigned>(std::max<int>(iRCursor, -1) + 1LL), size);
}

unsigned SourceData::SampleAtOrBefore(double x) const {
  const SampleReader samples = Read();
  if (!samples.ascending() || samples.empty() || x > samples.x(samples.size() - 1))
    return GetxValueIndex(x);
  return static_cast<unsigned>(std::max(FindSampleInBlocks(samples, x, false), 0));
}

unsigned SourceData::GetxValueIndex(double x) const {
  const SampleReader samples = Read();
  if (samples.empty() || std::isnan(x) || x < samples.x(0))
    return 0;
  const unsigned b = BlockAround(samples, samples.blockCount() - 1, x);
  const SampleBlock& block = samples.block(b);
  const unsigned count = samples.countIn(b);
  const unsigned first = b << SampleBlock::kShift;
  if (x > block.xAt(count - 1))
    return first + count - 1;
  if (x < block.xAt(0))
    return first;
  return first + static_cast<unsigned>(std::max(FindSample(block, 0, count, x, false), 0));
}

void SourceData::SetIntervalByX(double xFrom, double xTo) {
  if (!std::isfinite(xFrom) || !std::isfinite(xTo))
    return;
  const SampleReader samples = Read();
  if (samples.empty()) {
    writeInterval(0, {});
    return;
  }
  const SampleInterval found = findInterval(samples, xFrom, xTo);
  if (writeInterval(samples.serial(), found))
    placeCursors(samples, found, xFrom, xTo);
}

SampleInterval SourceData::findInterval(const SampleReader& samples, double xFrom, double xTo) {
  const int start = FindSampleInBlocks(samples, xFrom, false);
  const unsigned block = static_cast<unsigned>(std::max(start, 0)) >> SampleBlock::kShift;
  const int end = FindSampleInBlocks(samples, xTo, true, block);
  SampleInterval found{0, samples.size()};
  if (start >= 0)
    found.from = static_cast<unsigned>(start);
  if (end >= 0)
    found.end = static_cast<unsigned>(end) + 1;
  // Ends that are the wrong way round leave the sample at xFrom.
  found.end = std::max(found.end, found.from + 1);
  return found;
}

void SourceData::placeCursors(const SampleReader& samples, SampleInterval found, double xFrom,
                              double xTo) {
  const unsigned last = found.end - 1;
  unsigned left = found.from, right = last;
  if (left + 1 < last && samples.x(last) > xFrom) {
    left = FirstNotBelow(samples, left, last, xFrom);
    if (left + 1 < last)
      right = LastNotAbove(samples, left + 1, last, xTo);
  }
  putCursors(static_cast<int>(left), static_cast<int>(right));
}

void SourceData::SetInterval(const AxisData& axis) {
  SetIntervalByX(axis.min, axis.max);
}

void SourceData::ResetInterval(const AxisData* axis) {
  {
    const Lock lock(intervalLock);
    nFrom = 0;
    nTo = inTransfer ? 0u : nSamples.load();
  }
  if (isFixed(axis))
    SetIntervalByX(axis->fixedMin, axis->fixedMax);
  publishBounds({});
}

bool SourceData::ZoomInByPoint(double x1, double x2, const AxisData* axis) {
  const SampleReader samples = Read();
  if (!std::isfinite(x1) || !std::isfinite(x2) || samples.empty())
    return false;
  if (isFixed(axis)) {
    x1 = std::max(x1, axis->fixedMin);
    x2 = std::min(x2, axis->fixedMax);
  }
  const SampleInterval found = findInterval(samples, x1, x2);
  return found != effectiveInterval(samples.size()) && showInterval(samples.serial(), found);
}

bool SourceData::ZoomInByCursor() {
  const SampleReader samples = Read();
  const int left = iLCursor, right = iRCursor;
  if (left < 0 || right < left || static_cast<unsigned>(left) >= samples.size())
    return false;
  const std::pair<unsigned, unsigned> before{nFrom, nTo};
  const SampleInterval wanted{static_cast<unsigned>(left),
                              std::min(static_cast<unsigned>(right) + 1, samples.size())};
  return writeInterval(samples.serial(), wanted) &&
         before != std::pair<unsigned, unsigned>{wanted.from, wanted.end};
}

bool SourceData::SetIntervalBySample(bool zoomIn, const AxisData* axis, int factor) {
  const SampleReader samples = Read();
  const std::int64_t all = samples.size();
  const SampleInterval now = effectiveInterval(samples.size());
  const std::int64_t size = now.Size();
  if (isFixed(axis) || factor < 2 || size == 0)
    return false;
  if (zoomIn ? size <= 2 : size == all)
    return false;
  const std::int64_t middle = now.from + size / 2;
  const std::int64_t newSize =
      zoomIn ? std::max<std::int64_t>(size / factor, 2) : std::min(size * factor, all);
  std::int64_t start = middle - newSize / 2;
  std::int64_t end = middle + newSize / 2;
  if (start < 0) {
    start = 0;
    end = newSize;
  }
  if (end > all) {
    end = all;
    start = end - newSize;
  }
  // An odd size has lost a sample to the halves.
  const bool whole = newSize == all;
  if (whole) {
    start = 0;
    end = all;
  }
  const SampleInterval wanted{static_cast<unsigned>(start), static_cast<unsigned>(end)};
  return wanted != now && showInterval(samples.serial(), wanted, whole);
}

bool SourceData::Scroll(int by, const AxisData* axis) {
  const SampleReader samples = Read();
  const std::int64_t all = samples.size();
  const SampleInterval now = effectiveInterval(samples.size());
  if (isFixed(axis) || now.Size() == 0)
    return false;
  const std::int64_t shift = std::clamp<std::int64_t>(by, -std::int64_t{now.from}, all - now.end);
  if (shift == 0)
    return false;
  return showInterval(samples.serial(), {static_cast<unsigned>(now.from + shift),
                                         static_cast<unsigned>(now.end + shift)});
}

void SourceData::ScrollTo(unsigned first) {
  const SampleReader samples = Read();
  const SampleInterval now = effectiveInterval(samples.size());
  const unsigned size = now.Size();
  if (size == 0)
    return;
  first = std::min(first, samples.size() - size);
  if (first != now.from)
    showInterval(samples.serial(), {first, first + size});
}

bool SourceData::writeInterval(std::uint64_t dataSet, SampleInterval interval, bool openEnd) {
  const Lock lock(intervalLock);
  // Not over the interval of a data set that has begun meanwhile.
  const auto store = store_.Get();
  if ((store ? store->Serial() : 0) != dataSet)
    return false;
  nFrom = interval.from;
  nTo = openEnd && inTransfer ? 0u : interval.end;
  return true;
}

bool SourceData::showInterval(std::uint64_t dataSet, SampleInterval interval, bool openEnd) {
  if (!writeInterval(dataSet, interval, openEnd))
    return false;
  putCursors(static_cast<int>(interval.from), static_cast<int>(interval.end) - 1);
  return true;
}

}  // namespace sparlow
