#pragma once

#include <mutex>
#include <string>

#include "sparlow/platform/base/CopyableAtomic.h"
#include "sparlow/platform/window/Messages.h"

namespace sparlow {

struct GraphAxis;
class ViewData;

/// Sends the readings of a series on show to the info bar, in the units of its axes.
/// Threads: any.
class ReadoutReport {
 public:
  /// The window that receives the readouts of all graphs; null when there is none.
  static inline CopyableAtomic<HWND> receiver{nullptr};

  /// Takes the units for workers, since the texts are the window's thread's to change. The window's
  /// thread.
  void NoteUnits(const GraphAxis& axis, const ViewData& series);
  /// The readings of both cursors, and the drift rates.
  void SendCursors(const ViewData& series) const;
  /// The two drift rates: change of y over the whole series by x, and that once more by x. They are
  /// sent where they are finite.
  void SendDrift(const ViewData& series) const;
  /// The statistics, and whether the series has any.
  void SendStatistics(const ViewData& series) const;
  static void SendStatistics(const ViewData& series, const char* unit);
  /// A user moves a cursor, or has moved it.
  static void SendCursorMoves();

 private:
  struct Units {
    std::string hor, ver;  // of the axes
    std::string x, y;      // of the series
  };
  Units units() const;

  mutable std::mutex lock_;
  Units units_;  // guarded by lock_
};

}  // namespace sparlow
