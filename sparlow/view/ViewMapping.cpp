// From samples to pixels, one by one: by the axes, or by what a derived class makes of it.

#include <mutex>

#include "sparlow/view/SamplesInHand.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

std::once_flag ownTableNoted;

template <class OfSample>
int pixelOf(const SourceData& series, unsigned sample, const GraphAxis* axis, OfSample ofSample) {
  if (!axis)
    return 0;
  if (const SampleReader* const inHand = SamplesInHand::Of(&series))
    return sample < inHand->size() ? ofSample(*inHand) : 0;
  const SampleReader samples = series.Read();
  return sample < samples.size() ? ofSample(samples) : 0;
}

}  // namespace

int ViewData::xPosGet(unsigned sample, const GraphAxis* axis) const {
  return pixelOf(*this, sample, axis,
                 [&](const SampleReader& samples) { return axis->hor.GetPos(samples.x(sample)); });
}

int ViewData::yPosGet(unsigned sample, const GraphAxis* axis) const {
  return pixelOf(*this, sample, axis, [&](const SampleReader& samples) {
    return axis->ver.GetPosInv(samples.y(sample));
  });
}

void ViewData::PosGet(unsigned first, unsigned count, const GraphAxis* axis, int* xs,
                      int* ys) const {
  for (unsigned i = 0; i < count; ++i) {
    xs[i] = xPosGet(first + i, axis);
    ys[i] = yPosGet(first + i, axis);
  }
}

// While the constructor runs an object is a ViewData, whatever it becomes.
void ViewData::noteOwnTable() {
  std::call_once(ownTableNoted, [this] { ownTable = VirtualTable(*this); });
}

// A ViewData itself is, also one that was copied from a class which has declared another type.
bool ViewData::isDeclared() const {
  const std::type_info& own = typeid(*this);
  return own == typeid(ViewData) || own == *standardMapping_;
}

IntervalBounds ViewData::GetBoundsOnShow() const {
  IntervalBounds bounds = GetIntervalBounds();
  const SampleReader samples = Read();
  const SampleInterval interval = effectiveInterval(samples.size());
  const SampleInterval whole{0, samples.size()};
  // All of them have bounds of their own, and none that were never worked out are made up here.
  if (interval.Size() == 0 || interval == whole || bounds == IntervalBounds{} ||
      !keeps(&ViewData::SetIntervalParams) || !MapsYByAxis())
    return bounds;
  const YRange range = samples.RangeOfY(interval.from, interval.end);
  bounds.yMin = range.low;
  bounds.yMax = range.high;
  return bounds;
}

}  // namespace sparlow
