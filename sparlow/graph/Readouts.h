#pragma once

#include <optional>
#include <string>

#include "sparlow/platform/window/Messages.h"

namespace sparlow {

/// @name Messages to the info bar
/// Posted by all graphs to the window of Graph::SetInfoBar. wParam and lParam are pointers into the
/// library's own memory, valid for ever, for a receiver in this process; TakeReadout reads them.
///@{
inline constexpr UINT WM_READOUT_LEFT_X = 0x46A;
inline constexpr UINT WM_READOUT_LEFT_Y = 0x46B;
inline constexpr UINT WM_READOUT_RIGHT_X = 0x46C;
inline constexpr UINT WM_READOUT_RIGHT_Y = 0x46D;
inline constexpr UINT WM_READOUT_DISTANCE_X = 0x46E;
inline constexpr UINT WM_READOUT_DISTANCE_Y = 0x46F;
inline constexpr UINT WM_READOUT_SAMPLES = 0x470;
inline constexpr UINT WM_READOUT_MINIMUM = 0x472;
inline constexpr UINT WM_READOUT_MAXIMUM = 0x473;
inline constexpr UINT WM_READOUT_SPAN = 0x474;
inline constexpr UINT WM_READOUT_MEAN = 0x475;
inline constexpr UINT WM_READOUT_STANDARD_DEVIATION = 0x476;
inline constexpr UINT WM_READOUT_ALLAN_DEVIATION = 0x477;
inline constexpr UINT WM_READOUT_DRIFT = 0x478;
inline constexpr UINT WM_READOUT_DRIFT_OF_DRIFT = 0x479;
inline constexpr UINT WM_READOUT_HAS_STATISTICS = 0x47A;
inline constexpr UINT WM_READOUT_SLOPE = 0x47B;
inline constexpr UINT WM_READOUT_INVERSE_SLOPE = 0x47C;
inline constexpr UINT WM_READOUT_CURSOR_MOVES = 0x47D;
///@}

/// What a message to the info bar is about; the value is the message's number.
enum class Readout : UINT {
  leftX = WM_READOUT_LEFT_X,          ///< x of the left cursor
  leftY = WM_READOUT_LEFT_Y,          ///< y of the left cursor
  rightX = WM_READOUT_RIGHT_X,        ///< x of the right cursor
  rightY = WM_READOUT_RIGHT_Y,        ///< y of the right cursor
  distanceX = WM_READOUT_DISTANCE_X,  ///< right x less left x
  distanceY = WM_READOUT_DISTANCE_Y,  ///< right y less left y
  samples = WM_READOUT_SAMPLES,       ///< samples from cursor to cursor, both included
  minimum = WM_READOUT_MINIMUM,       ///< of the samples that the statistics cover; so to allan
  maximum = WM_READOUT_MAXIMUM,
  span = WM_READOUT_SPAN,
  mean = WM_READOUT_MEAN,
  standardDeviation = WM_READOUT_STANDARD_DEVIATION,
  allanDeviation = WM_READOUT_ALLAN_DEVIATION,
  drift = WM_READOUT_DRIFT,                   ///< change of y over the whole series, by x
  driftOfDrift = WM_READOUT_DRIFT_OF_DRIFT,   ///< that once more by x
  hasStatistics = WM_READOUT_HAS_STATISTICS,  ///< whether the series on show has any
  slope = WM_READOUT_SLOPE,                   ///< distanceY by distanceX
  inverseSlope = WM_READOUT_INVERSE_SLOPE,    ///< distanceX by distanceY
  cursorMoves = WM_READOUT_CURSOR_MOVES,      ///< a user moves or has moved a cursor; no data
};

/// One message to the info bar, taken apart.
struct ReadoutRecord {
  Readout what = Readout::cursorMoves;
  /// Scaled to the prefix that text has: 12.5 with "us". Of a drift: over the whole series.
  double value = 0.0;
  /// Of a drift: of the change from cursor to cursor, with the prefix of value.
  double cursorValue = 0.0;
  /// Of a drift: value without a prefix, in the plain unit.
  double rawValue = 0.0;
  /// Of samples.
  int count = 0;
  /// Of hasStatistics.
  bool hasStatistics = false;
  /// Unit with prefix, 15 chars at most. Of samples: what the series calls a sample.
  std::string text;
};

/// Takes a message apart that a window received, for example in its WindowProc. The record is
/// whole, and the newest of its kind, even if a worker sends another one meanwhile. Nothing for a
/// message of another origin that has the number of a readout; hasStatistics and cursorMoves carry
/// no pointer and are known by their numbers alone.
/// Threads: any; the receiver's in general.
std::optional<ReadoutRecord> TakeReadout(UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace sparlow
