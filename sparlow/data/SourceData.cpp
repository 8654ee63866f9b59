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
  putCursors(-1, -1);
  inTransfer = false;
}

void SourceData::resetFields() {
  dropSamples();
  setEnds(0xFFFFFFFFu, 0xFFFFFFFFu);
  publishBounds({});
  adjusted = false;
  nBlockSamples = 0;
  firstBlockPending = false;
  nToAtBlockStart = 0;
  sizeAtBlockStart_ = 0;
  waveform = false;
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
  dropSamples();
  setEnds(0, 0);
  publishBounds({});
  adjusted = false;
  PublishStatParams({});
  putCursors(-1, -1);
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
