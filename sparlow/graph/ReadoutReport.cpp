#include "sparlow/graph/ReadoutReport.h"

#include <cmath>
#include <limits>

#include "sparlow/axis/GraphAxis.h"
#include "sparlow/graph/ReadoutSlots.h"
#include "sparlow/graph/Readouts.h"
#include "sparlow/graph/UnitText.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void ReadoutReport::NoteUnits(const GraphAxis& axis, const ViewData& series) {
  const std::lock_guard whole(lock_);
  units_ = {axis.hor.funcName, axis.ver.funcName, series.GetxUnit(), series.GetyUnit()};
}

ReadoutReport::Units ReadoutReport::units() const {
  const std::lock_guard whole(lock_);
  return units_;
}

void ReadoutReport::SendCursorMoves() {
  if (const HWND bar = receiver)
    PostMessage(bar, WM_READOUT_CURSOR_MOVES, 0, 0);
}

void ReadoutReport::SendCursors(const ViewData& series) const {
  if (!receiver.load() || !series.Valid() || !series.ValidCursor())
    return;
  const ReadoutSender bar(receiver);
  SampleReader samples;
  unsigned left = 0, right = 0;
  double yLeft = 0.0, yRight = 0.0;
  // On a worker, while the user moves a cursor or a new data set begins: y is asked of the series,
  // and is to belong to the same sample as x. Of one who moves it all the time the window's thread
  // sends what is due.
  int tries = 0;
  do {
    if (++tries > 100)
      return;
    samples = series.Read();
    left = static_cast<unsigned>(series.iLCursor.load());
    right = static_cast<unsigned>(series.iRCursor.load());
    yLeft = series.yLCursorGet();
    yRight = series.yRCursorGet();
  } while (left != static_cast<unsigned>(series.iLCursor.load()) ||
           right != static_cast<unsigned>(series.iRCursor.load()) ||
           samples.serial() != series.Read().serial());
  // A new data set may have begun since.
  if (left >= samples.size() || right >= samples.size())
    return;
  const Units unit = units();
  const char* const xUnit = unit.hor.c_str();
  const char* const yUnit = unit.ver.c_str();
  bar.Send(WM_READOUT_LEFT_X, samples.x(left), xUnit);
  bar.Send(WM_READOUT_LEFT_Y, yLeft, yUnit);
  bar.Send(WM_READOUT_RIGHT_X, samples.x(right), xUnit);
  bar.Send(WM_READOUT_RIGHT_Y, yRight, yUnit);

  const double dx = samples.x(right) - samples.x(left);
  const double dy = yRight - yLeft;
  // Nothing is divided by less: the receiver keeps the slope that it had.
  constexpr double least = std::numeric_limits<double>::min();
  if (std::abs(dx) > least)
    bar.Send(WM_READOUT_SLOPE, dy / dx, RatioUnit(unit.ver, unit.hor).c_str());
  if (std::abs(dy) > least)
    bar.Send(WM_READOUT_INVERSE_SLOPE, dx / dy, RatioUnit(unit.hor, unit.ver).c_str());
  bar.Send(WM_READOUT_DISTANCE_X, dx, xUnit);
  bar.Send(WM_READOUT_DISTANCE_Y, dy, yUnit);
  bar.SendSampleCount(series.dnCursorGet(), series.GetCptName());
  SendDrift(series);
}

void ReadoutReport::SendDrift(const ViewData& series) const {
  if (!receiver.load() || SourceData::IgnoreDriftRate || !series.ValidCursor())
    return;
  const ReadoutSender bar(receiver);
  const SampleReader samples = series.Read();
  if (samples.empty())
    return;
  const unsigned last = samples.size() - 1;
  const double span = samples.x(last) - samples.x(0);
  const double r = 1.0 / span;
  // Without a span there is no drift; the receiver keeps what it had.
  if (!std::isfinite(span) || !std::isfinite(r))
    return;
  const bool wholeSeries = series.iLCursor == 0 && series.iRCursor == static_cast<int>(last);
  const bool useCursors = !series.IsCalculated() && !wholeSeries;
  const double rate = (samples.y(last) - samples.y(0)) * r;
  // By the span of the series, not by the distance of the cursors: both show parts of one drift.
  const double rateOfCursors = useCursors ? (series.yRCursorGet() - series.yLCursorGet()) * r : 0;
  const double secondOfCursors = r * rateOfCursors;
  const Units unit = units();
  const std::string rateUnit = RatioUnit(unit.y, unit.x);
  bar.SendDrift(WM_READOUT_DRIFT, rate, useCursors ? &rateOfCursors : nullptr, rateUnit.c_str());
  bar.SendDrift(WM_READOUT_DRIFT_OF_DRIFT, r * rate, useCursors ? &secondOfCursors : nullptr,
                RatioUnit(rateUnit, unit.x).c_str());
}

void ReadoutReport::SendStatistics(const ViewData& series) const {
  if (const HWND bar = receiver)
    PostMessage(bar, WM_READOUT_HAS_STATISTICS, series.statParams != nullptr, 0);
  SendStatistics(series, units().ver.c_str());
}

void ReadoutReport::SendStatistics(const ViewData& series, const char* unit) {
  if (!receiver.load() || series.inTransfer || !series.statParams)
    return;
  const ReadoutSender bar(receiver);
  const StatisticParameters values = series.GetStatParams();
  bar.Send(WM_READOUT_MINIMUM, values.min, unit);
  bar.Send(WM_READOUT_MAXIMUM, values.max, unit);
  bar.Send(WM_READOUT_SPAN, values.span, unit);
  bar.Send(WM_READOUT_MEAN, values.mean, unit);
  bar.Send(WM_READOUT_STANDARD_DEVIATION, values.stdDev, unit);
  bar.Send(WM_READOUT_ALLAN_DEVIATION, values.allanDev, unit);
}

}  // namespace sparlow
