#pragma once

#include <cstdint>

#include "sparlow/data/CursorPair.h"
#include "sparlow/data/OwnState.h"
#include "sparlow/data/SampleFeed.h"
#include "sparlow/data/ShownInterval.h"
#include "sparlow/data/StatisticParameters.h"
#include "sparlow/platform/base/CopyableAtomic.h"
#include "sparlow/platform/base/Synchronization.h"
#include "sparlow/platform/base/Text.h"

namespace sparlow {

class AxisData;

/// The popup menu of a series, unless it has one of its own.
inline constexpr int kSeriesMenuId = 194;

/// One series of (x, y) samples, x ascending: its store, the interval of it that is on show, its
/// two cursors and its units.
///
/// A series lives from Init to Term. Before and after it has no samples and no locks: there is
/// nothing to read, to find or to move, and asking for it does no harm. A copy is a second handle
/// on the same samples, locks, event and statistics, with a sample count, an interval, cursors and
/// bounds of its own; it keeps its samples when the source starts a new data set. Term is for one
/// of the two: the other may then be read, be assigned to and be destroyed, and nothing else, since
/// the locks, the event and the statistics are gone.
///
/// The fields read and write as the plain values that they hold; where no type asks for one, as in
/// an auto or among the arguments of printf, .load() gives it.
///
/// Threads: one thread feeds, the window's thread does the rest, workers render and analyse. Each
/// group below states who may call it. The fields are atomic one by one; samples are reached
/// through Read(), which stays good whatever the feeding thread does meanwhile.
class SourceData : public SampleFeed, public ShownInterval, public CursorPair {
 public:
  /// @name Life
  /// Threads: the window's, with no other thread at the series.
  ///@{
  SourceData() = default;
  SourceData(const SourceData&) = default;
  SourceData& operator=(const SourceData&) = default;
  virtual ~SourceData() = default;

  /// Makes locks, event and statistics, and an empty series in seconds over seconds. source is the
  /// series that this one is calculated from, or null. Null for name is no name.
  virtual void Init(const char* seriesName, SourceData* source = nullptr);
  /// Waits for whoever renders or analyses the series, then takes back what Init made.
  virtual void Term();
  ///@}

  /// @name Feeding
  /// Threads: the one that feeds. Add and the transfer calls may run while others read; Set and
  /// Reset may too.
  ///@{

  /// Empties the series. Samples that somebody reads at the moment go when the reader is done.
  ///
  /// A fill without a transfer is Reset, Add..., AdjustSizeTo, and CalculateStatParams for the
  /// statistics. Without the Reset, samples go behind those that are there, and the interval begins
  /// where it did.
  virtual void Reset();
  /// Reset; returns false, and changes nothing, while a transfer of another thread's runs. Any
  /// thread, but not beside one that adds samples without a transfer.
  bool TryReset();
  /// A transfer is InitDataTransfer; InitBlockTransfer, Add..., TermBlockTransfer for each block;
  /// TermDataTransfer. The old samples stay until the first InitBlockTransfer.
  void InitDataTransfer(bool isWaveform);
  /// Returns true when this block starts a new data set.
  bool InitBlockTransfer();
  void TermBlockTransfer();
  /// Shows all samples and works out the statistics; sorts a waveform by x. Returns false when the
  /// transfer brought no samples: it is over then, the old samples stay, and an open end of the
  /// interval stands at the last of them.
  bool TermDataTransfer();
  /// Pins the end of the interval to the present size and puts the cursors on its ends. A start
  /// that was never set, or lies beyond the samples, becomes the first one.
  void AdjustSizeTo();
  ///@}

  /// @name Samples
  /// Threads: any.
  ///@{
  virtual unsigned GetnSamples() const { return nSamples; }
  /// Whoever works on the series should stop.
  bool IsAborted() const { return closing || (terminator && terminator->IsSet()); }
  ///@}

  /// @name Bounds of all samples since the last Reset
  /// Threads: any.
  ///@{
  virtual double yGlobalMinGet() const { return yGlobalMin; }
  virtual double yGlobalMaxGet() const { return yGlobalMax; }
  double yGlobalIntervalGet() const { return yGlobalMaxGet() - yGlobalMinGet(); }
  ///@}

