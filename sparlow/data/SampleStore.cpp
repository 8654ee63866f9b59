#include "sparlow/data/SampleStore.h"

#include <algorithm>
#include <cmath>

#include "sparlow/data/BlockTable.h"
#include "sparlow/data/Finite.h"
#include "sparlow/data/SampleSpan.h"

namespace sparlow {

namespace {

std::uint64_t nextSerial() {
  static std::atomic<std::uint64_t> last{0};
  return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

}  // namespace

SampleStore::SampleStore(bool waveform, unsigned limit)
    : serial_(nextSerial()),
      waveform_(waveform),
      limit_(waveform ? std::min(limit, SampleBlock::kSamples) : limit),
      blocks_(std::make_unique<BlockTable>()) {
  open(blocks_->Grow(waveform));
}

SampleStore::~SampleStore() = default;

void SampleStore::Grow() {
  open(blocks_->Grow(false));
}

void SampleStore::open(SampleBlock* block) {
  entries_.store(blocks_->Entries());
  lastBlock_ = block;
  lastRange_ = {};
  appendEnd_ = std::min(nCapacity(), limit_);
}

unsigned SampleStore::nBlocksMax() const {
  return blocks_->Room();
}

unsigned SampleStore::iLastBlock() const {
  return blocks_->Count() - 1;
}

std::size_t SampleStore::MemoryUse() const {
  return sizeof(*this) + blocks_->Bytes() + (waveform_ ? SampleBlock::kSamples : 0);
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
    finishBlock(entries_.relaxed()[size >> SampleBlock::kShift]);
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
  BlockEntry& entry = entries_.relaxed()[(end - 1) >> SampleBlock::kShift];
  const unsigned place = ((end - 1) & SampleBlock::kMask) + 1;
  entry.block->FinishRun(place);
  if (place == SampleBlock::kSamples)
    finishBlock(entry);
}

void SampleStore::Set(unsigned sample, double x, double y, bool slope) {
  BlockEntry& entry = entries_.relaxed()[sample >> SampleBlock::kShift];
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
  entries_.relaxed()[0].block->SortByX(std::min(size, SampleBlock::kSamples));
  ++changes_;
  if (size == 0 || iLastBlock() > 0)
    return;
  lastX_ = x(size - 1);
  ascending_.setRelaxed(true);
}

}  // namespace sparlow
