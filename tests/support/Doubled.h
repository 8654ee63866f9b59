#pragma once

#include <stdexcept>

#include "sparlow/view/Analysis.h"

namespace sparlow::test {

/// An analysis that doubles its source's values, or ends as the test says: in the middle of a
/// transfer, or not before it is told to stop, and then it takes its time.
struct Doubled : Analysis {
  bool Calculate() override {
    ++runs;
    while (end == waits && !IsAborted())
      std::this_thread::yield();
    if (end == waits) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      end = fails;
      return false;
    }
    InitDataTransfer(false);
    InitBlockTransfer();
    const unsigned from = nAnalyzeFrom, to = nAnalyzeTo;
    for (unsigned i = from == kWholeSource ? 0 : from; i < analyzeFrom->GetSize() && i < to; ++i)
      Add(analyzeFrom->xGet(i), 2 * analyzeFrom->yGet(i));
    if (end == throws)
      throw std::runtime_error("no result");
    return end == succeeds && TermDataTransfer();
  }
  enum End { succeeds, fails, throws, waits };
  std::atomic<End> end{succeeds};
  std::atomic<int> runs{0};
};

}  // namespace sparlow::test