  /// @name Interval on show
  /// Operations with a result return true when it changed, and false when nothing did, as on a
  /// series without samples and for an x that is not finite. A move puts the cursors on the ends of
  /// the new interval, unless its text states otherwise. A null axis counts as an automatic one.
  /// Classes that override one of them take a const AxisData*.
  /// Threads: the window's; reading, any.
  ///@{

  /// The interval with its effective end, cut to the samples: from <= end <= GetSize().
  SampleInterval GetInterval() const { return effectiveInterval(nSamples); }
  unsigned GetFrom() const { return GetInterval().from; }
  unsigned GetTo() const { return GetInterval().end; }
  unsigned GetIntervalSize() const { return GetInterval().Size(); }
  /// The interval is all samples, and there are some.
  bool IntervalWhole() const;
  /// Works out the bounds of the interval. x is exact. y comes from the blocks with the lowest and
  /// the highest value: what a partly covered one of them has outside of the interval hides a more
  /// extreme value of a third one. A graph fits its axes to the exact range instead, unless a class
  /// overrides this (ViewData::GetBoundsOnShow).
  /// Threads: any.
  virtual void SetIntervalParams();

  /// Sample at or before x; 0 below the first one and without samples, the last one beyond it. An x
  /// between the samples of two blocks gives the first sample of the last block.
  unsigned GetxValueIndex(double x) const;
  /// The same, and between two blocks too it is the sample before x, where x ascends.
  unsigned SampleAtOrBefore(double x) const;
  /// The samples from min to max of the axis, with one more at each side, and the cursors on the
  /// first and the last one that lie in the range. A range that begins beyond the last sample shows
  /// all of them. Nothing for ends that aren't finite; a series without samples shows none.
  void SetInterval(const AxisData& axis);
  /// The same from xFrom to xTo.
  void SetIntervalByX(double xFrom, double xTo);
  /// All samples, open to those to come during a transfer; on a fixed axis its fixed range. The
  /// bounds become 0, and the cursors move on a fixed axis only.
  void ResetInterval(const AxisData* axis);
  /// The samples from x1 to x2 with one more at each side; on a fixed axis never beyond its range.
  virtual bool ZoomInByPoint(double x1, double x2, const AxisData* axis);
  /// The samples from cursor to cursor, both included; the cursors stay. Declines when one isn't
  /// set.
  virtual bool ZoomInByCursor();
  virtual void ZoomOutFull(const AxisData* axis) { ResetInterval(axis); }
  /// Divides or multiplies the interval about its middle; one that becomes the whole series follows
  /// new samples in a transfer. Declines on a fixed axis, on an empty interval, zooming in on two
  /// samples or fewer, zooming out of all, and for a factor below 2.
  bool SetIntervalBySample(bool zoomIn, const AxisData* axis, int factor);
  /// Shifts the interval, as far as there are samples. Declines on a fixed axis, and an empty one.
  bool Scroll(int samples, const AxisData* axis);
  /// Moves the interval to a first sample, or to the end of the series if it would go beyond; not
  /// an empty one.
  void ScrollTo(unsigned first);
  ///@}

  /// @name Cursors
  /// Threads: the window's.
  ///@{

  /// Puts the cursors on the first and the last sample of the interval, if there are samples.
  void ResetCursor();
  /// Move a cursor by samples, toward higher ones if positive, as far as the other cursor and the
  /// ends of the series; on a fixed axis never out of its range. On an automatic axis a cursor that
  /// leaves the interval scrolls it and both go to its ends: the result is true, and the graph is
  /// to be updated. Return false, and change nothing, below two samples, with a cursor not set, and
  /// from outside of a fixed range. A null axis counts as an automatic one.
  bool MoveLCursor(int samples, const AxisData* axis);
  bool MoveRCursor(int samples, const AxisData* axis);
  ///@}

  /// @name Analysis
  /// Threads: any; SetAnalyzeFromSource, the window's.
  ///@{

