#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <thread>

#include "sparlow/data/Finite.h"
#include "sparlow/data/SampleReader.h"
#include "sparlow/data/StoreHandle.h"
#include "sparlow/platform/base/CopyableAtomic.h"

namespace sparlow {

class CMutex;
struct SampleSpan;

/// Samples that were offered to a series and not taken.
struct DroppedSamples {
  std::uint64_t notFinite = 0;    ///< with a NaN or an infinity
  std::uint64_t beyondLimit = 0;  ///< the series was full
};

/// The samples of a series, what they reach over, and how they come in.
/// Threads: as each group states.
class SampleFeed {
 public:
  /// @name Feeding
  /// Threads: the one that feeds, while others read.
  ///@{

  /// Appends a sample. One with a NaN or an infinity is dropped, and so is one beyond 8192 samples
  /// of a waveform or beyond 2^31 - 1 of any series. slope: the edge of a waveform rises.
  /// Throws Error with code 0xFF04 when there is no memory for the block table, std::bad_alloc when
  /// there is none for a block. Nothing has changed then, and the same sample may be added again.
  /// Through a copy, samples go to the end of the shared store, which may lie beyond the copy's:
  /// what the other has added in between is then among the copy's samples, but not in its bounds.
  void Add(double x, double y, bool slope = false);
  /// Appends many samples at once, with the result of as many calls of Add, and much faster. The
  /// shorter of the two decides how many. Throws as Add does; the samples before are there then.
  void Add(std::span<const double> xs, std::span<const double> ys);
  /// The same with x = firstX + i * stepX for the i-th of ys, from 0 on.
  void AddUniform(double firstX, double stepX, std::span<const double> ys);
  /// What Add has dropped since the last Reset, and why. Any thread.
  DroppedSamples GetDroppedSamples() const { return {nNotFinite_, nBeyondLimit_}; }
  /// Overwrites a sample, and the flag of a waveform's; one at GetSize() or beyond, or one that Add
  /// would drop, is ignored. The bounds of all samples widen.
  void Set(unsigned sample, double x, double y, bool slope = false);
  ///@}

  /// @name Samples
  /// Threads: any.
  ///@{

  /// The samples as they stand, to be held while they are worked on.
  SampleReader Read() const { return {store_.Get(), nSamples}; }
  bool Valid() const { return nSamples > 0; }
  unsigned GetSize() const { return nSamples; }
  /// The store of the present data set; null without one. Its operations on capacity are the
  /// feeding thread's.
  std::shared_ptr<const SampleStore> Store() const { return store_.Get(); }
  /// One sample, without any check: sample is below GetSize(), and no new data set begins
  /// meanwhile.
  double xGet(unsigned sample) const { return store_.Raw()->x(sample); }
  double yGet(unsigned sample) const { return store_.Raw()->y(sample); }
  /// Returns false for a series that keeps no flags.
  bool slopeGet(unsigned sample) const { return store_.Raw()->slope(sample); }
  double xGlobalMinGet() const { return xGlobalMin; }
  double xGlobalMaxGet() const { return xGlobalMax; }
  double xGlobalIntervalGet() const { return xGlobalMax - xGlobalMin; }
  ///@}

  /// @name Written by the feeding thread
  ///@{
  CopyableAtomic<unsigned> nSamples = 0u;  ///< grows last: what it counts is finished
  CopyableAtomic<bool> inTransfer = false;
  /// The end of the interval has been pinned to the size of the data.
  CopyableAtomic<bool> adjusted = false;
  /// The next InitBlockTransfer starts a new data set.
  CopyableAtomic<bool> firstBlockPending = false;
  CopyableAtomic<bool> waveform = false;
  /// Samples of the latest block transfer, and the effective end of the interval when it began.
  CopyableAtomic<unsigned> nBlockSamples = 0u;
  CopyableAtomic<unsigned> nToAtBlockStart = 0u;
  /// Bounds of all samples since the last Reset.
  CopyableAtomic<double> yGlobalMin = SampleBlock::kNoMin;
  CopyableAtomic<double> yGlobalMax = SampleBlock::kNoMax;
  CopyableAtomic<double> xGlobalMin = SampleBlock::kNoMin;
  CopyableAtomic<double> xGlobalMax = SampleBlock::kNoMax;
  ///@}

  /// Keeps the data set in place: held for a render, and to begin, to drop or to sort one. Shared
  /// with copies, fixed from Init to Term.
  CMutex* dataMutex = nullptr;

 protected:
  SampleFeed() = default;
  SampleFeed(const SampleFeed&) = default;
  SampleFeed& operator=(const SampleFeed&) = default;
  ~SampleFeed() = default;

  /// The samples and their bounds go; whoever reads them keeps them until the reader is done.
  void dropSamples();
  /// A transfer has begun, or goes on, on this thread.
  void noteFeeder() { feedingThread_ = std::this_thread::get_id(); }
  bool fedElsewhere() const { return inTransfer && feedingThread_ != std::this_thread::get_id(); }

  StoreHandle store_;
  CopyableAtomic<unsigned> sizeAtBlockStart_ = 0u;

 private:
  SampleStore* grow();
  void noteDropped(bool finite);
  void append(const SampleSpan& samples);

  CopyableAtomic<std::thread::id> feedingThread_;  // of the latest transfer
  CopyableAtomic<std::uint64_t> nNotFinite_ = std::uint64_t{0};
  CopyableAtomic<std::uint64_t> nBeyondLimit_ = std::uint64_t{0};
};

inline void SampleFeed::Add(double x, double y, bool slope) {
  if (!BothFinite(x, y)) [[unlikely]]
    return noteDropped(false);
  SampleStore* store = store_.Raw();
  unsigned size = store ? store->OwnSize() : 0;
  if (!store || store->FullAt(size)) {
    store = grow();
    if (!store)
      return noteDropped(true);
    size = store->OwnSize();
  }
  store->Append(size, x, y, slope);
  // What samples mostly do comes first: y stays within its bounds, x goes on.
  if (YRange{yGlobalMin.relaxed(), yGlobalMax.relaxed()}.Misses(y)) [[unlikely]]
    Widen(yGlobalMin, yGlobalMax, y);
  if (x > xGlobalMax.relaxed()) [[likely]]
    xGlobalMax.setRelaxed(x);
  if (x < xGlobalMin.relaxed()) [[unlikely]]
    xGlobalMin.setRelaxed(x);
  nSamples.store(size + 1);
}

}  // namespace sparlow
