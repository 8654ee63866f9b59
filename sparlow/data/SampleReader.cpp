#include "sparlow/data/SampleReader.h"

namespace sparlow {

namespace {

void includeSamples(YRange& range, const SampleBlock& block, unsigned from, unsigned end) {
  for (unsigned place = from; place < end; ++place)
    range.Include(block.yAt(place));
}

/// The whole pieces of 1 << shift places that lie between two places, if there are any: the first
/// and the end of them, in pieces.
struct Pieces {
  unsigned first;
  unsigned end;
  Pieces(unsigned from, unsigned to, unsigned shift)
      : first((from + (1u << shift) - 1) >> shift), end(std::max(to >> shift, first)) {}
  bool Empty() const { return first == end; }
};

void includeRuns(YRange& range, const SampleBlock& block, unsigned from, unsigned end) {
  const Pieces runs(from, end, SampleBlock::kRunShift);
  if (runs.Empty())
    return includeSamples(range, block, from, end);
  includeSamples(range, block, from, runs.first << SampleBlock::kRunShift);
  for (unsigned run = runs.first; run < runs.end; ++run)
    range.Include(block.RunRange(run));
  includeSamples(range, block, runs.end << SampleBlock::kRunShift, end);
}

/// Places of one block: from both ends inwards the samples of a part of a run, the runs of a part of
/// a group, and between them the groups. A piece that goes on beyond the end may hold samples that
/// the reader doesn't know.
void includePlaces(YRange& range, const SampleBlock& block, unsigned from, unsigned end) {
  const Pieces groups(from, end, SampleBlock::kGroupShift);
  if (groups.Empty())
    return includeRuns(range, block, from, end);
  includeRuns(range, block, from, groups.first << SampleBlock::kGroupShift);
  for (unsigned group = groups.first; group < groups.end; ++group)
    range.Include(block.GroupRange(group));
  includeRuns(range, block, groups.end << SampleBlock::kGroupShift, end);
}

}  // namespace

YRange SampleReader::RangeOfY(unsigned from, unsigned end) const {
  YRange range;
  unsigned b = from >> SampleBlock::kShift;
  const unsigned last = end >> SampleBlock::kShift;
  if (b == last) {
    includePlaces(range, block(b), from & SampleBlock::kMask, end & SampleBlock::kMask);
    return range;
  }
  if ((from & SampleBlock::kMask) != 0)
    includePlaces(range, block(b++), from & SampleBlock::kMask, SampleBlock::kSamples);
  for (; b < last; ++b)
    range.Include({entries_[b].low.relaxed(), entries_[b].high.relaxed()});
  if ((end & SampleBlock::kMask) != 0)
    includePlaces(range, block(last), 0, end & SampleBlock::kMask);
  return range;
}

}  // namespace sparlow