  /// The samples that statistics and analyses read: from the first up to, and not including, the
  /// second. Both lie in the series.
  unsigned GetAnalyzeFrom() const;
  unsigned GetAnalyzeTo() const;
  /// x of the analysed range of the source series; a second below the first means none.
  virtual double GetxAnalyzeFrom() const { return 0.0; }
  virtual double GetxAnalyzeTo() const { return -1.0; }
  void SetAnalyzeFromSource(SourceData* source) { analyzeFrom = source; }
  virtual bool IsCalculated() const { return analyzeFrom != nullptr; }
  /// Recalculate the series. Return false when there was nothing to do, or it failed.
  virtual bool Analyze() { return false; }
  virtual bool ApplyMask() { return false; }
  /// Works out the statistics of the samples with yLow <= y <= yHigh, on the calling thread, if the
  /// series has any. They are not kept if a new data set begins meanwhile.
  virtual void CalculateStatParams(double yLow, double yHigh);
  /// The statistics, whole; all 0 for a series that has none.
  StatisticParameters GetStatParams() const;
  ///@}

  /// @name Names, units and defaults
  /// Threads: the window's.
  ///@{
  void SetName(CString newName) { name = std::move(newName); }
  const CString& GetName() const { return name; }
  const char* GetCptName() const { return cptName; }
  /// The field itself, for the caller to write: 31 characters and a NUL.
  char* GetxUnit() { return xUnit; }
  char* GetyUnit() { return yUnit; }
  const char* GetxUnit() const { return xUnit; }
  const char* GetyUnit() const { return yUnit; }
  /// x in seconds, y in this unit, cut at 31 characters.
  virtual void SetUnits(const char* unit);
  void ResetUnits() { xUnit[0] = yUnit[0] = '\0'; }
  /// The graph may let its axes run ahead of the data while these come in.
  virtual bool RealTimeScalingDefined() const { return !waveform; }
  virtual int GetMenuID() const { return kSeriesMenuId; }
  ///@}

  /// @name Settings of the process
  /// Threads: any.
  ///@{

  /// When not 0, each TermBlockTransfer leaves that many of the newest samples on show.
  static inline CopyableAtomic<unsigned> nLastSamplesToDraw{0u};
  /// The graph works out no drift rate.
  static inline CopyableAtomic<bool> IgnoreDriftRate{false};
  /// Statistics and analyses use the samples from cursor to cursor, both included, instead of all.
  static inline CopyableAtomic<bool> AnalyzeDataBetweenCursors{false};
  ///@}

  /// @name Shared with copies, fixed from Init to Term
  ///@{

  /// Held by whoever renders or analyses the series; taken before dataMutex.
  CMutex* threadsMutex = nullptr;
  /// Signalled to stop workers; a host may signal it too.
  HANDLE terminator = nullptr;
  /// Null for a calculated series. Read through GetStatParams where another thread may write.
  StatisticParameters* statParams = nullptr;
  CopyableAtomic<SourceData*> analyzeFrom = nullptr;
  ///@}

  /// The graph that shows the series closes: whoever works on it should stop, whatever becomes of
  /// terminator. Written by the window's thread.
  OwnRequest closing;

  CString name;
  char cptName[32] = "Sample";
  char xUnit[32] = "s";
  char yUnit[32] = "s";

 protected:
  /// Replaces the statistics as a whole, so that no reader sees some new and some old.
  void PublishStatParams(const StatisticParameters& values);
  /// GetInterval, cut to a size.
  SampleInterval effectiveInterval(unsigned size) const;

 private:
  void PublishStatParams(const StatisticParameters& values, const SampleStore* store);
  void resetFields();
  bool moveCursor(Side side, int samples, const AxisData* axis);
  static SampleInterval findInterval(const SampleReader& samples, double xFrom, double xTo);
  void placeCursors(const SampleReader& samples, SampleInterval found, double xFrom, double xTo);
  bool showInterval(std::uint64_t dataSet, SampleInterval interval, bool openEnd = false);
  // openEnd: during a transfer the end follows new samples.
  bool writeInterval(std::uint64_t dataSet, SampleInterval interval, bool openEnd = false);
};

}  // namespace sparlow
