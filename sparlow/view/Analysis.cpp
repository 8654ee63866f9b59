#include "sparlow/view/Analysis.h"

#include <algorithm>

namespace sparlow {

void Analysis::SetInterval(unsigned from, unsigned to) {
  const SourceData* const source = analyzeFrom;
  if (!source)
    return;
  nAnalyzeFrom = from;
  nAnalyzeTo = to;
  const SampleReader samples = source->Read();
  const bool range = from < to && !samples.empty();
  const auto xAt = [&](unsigned sample) { return samples.x(std::min(sample, samples.size() - 1)); };
  xAnalyzeFrom = range ? xAt(from) : 0.0;
  xAnalyzeTo = range ? xAt(to - 1) : -1.0;
}

bool Analysis::Analyze() {
  const SourceData* const source = analyzeFrom;
  if (!source || source == this || !source->Valid())
    return false;
  const DataLock threads(threadsMutex);
  if (AnalyzeDataBetweenCursors) {
    // A user may drag one cursor across the other meanwhile.
    const unsigned to = source->GetAnalyzeTo();
    SetInterval(std::min(source->GetAnalyzeFrom(), to), to);
  } else {
    SetInterval(kWholeSource, kWholeSource);
  }
  return calculate(true);
}

bool Analysis::ApplyMask() {
  const DataLock threads(threadsMutex);
  return calculate(false);
}

// A failure leaves no half result on show where onlyWhole asks that, and no graph locked by a transfer
// that Calculate has begun.
bool Analysis::calculate(bool onlyWhole) {
  const bool transferBefore = inTransfer;
  const auto afterFailure = [&] {
    if (onlyWhole)
      Reset();
    if (inTransfer && !transferBefore)
      TermDataTransfer();
  };
  try {
    if (Calculate())
      return true;
  } catch (...) {
    afterFailure();
    throw;
  }
  afterFailure();
  return false;
}

}  // namespace sparlow
