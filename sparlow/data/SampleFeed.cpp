#include "sparlow/data/SampleFeed.h"

#include <algorithm>
#include <utility>

#include "sparlow/data/DataLock.h"
#include "sparlow/data/SampleSpan.h"

namespace sparlow {

void SampleFeed::dropSamples() {
  nSamples = 0;
  store_.Exchange(nullptr);
  yGlobalMin = xGlobalMin = SampleBlock::kNoMin;
  yGlobalMax = xGlobalMax = SampleBlock::kNoMax;
  nNotFinite_ = nBeyondLimit_ = 0;
}

SampleStore* SampleFeed::grow() {
  SampleStore* store = store_.Raw();
  if (!store) {
    auto first = std::make_shared<SampleStore>(waveform);
    const DataLock data(dataMutex);
    store = first.get();
    store_.Exchange(std::move(first));
    return store;
  }
  if (store->AtLimit())
    return nullptr;
  if (store->TableFull()) {
    const DataLock data(dataMutex);
    store->Grow();
  } else {
    store->Grow();
  }
  return store;
}

void SampleFeed::noteDropped(bool finite) {
  ++(finite ? nBeyondLimit_ : nNotFinite_);
}

void SampleFeed::Add(std::span<const double> xs, std::span<const double> ys) {
  append({xs.data(), 0.0, 0.0, ys.first(std::min(xs.size(), ys.size()))});
}

void SampleFeed::AddUniform(double firstX, double stepX, std::span<const double> ys) {
  append({nullptr, firstX, stepX, ys});
}

void SampleFeed::append(const SampleSpan& samples) {
  for (std::size_t next = 0; next < samples.ys.size();) {
    SampleStore* store = store_.Raw();
    if (!store || store->Full()) {
      // One that would be dropped makes no room for itself.
      if (!BothFinite(samples.x(next), samples.y(next))) {
        ++next;
        noteDropped(false);
        continue;
      }
      store = grow();
      if (!store) {
        ++next;
        noteDropped(true);
        continue;
      }
    }
    const unsigned before = store->OwnSize();
    const Appended added = store->Append(samples, next);
    nNotFinite_ += added.end - next - (store->OwnSize() - before);
    next = added.end;
    if (added.y.low > added.y.high)
      continue;
    Widen(yGlobalMin, yGlobalMax, added.y.low);
    Widen(yGlobalMin, yGlobalMax, added.y.high);
    Widen(xGlobalMin, xGlobalMax, added.x.low);
    Widen(xGlobalMin, xGlobalMax, added.x.high);
    nSamples.store(store->Size());
  }
}

void SampleFeed::Set(unsigned sample, double x, double y, bool slope) {
  if (!BothFinite(x, y))
    return;
  const std::shared_ptr<SampleStore> store = store_.Get();
  if (!store || sample >= nSamples || sample >= store->Size())
    return;
  store->Set(sample, x, y, slope);
  Widen(yGlobalMin, yGlobalMax, y);
  Widen(xGlobalMin, xGlobalMax, x);
}

}  // namespace sparlow
