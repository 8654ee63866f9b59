#include "sparlow/data/SampleStore.h"

#include <new>
#include <utility>

#include "sparlow/data/Error.h"

namespace sparlow {

namespace {

std::uint64_t nextSerial() {
  static std::atomic<std::uint64_t> last{0};
  return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

}  // namespace

SampleBlock::SampleBlock(bool withSlopes)
    : x{}, y{}, slope(withSlopes ? std::make_unique<std::uint8_t[]>(kSamples) : nullptr) {
  for (unsigned run = 0; run < kRuns; ++run) {
    runMin[run].setRelaxed(kNoMin);
    runMax[run].setRelaxed(kNoMax);
  }
}

void SampleBlock::Set(unsigned place, double newX, double newY, bool newSlope) {
  put(place, newX, newY, newSlope);
  summarizeRun(place >> kRunShift);
  summarizeGroup(place >> kGroupShift);
}

void SampleBlock::SortByX() {
  const unsigned samples = count.relaxed();
  for (unsigned i = 0; i < samples; ++i) {
    unsigned smallest = i;
    for (unsigned k = i + 1; k < samples; ++k)
      if (xAt(k) < xAt(smallest))
        smallest = k;
    if (smallest == i)
      continue;
    const double oldX = xAt(i), oldY = yAt(i);
    const bool oldSlope = slopeAt(i);
    put(i, xAt(smallest), yAt(smallest), slopeAt(smallest));
    put(smallest, oldX, oldY, oldSlope);
  }
  for (unsigned run = 0; run << kRunShift < samples; ++run)
    summarizeRun(run);
  for (unsigned group = 0; group < kGroups; ++group)
    summarizeGroup(group);
}

void SampleBlock::summarizeRun(unsigned run) {
  double low = kNoMin, high = kNoMax;
  const unsigned end = std::min((run + 1) << kRunShift, count.relaxed());
  for (unsigned place = run << kRunShift; place < end; ++place) {
    low = std::min(low, yAt(place));
    high = std::max(high, yAt(place));
  }
  runMin[run].setRelaxed(low);
  runMax[run].setRelaxed(high);
}

void SampleBlock::summarizeGroup(unsigned group) {
  constexpr unsigned runs = kGroupSamples / kRunSamples;
  YRange range;
  for (unsigned run = group * runs; run < (group + 1) * runs; ++run)
    range.Include({runMin[run].relaxed(), runMax[run].relaxed()});
  groupMin[group].setRelaxed(range.low);
  groupMax[group].setRelaxed(range.high);
}

YRange SampleBlock::RangeOfGroups() const {
  YRange range;
  for (unsigned group = 0; group < kGroups; ++group)
    range.Include({groupMin[group].relaxed(), groupMax[group].relaxed()});
  return range;
}

SampleStore::SampleStore(bool waveform, unsigned limit)
    : serial_(nextSerial()),
      waveform_(waveform),
      limit_(waveform ? std::min(limit, SampleBlock::kSamples) : limit),
      newest_(makeTable(kFirstTableSize)) {
  enter(std::make_unique<SampleBlock>(waveform));
  entries_.store(newest_->entries.get());
}

SampleStore::~SampleStore() {
  for (unsigned b = 0; b < nBlocks_; ++b)
    delete newest_->entries[b].block;
}

std::unique_ptr<SampleStore::Table> SampleStore::makeTable(unsigned size) {
  try {
    return std::make_unique<Table>(size);
  } catch (const std::bad_alloc&) {
    throw Error(Error::kNoTableMemory);
  }
}

void SampleStore::enter(std::unique_ptr<SampleBlock> block) {
  lastBlock_ = block.release();
  newest_->entries[nBlocks_++].block = lastBlock_;
  appendEnd_ = std::min(nCapacity(), limit_);
}

void SampleStore::Grow() {
  auto block = std::make_unique<SampleBlock>(false);
  if (TableFull()) {
    auto table = makeTable(2 * newest_->size);
    std::copy_n(newest_->entries.get(), nBlocks_, table->entries.get());
    table->older = std::move(newest_);
    newest_ = std::move(table);
    entries_.store(newest_->entries.get());
  }
  enter(std::move(block));
}

void SampleStore::Set(unsigned sample, double x, double y, bool slope) {
  BlockEntry& entry = newest_->entries[sample >> SampleBlock::kShift];
  entry.block->Set(sample & SampleBlock::kMask, x, y, slope);
  if (entry.block->count.relaxed() == SampleBlock::kSamples)
    summarize(entry);
  if (!ordered(sample))
    ascending_.setRelaxed(false);
  if (sample + 1 == size_.relaxed())
    lastX_ = x;
}

void SampleStore::summarize(BlockEntry& entry) {
  const YRange range = entry.block->RangeOfGroups();
  entry.low.setRelaxed(range.low);
  entry.high.setRelaxed(range.high);
}

bool SampleStore::ordered(unsigned sample) const {
  return (sample == 0 || x(sample - 1) <= x(sample)) &&
         (sample + 1 >= size_.relaxed() || x(sample) <= x(sample + 1));
}

void SampleStore::SortFirstBlock() {
  const unsigned size = size_.relaxed();
  newest_->entries[0].block->SortByX();
  if (size == 0 || nBlocks_ > 1)
    return;
  lastX_ = x(size - 1);
  ascending_.setRelaxed(true);
}

}  // namespace sparlow
