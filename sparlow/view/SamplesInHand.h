#pragma once

#include "sparlow/data/SampleReader.h"

namespace sparlow {

class SourceData;

/// The samples that a render of this thread has in hand, for the pixel calls that come out of it:
/// taking a share of the store for each sample would cost more than the mapping.
/// Threads: the one that renders.
class SamplesInHand {
 public:
  SamplesInHand(const SourceData* series, const SampleReader* samples)
      : series_(series), samples_(samples), outer_(innermost) {
    innermost = this;
  }
  ~SamplesInHand() { innermost = outer_; }
  SamplesInHand(const SamplesInHand&) = delete;
  SamplesInHand& operator=(const SamplesInHand&) = delete;

  static const SampleReader* Of(const SourceData* series) {
    return innermost && innermost->series_ == series ? innermost->samples_ : nullptr;
  }

 private:
  const SourceData* series_;
  const SampleReader* samples_;
  SamplesInHand* outer_;
  static inline constinit thread_local SamplesInHand* innermost = nullptr;
};

}  // namespace sparlow
