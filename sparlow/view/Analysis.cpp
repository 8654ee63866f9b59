#include "sparlow/view/Analysis.h"

#include <algorithm>

namespace sparlow {

void Analysis::SetInterval(unsigned from, unsigned to) {
  if (!analyzeFrom)
    return;
  nAnalyzeFrom = from;
  nAnalyzeTo = to;
  const SampleReader samples = analyzeFrom->Read();
  const bool range = from < to && !samples.empty();
  const auto xAt = [&](unsigned sample) { return samples.x(std::min(sample, samples.size() - 1)); };
  xAnalyzeFrom = range ? xAt(from) : 0.0;
  xAnalyzeTo = range ? xAt(to - 1) : -1.0;
}

bool Analysis::Analyze() {
  if (!analyzeFrom || analyzeFrom == this || !analyzeFrom->Valid())
    return false;
  const DataLock threads(threadsMutex);
  if (AnalyzeDataBetweenCursors) {
    // A user may drag one cursor across the other meanwhile.
    const unsigned to = analyzeFrom->GetAnalyzeTo();
    SetInterval(std::min(analyzeFrom->GetAnalyzeFrom(), to), to);
  } else {
    SetInterval(kWholeSource, kWholeSource);
  }
  return calculate(&Analysis::empty);
}

bool Analysis::ApplyMask() {
  const DataLock threads(threadsMutex);
  return calculate(&Analysis::endTransfer);
}

bool Analysis::calculate(void (Analysis::*afterFailure)()) {
  try {
    if (Calculate())
      return true;
  } catch (...) {
    (this->*afterFailure)();
    throw;
  }
  (this->*afterFailure)();
  return false;
}

// No half result on show, and no graph locked by a transfer that goes on.
void Analysis::empty() {
  Reset();
  endTransfer();
}

void Analysis::endTransfer() {
  if (inTransfer)
    TermDataTransfer();
}

}  // namespace sparlow
