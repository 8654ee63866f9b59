#include "sparlow/data/ShownInterval.h"

#include <algorithm>

namespace sparlow {

void ShownInterval::SetFrom(unsigned sample) {
  const Lock lock(intervalLock);
  nFrom = sample;
}

void ShownInterval::SetTo(unsigned sample) {
  const Lock lock(intervalLock);
  nTo = sample;
}

void ShownInterval::setEnds(unsigned from, unsigned to) {
  const Lock lock(intervalLock);
  nFrom = from;
  nTo = to;
}

SampleInterval ShownInterval::cutTo(unsigned size, bool follows) const {
  const unsigned to = nTo;
  const unsigned end = follows && to == 0 ? size : std::min(to, size);
  return {std::min<unsigned>(nFrom, end), end};
}

void ShownInterval::publishBounds(const IntervalBounds& bounds) {
  const Lock lock(intervalLock);
  xIntervalMin = bounds.xMin;
  xIntervalMax = bounds.xMax;
  yIntervalMin = bounds.yMin;
  yIntervalMax = bounds.yMax;
}

IntervalBounds ShownInterval::GetIntervalBounds() const {
  const Lock lock(intervalLock);
  return {xIntervalMin, xIntervalMax, yIntervalMin, yIntervalMax};
}

}  // namespace sparlow
