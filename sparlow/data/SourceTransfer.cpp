#include <algorithm>
#include <limits>

#include "sparlow/data/DataLock.h"
#include "sparlow/data/SourceData.h"

namespace sparlow {

// The interval's lock is held where inTransfer and an open or pinned nTo have to change together: a window
// that resets the interval just when a transfer ends would leave the end open for ever.

bool SourceData::TryReset() {
  // A transfer that begins meanwhile drops the samples by a Reset of its own, which waits for this.
  const DataLock data(dataMutex);
  if (fedElsewhere())
    return false;
  Reset();
  return true;
}

void SourceData::InitDataTransfer(bool isWaveform) {
  noteFeeder();
  {
    const Lock lock(intervalLock);
    inTransfer = true;
  }
  firstBlockPending = true;
  waveform = isWaveform;
}

bool SourceData::InitBlockTransfer() {
  noteFeeder();
  nToAtBlockStart = GetTo();
  sizeAtBlockStart_ = nSamples.load();
  nBlockSamples = 0;
  if (!firstBlockPending)
    return false;
  Reset();
  // A zoom that began before the new data set doesn't write after it.
  setEnds(0, 0);
  nToAtBlockStart = 0;
  sizeAtBlockStart_ = 0;
  firstBlockPending = false;
  return true;
}

void SourceData::TermBlockTransfer() {
  const unsigned end = GetTo(), size = nSamples;
  // Not by the end of the interval, which stands still in a series that is zoomed, or follows
  // another one.
  nBlockSamples = size - std::min<unsigned>(size, sizeAtBlockStart_);
  if (const unsigned shown = nLastSamplesToDraw; shown != 0)
    SetFrom(end - std::min(end, shown));
  SetIntervalParams();
}

bool SourceData::TermDataTransfer() {
  const unsigned size = nSamples;
  if (firstBlockPending || size == 0) {
    const Lock lock(intervalLock);
    // An end that was opened for samples that never came stands at the old ones again.
    if (nTo == 0)
      nTo = size;
    inTransfer = false;
    return false;
  }
  if (waveform) {
    const DataLock data(dataMutex);
    if (const auto store = store_.Get())
      store->SortFirstBlock();
  }
  {
    const Lock lock(intervalLock);
    nTo = size;
    putCursors(static_cast<int>(std::min(GetFrom(), size - 1)), static_cast<int>(size) - 1);
    adjusted = true;
    // Last: who sees the transfer over sees its end, its order and its cursors as well.
    inTransfer = false;
  }
  CalculateStatParams(std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max());
  return true;
}

void SourceData::AdjustSizeTo() {
  const unsigned size = nSamples;
  // A start that no Reset has set yet would show nothing.
  setEnds(nFrom >= size ? 0u : nFrom.load(), size);
  adjusted = true;
  if (size != 0)
    putCursors(static_cast<int>(std::min(GetFrom(), size - 1)), static_cast<int>(size) - 1);
}

}  // namespace sparlow
