#include <algorithm>
#include <cmath>
#include <cstdint>

#include "sparlow/axis/AxisData.h"
#include "sparlow/data/SampleSearch.h"
#include "sparlow/data/SourceData.h"

namespace sparlow {

namespace {

bool isFixed(const AxisData* axis) {
  return axis && !axis->autoRange;
}

// A cursor that a fixed axis does not show stays where it is.
bool shows(const AxisData* axis, double x) {
  if (!isFixed(axis))
    return true;
  return std::isfinite(axis->fixedMin) && std::isfinite(axis->fixedMax) && x >= axis->fixedMin &&
         x <= axis->fixedMax;
}

}  // namespace

void SourceData::ResetCursor() {
  const unsigned size = nSamples;
  if (size == 0)
    return;
  const SampleInterval interval = effectiveInterval(size);
  const int left = static_cast<int>(std::min(interval.from, size - 1));
  iLCursor = left;
  iRCursor = std::max(static_cast<int>(interval.end) - 1, left);
}

bool SourceData::MoveLCursor(int samples, const AxisData* axis) {
  const SampleReader all = Read();
  const int last = static_cast<int>(all.size()) - 1;
  const int old = std::min<int>(iLCursor, last), right = std::min<int>(iRCursor, last);
  if (last < 1 || old < 0 || right < 0)
    return false;
  if (!shows(axis, all.x(static_cast<unsigned>(old))))
    return false;
  int moved = static_cast<int>(std::clamp<std::int64_t>(std::int64_t{old} + samples, 0, last));
  const int from = static_cast<int>(effectiveInterval(all.size()).from);
  if (!isFixed(axis) && moved < from && old >= from) {
    iLCursor = moved;
    return Scroll(samples, axis);
  }
  if (moved >= right)
    moved = std::max(right - 1, 0);
  if (isFixed(axis))
    moved = static_cast<int>(FirstNotBelow(all, static_cast<unsigned>(moved),
                                           static_cast<unsigned>(last), axis->fixedMin));
  iLCursor = moved;
  return false;
}

bool SourceData::MoveRCursor(int samples, const AxisData* axis) {
  const SampleReader all = Read();
  const int last = static_cast<int>(all.size()) - 1;
  const int left = std::min<int>(iLCursor, last), old = std::min<int>(iRCursor, last);
  if (last < 1 || left < 0 || old < 0)
    return false;
  if (!shows(axis, all.x(static_cast<unsigned>(old))))
    return false;
  int moved = static_cast<int>(
      std::min(std::max(std::int64_t{old} + samples, std::int64_t{left} + 1), std::int64_t{last}));
  const int end = static_cast<int>(effectiveInterval(all.size()).end);
  if (!isFixed(axis) && moved >= end && old < end) {
    iRCursor = moved;
    return Scroll(samples, axis);
  }
  if (isFixed(axis))
    moved = static_cast<int>(LastNotAbove(all, 0, static_cast<unsigned>(moved), axis->fixedMax));
  iRCursor = moved;
  return false;
}

}  // namespace sparlow
