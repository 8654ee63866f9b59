#include <algorithm>
#include <limits>

#include "sparlow/data/DataLock.h"
#include "sparlow/data/SourceData.h"

namespace sparlow {

// Held where inTransfer and an open or pinned nTo have to change together: a window that resets the
// interval just when a transfer ends would leave the end open for ever. One for all series, since
// it is held for two assignments.
std::mutex& SourceData::openEndLock() {
  static std::mutex lock;
  return lock;
}

bool SourceData::TryReset() {
  // A transfer that begins meanwhile drops the samples by a Reset of its own, which waits for this.
  const DataLock data(dataMutex);
  if (inTransfer && feedingThread_ != std::this_thread::get_id())
    return false;
  Reset();
  return true;
}

void SourceData::InitDataTransfer(bool isWaveform) {
  feedingThread_ = std::this_thread::get_id();
  {
    const std::lock_guard<std::mutex> lock(openEndLock());
    inTransfer = true;
  }
  firstBlockPending = true;
  waveform = isWaveform;
}

bool SourceData::InitBlockTransfer() {
  feedingThread_ = std::this_thread::get_id();
  nToAtBlockStart = GetTo();
  sizeAtBlockStart_ = nSamples.load();
  nBlockSamples = 0;
  if (!firstBlockPending)
    return false;
  Reset();
  {
    // A zoom that began before the new data set doesn't write after it.
    const std::lock_guard<std::mutex> lock(openEndLock());
    nFrom = 0;
    nTo = 0;
  }
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
    nFrom = end - std::min(end, shown);
  SetIntervalParams();
}

bool SourceData::TermDataTransfer() {
  const unsigned size = nSamples;
  if (firstBlockPending || size == 0) {
    const std::lock_guard<std::mutex> lock(openEndLock());
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
    const std::lock_guard<std::mutex> lock(openEndLock());
    nTo = size;
    iRCursor = static_cast<int>(size) - 1;
    iLCursor = static_cast<int>(std::min(GetFrom(), size - 1));
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
  if (nFrom >= size)
    nFrom = 0;
  nTo = size;
  adjusted = true;
  if (size == 0)
    return;
  iLCursor = static_cast<int>(std::min(GetFrom(), size - 1));
  iRCursor = static_cast<int>(size) - 1;
}

}  // namespace sparlow
