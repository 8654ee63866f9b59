#include "sparlow/data/SourceData.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <utility>

#include "sparlow/data/DataLock.h"

namespace sparlow {

namespace {

// One for all series: it is held for six assignments, and copies of a series share its statistics.
std::mutex& statisticsLock() {
  static std::mutex lock;
  return lock;
}

template <std::size_t N>
void copyText(char (&field)[N], const char* text) {
  const std::string_view kept = CutText(text ? text : "", N - 1);
  std::memmove(field, kept.data(), kept.size());
  field[kept.size()] = '\0';
}

}  // namespace

void SourceData::Init(const char* seriesName, SourceData* source) {
  resetFields();
  dataMutex = new CMutex;
  threadsMutex = new CMutex;
  terminator = CreateEvent(false);
  name = seriesName ? seriesName : "";
  copyText(cptName, "Sample");
  copyText(xUnit, "s");
  copyText(yUnit, "s");
  analyzeFrom = source;
  statParams = IsCalculated() ? nullptr : new StatisticParameters;
  iLCursor = -1;
  iRCursor = -1;
  inTransfer = false;
}

void SourceData::resetFields() {
  store_.Exchange(nullptr);
  nSamples = 0;
  nFrom = 0xFFFFFFFFu;
  nTo = 0xFFFFFFFFu;
  resetBounds();
  adjusted = false;
  nBlockSamples = 0;
  firstBlockPending = false;
  nToAtBlockStart = 0;
  sizeAtBlockStart_ = 0;
  waveform = false;
}

void SourceData::resetBounds() {
  xIntervalMin = xIntervalMax = yIntervalMin = yIntervalMax = 0.0;
  yGlobalMin = xGlobalMin = SampleBlock::kNoMin;
  yGlobalMax = xGlobalMax = SampleBlock::kNoMax;
  nNotFinite_ = nBeyondLimit_ = 0;
}

void SourceData::Term() {
  {
    const DataLock threads(threadsMutex);
    Reset();
  }
  delete std::exchange(dataMutex, nullptr);
  delete std::exchange(threadsMutex, nullptr);
  CloseHandle(std::exchange(terminator, nullptr));
  delete std::exchange(statParams, nullptr);
}

void SourceData::Reset() {
  const DataLock data(dataMutex);
  nSamples = 0;
  store_.Exchange(nullptr);
  nFrom = 0;
  nTo = 0;
  resetBounds();
  adjusted = false;
  PublishStatParams({});
  iLCursor = -1;
  iRCursor = -1;
}

SampleStore* SourceData::grow() {
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

void SourceData::noteDropped(bool finite) {
  ++(finite ? nBeyondLimit_ : nNotFinite_);
}

DroppedSamples SourceData::GetDroppedSamples() const {
  return {nNotFinite_, nBeyondLimit_};
}

void SourceData::Add(std::span<const double> xs, std::span<const double> ys) {
  append({xs.data(), 0.0, 0.0, ys.first(std::min(xs.size(), ys.size()))});
}

void SourceData::AddUniform(double firstX, double stepX, std::span<const double> ys) {
  append({nullptr, firstX, stepX, ys});
}

void SourceData::append(const SampleSpan& samples) {
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

void SourceData::Set(unsigned sample, double x, double y, bool slope) {
  if (!BothFinite(x, y))
    return;
  const std::shared_ptr<SampleStore> store = store_.Get();
  if (!store || sample >= nSamples || sample >= store->Size())
    return;
  store->Set(sample, x, y, slope);
  Widen(yGlobalMin, yGlobalMax, y);
  Widen(xGlobalMin, xGlobalMax, x);
}

void SourceData::SetUnits(const char* unit) {
  copyText(xUnit, "s");
  copyText(yUnit, unit);
}

void SourceData::CalculateStatParams(double yLow, double yHigh) {
  if (!statParams)
    return;
  const std::shared_ptr<SampleStore> store = store_.Get();
  StatisticParameters values;
  values.Calculate(this, yLow, yHigh);
  PublishStatParams(values, store.get());
}

StatisticParameters SourceData::GetStatParams() const {
  const std::lock_guard<std::mutex> lock(statisticsLock());
  return statParams ? *statParams : StatisticParameters{};
}

void SourceData::PublishStatParams(const StatisticParameters& values) {
  PublishStatParams(values, store_.Raw());
}

// A Reset changes the store before it publishes its zeros, so values that come too late for their
// data set can't outlive them.
void SourceData::PublishStatParams(const StatisticParameters& values, const SampleStore* store) {
  const std::lock_guard<std::mutex> lock(statisticsLock());
  if (statParams && store_.Raw() == store)
    *statParams = values;
}

}  // namespace sparlow
