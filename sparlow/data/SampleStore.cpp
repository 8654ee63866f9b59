#include "sparlow/data/SampleStore.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include "sparlow/data/Error.h"
#include "sparlow/data/Finite.h"

namespace sparlow {

namespace {

std::uint64_t nextSerial() {
  static std::atomic<std::uint64_t> last{0};
  return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

}  // namespace

// The samples stay as memory gives them: nobody reads what isn't counted.
SampleBlock::SampleBlock(bool withSlopes)
    : slope(withSlopes ? std::make_unique<std::uint8_t[]>(kSamples) : nullptr) {}

void SampleBlock::Set(unsigned place, double newX, double newY, bool newSlope, unsigned count) {
  put(place, newX, newY, newSlope);
  const unsigned run = place >> kRunShift, group = place >> kGroupShift;
  if ((run + 1) << kRunShift <= count)
    summarizeRun(run);
  if ((group + 1) << kGroupShift <= count)
    summarizeGroup(group);
}

void SampleBlock::SortByX(unsigned count) {
  for (unsigned i = 0; i < count; ++i) {
    // Read plainly, by the thread that writes: an atomic read in such a loop takes five times as long.
    unsigned smallest = i;
    for (unsigned k = i + 1; k < count; ++k)
      if (x[k] < x[smallest])
        smallest = k;
    if (smallest == i)
      continue;
    const double oldX = xAt(i), oldY = yAt(i);
    const bool oldSlope = slopeAt(i);
    put(i, xAt(smallest), yAt(smallest), slopeAt(smallest));
    put(smallest, oldX, oldY, oldSlope);
  }
  for (unsigned end = kRunSamples; end <= count; end += kRunSamples)
    FinishRun(end);
}

void SampleBlock::FinishRun(unsigned end) {
  summarizeRun((end - 1) >> kRunShift);
  if (end % kGroupSamples == 0)
    summarizeGroup((end - 1) >> kGroupShift);
}

void SampleBlock::FinishRun(unsigned end, const YRange& range) {
  const unsigned run = (end - 1) >> kRunShift;
  runMin[run].setRelaxed(range.low);
  runMax[run].setRelaxed(range.high);
  if (end % kGroupSamples == 0)
    summarizeGroup((end - 1) >> kGroupShift);
}

// By the thread that writes, so that its samples need no atomic reads. In lanes that don't wait for
// one another.
void SampleBlock::summarizeRun(unsigned run) {
  constexpr unsigned lanes = 4;
  const double* const ys = y + (run << kRunShift);
  YRange ranges[lanes];
  for (unsigned i = 0; i < kRunSamples; i += lanes)
    for (unsigned lane = 0; lane < lanes; ++lane)
      ranges[lane].Include(ys[i + lane]);
  for (unsigned lane = 1; lane < lanes; ++lane)
    ranges[0].Include(ranges[lane]);
  runMin[run].setRelaxed(ranges[0].low);
  runMax[run].setRelaxed(ranges[0].high);
}

void SampleBlock::summarizeGroup(unsigned group) {
  constexpr unsigned runs = kGroupSamples / kRunSamples;
  YRange range;
  for (unsigned run = group * runs; run < (group + 1) * runs; ++run)
    range.Include(RunRange(run));
  groupMin[group].setRelaxed(range.low);
  groupMax[group].setRelaxed(range.high);
}

YRange SampleBlock::RangeOfGroups() const {
  YRange range;
  for (unsigned group = 0; group < kGroups; ++group)
    range.Include(GroupRange(group));
  return range;
}

SampleStore::SampleStore(bool waveform, unsigned limit)
    : serial_(nextSerial()),
      waveform_(waveform),
      limit_(waveform ? std::min(limit, SampleBlock::kSamples) : limit),
      newest_(makeTable(kFirstTableSize)) {
  enter(memory_.Take(), waveform);
  entries_.store(newest_->entries.get());
}

SampleStore::~SampleStore() {
  for (unsigned b = 0; b < nBlocks_; ++b)
    std::destroy_at(newest_->entries[b].block);
}

std::unique_ptr<SampleStore::Table> SampleStore::makeTable(unsigned size) {
  try {
    return std::make_unique<Table>(size);
  } catch (const std::bad_alloc&) {
    throw Error(Error::kNoTableMemory);
  }
}

void SampleStore::enter(void* memory, bool withSlopes) {
  lastBlock_ = new (memory) SampleBlock(withSlopes);
  lastRange_ = {};
  newest_->entries[nBlocks_++].block = lastBlock_;
  appendEnd_ = std::min(nCapacity(), limit_);
}

void SampleStore::Grow() {
  std::unique_ptr<Table> table = TableFull() ? makeTable(2 * newest_->size) : nullptr;
  void* const block = memory_.Take();
  if (table) {
    std::copy_n(newest_->entries.get(), nBlocks_, table->entries.get());
    table->older = std::move(newest_);
    newest_ = std::move(table);
    entries_.store(newest_->entries.get());
  }
  enter(block, false);
}

std::size_t SampleStore::MemoryUse() const {
  std::size_t bytes = sizeof(*this) + memory_.Bytes();
  if (waveform_)
    bytes += SampleBlock::kSamples;
  for (const Table* table = newest_.get(); table; table = table->older.get())
    bytes += sizeof(*table) + table->size * sizeof(BlockEntry);
  return bytes;
}

namespace {

/// What a run of samples is like.
struct Run {
  bool finite = true;
  bool ascends = true;
  YRange y;
};

/// Several samples at a time, in lanes that don't wait for one another.
Run examine(const double* xs, const double* ys, unsigned count, double lastX) {
  constexpr unsigned lanes = 4;
  double total[lanes] = {};  // of anything: finite while all is, or else looked at again
  double step[lanes] = {};   // the largest one backwards, as a number below 0
  YRange ranges[lanes];
  const auto look = [&](unsigned lane, unsigned i, double before) {
    const double forward = xs[i] - before;
    total[lane] += forward + ys[i];
    step[lane] = std::min(step[lane], forward);
    ranges[lane].Include(ys[i]);
  };
  look(0, 0, std::min(lastX, xs[0]));
  unsigned i = 1;
  for (; i + lanes <= count; i += lanes)
    for (unsigned lane = 0; lane < lanes; ++lane)
      look(lane, i + lane, xs[i + lane - 1]);
  for (; i < count; ++i)
    look(0, i, xs[i - 1]);
  Run run;
  run.finite = std::isfinite(total[0] + total[1] + total[2] + total[3]);
  run.ascends = !(xs[0] < lastX) && step[0] + step[1] + step[2] + step[3] == 0.0;
  for (const YRange& range : ranges)
    run.y.Include(range);
  return run;
}

/// Writes samples of a span behind one another, those that aren't finite left out. How many.
unsigned copyFinite(const SampleSpan& samples, std::size_t begin, unsigned count, double* xs,
                    double* ys) {
  unsigned kept = 0;
  for (std::size_t i = begin; i < begin + count; ++i) {
    const double x = samples.x(i), y = samples.y(i);
    if (!BothFinite(x, y))
      continue;
    xs[kept] = x;
    ys[kept++] = y;
  }
  return kept;
}

}  // namespace

Appended SampleStore::Append(const SampleSpan& samples, std::size_t begin) {
  SampleBlock& block = *lastBlock_;
  const unsigned size = size_.relaxed();
  const unsigned start = size & SampleBlock::kMask;
  const unsigned end = start + (appendEnd_ - size);
  unsigned place = start;
  Appended all{begin, {}, {}};
  // Run by run; a run is looked at in memory that the copy has just brought near.
  while (place < end && all.end < samples.ys.size()) {
    const unsigned room = std::min(end, (place | (SampleBlock::kRunSamples - 1)) + 1) - place;
    auto count = static_cast<unsigned>(std::min<std::size_t>(room, samples.ys.size() - all.end));
    double* const xs = block.x + place;
    double* const ys = block.y + place;
    samples.CopyTo(xs, ys, all.end, count);
    Run run = examine(xs, ys, count, lastX_);
    all.end += count;
    if (!run.finite) {
      count = copyFinite(samples, all.end - count, count, xs, ys);
      if (count == 0)
        continue;
      run = examine(xs, ys, count, lastX_);
    }
    if (!run.ascends)
      ascending_.setRelaxed(false);
    for (unsigned i = 0; i < count; i += run.ascends ? std::max(count - 1, 1u) : 1)
      all.x.Include(xs[i]);
    lastX_ = xs[count - 1];
    takeRun(place, count, run.y);
    all.y.Include(run.y);
    place += count;
  }
  if (place == SampleBlock::kSamples)
    finishBlock(newest_->entries[size >> SampleBlock::kShift]);
  size_.store(size + (place - start));
  return all;
}

void SampleStore::widenBlock(const YRange& range) {
  lastRange_.Include(range);
  lastBlock_->yMin.setRelaxed(lastRange_.low);
  lastBlock_->yMax.setRelaxed(lastRange_.high);
}

void SampleStore::takeRun(unsigned place, unsigned count, const YRange& range) {
  widenBlock(range);
  if (count == SampleBlock::kRunSamples)
    lastBlock_->FinishRun(place + count, range);
  else if ((place + count) % SampleBlock::kRunSamples == 0)
    lastBlock_->FinishRun(place + count);
}

void SampleStore::finishRun(unsigned end) {
  BlockEntry& entry = newest_->entries[(end - 1) >> SampleBlock::kShift];
  const unsigned place = ((end - 1) & SampleBlock::kMask) + 1;
  entry.block->FinishRun(place);
  if (place == SampleBlock::kSamples)
    finishBlock(entry);
}

void SampleStore::Set(unsigned sample, double x, double y, bool slope) {
  BlockEntry& entry = newest_->entries[sample >> SampleBlock::kShift];
  const unsigned first = sample & ~SampleBlock::kMask;
  const unsigned count = std::min(size_.relaxed() - first, SampleBlock::kSamples);
  entry.block->Set(sample - first, x, y, slope, count);
  if (count == SampleBlock::kSamples)
    summarize(entry);
  ++changes_;
  if (!ordered(sample))
    ascending_.setRelaxed(false);
  if (sample + 1 == size_.relaxed())
    lastX_ = x;
}

void SampleStore::finishBlock(BlockEntry& entry) {
  entry.addedLow.setRelaxed(lastRange_.low);
  entry.addedHigh.setRelaxed(lastRange_.high);
  summarize(entry);
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
  newest_->entries[0].block->SortByX(std::min(size, SampleBlock::kSamples));
  ++changes_;
  if (size == 0 || nBlocks_ > 1)
    return;
  lastX_ = x(size - 1);
  ascending_.setRelaxed(true);
}

}  // namespace sparlow
