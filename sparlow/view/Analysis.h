#pragma once

#include "sparlow/view/ViewData.h"

namespace sparlow {

/// A series that is worked out from another one. A host derives from it and supplies Calculate;
/// here are the range of the source to use, the locking, and what becomes of a failure.
///
/// The source is the one given to Init or to SetAnalyzeFromSource; it must outlive the analysis. It
/// may grow meanwhile, and isn't to start a new data set.
/// Threads: Analyze and ApplyMask, any, in general a worker of the graph's, one at a time by
/// threadsMutex; the rest as ViewData.
class Analysis : public ViewData {
 public:
  /// AnalyzeDataBetweenCursors, a setting of the process, back to false.
  static void SetOptionsToDefault() { AnalyzeDataBetweenCursors = false; }

  using ViewData::SetInterval;
  /// The samples of the source to use: from the first up to, and not including, the second. Not
  /// from below to: no range. Without a source nothing happens.
  void SetInterval(unsigned from, unsigned to);
  double GetxAnalyzeFrom() const override { return xAnalyzeFrom; }
  double GetxAnalyzeTo() const override { return xAnalyzeTo; }
  bool IsCalculated() const override { return true; }

  /// Recalculates the series from its source, from all of it or from what lies between its cursors.
  /// Returns false, and leaves the series as it is, when there is no source, or none with samples,
  /// or the series itself is its source. Returns false, and leaves the series empty, when Calculate
  /// failed; what Calculate throws is passed on after that.
  bool Analyze() override;
  /// Runs Calculate with the range as it stands. A failure keeps what is there; it only ends a
  /// transfer that Calculate has begun.
  bool ApplyMask() override;

  /// The range in samples of the source; both at kWholeSource mean all of it.
  static constexpr unsigned kWholeSource = 0xFFFFFFFFu;
  CopyableAtomic<unsigned> nAnalyzeFrom = kWholeSource;
  CopyableAtomic<unsigned> nAnalyzeTo = kWholeSource;
  /// x of the first and the last sample of the range. The second below the first: no range.
  CopyableAtomic<double> xAnalyzeFrom = 0.0;
  CopyableAtomic<double> xAnalyzeTo = -1.0;

 protected:
  /// Fills the series from analyzeFrom, by Reset, Add and AdjustSizeTo or by a transfer, within
  /// nAnalyzeFrom and nAnalyzeTo unless both are kWholeSource. Asks IsAborted in its loops, and
  /// returns false when it is true, or when there is no valid result. Runs with threadsMutex held.
  virtual bool Calculate() = 0;

 private:
  bool calculate(bool onlyWhole);
};

}  // namespace sparlow
