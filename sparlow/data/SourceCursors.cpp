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
  putCursors(left, std::max(static_cast<int>(interval.end) - 1, left));
}

bool SourceData::MoveLCursor(int samples, const AxisData* axis) {
  return moveCursor(Side::left, samples, axis);
}

bool SourceData::MoveRCursor(int samples, const AxisData* axis) {
  return moveCursor(Side::right, samples, axis);
}

bool SourceData::moveCursor(Side side, int samples, const AxisData* axis) {
  const bool isLeft = side == Side::left;
  const SampleReader all = Read();
  const int last = static_cast<int>(all.size()) - 1;
  const int left = std::min<int>(iLCursor, last), right = std::min<int>(iRCursor, last);
  const int old = isLeft ? left : right;
  if (last < 1 || left < 0 || right < 0 || !shows(axis, all.x(static_cast<unsigned>(old))))
    return false;
  const std::int64_t wanted = std::int64_t{old} + samples;
  int moved = static_cast<int>(
      std::clamp<std::int64_t>(wanted, isLeft ? 0 : std::min(left + 1, last), last));
  const SampleInterval interval = effectiveInterval(all.size());
  const int from = static_cast<int>(interval.from), end = static_cast<int>(interval.end);
  const bool leaves = isLeft ? moved < from && old >= from : moved >= end && old < end;
  if (!isFixed(axis) && leaves) {
    cursor(side) = moved;
    return Scroll(samples, axis);
  }
  if (isLeft && moved >= right)
    moved = std::max(right - 1, 0);
  const auto sample = static_cast<unsigned>(moved);
  if (isFixed(axis))
    moved = static_cast<int>(
        isLeft ? FirstNotBelow(all, sample, static_cast<unsigned>(last), axis->fixedMin)
               : LastNotAbove(all, 0, sample, axis->fixedMax));
  cursor(side) = moved;
  return false;
}

}  // namespace sparlow
