#pragma once

#include "sparlow/platform/base/CopyableAtomic.h"

namespace sparlow {

/// The two measurement cursors of a series. Each stands on a sample, so it stays there when the
/// graph is zoomed or resized.
/// Threads: placing them, the window's and, in transfers, the feeding one; reading, any.
class CursorPair {
 public:
  /// Both are set.
  bool ValidCursor() const { return iLCursor != -1 && iRCursor != -1; }
  /// Exchanges the two, and nothing else.
  void SwapCursors();

  /// Samples of the cursors, -1 when not set.
  CopyableAtomic<int> iLCursor = -1;
  CopyableAtomic<int> iRCursor = -1;

 protected:
  enum class Side { left, right };

  CursorPair() = default;
  CursorPair(const CursorPair&) = default;
  CursorPair& operator=(const CursorPair&) = default;
  ~CursorPair() = default;

  CopyableAtomic<int>& cursor(Side side) { return side == Side::left ? iLCursor : iRCursor; }
  void putCursors(int left, int right);
  /// Places a cursor in a series of that size; a sample beyond it counts as its last one. Returns
  /// true when the cursor has crossed the other, and the two were exchanged, or it met the other,
  /// and they stand one sample apart now. Returns false, and changes nothing, below two samples.
  bool placeCursor(Side side, unsigned sample, unsigned size);
};

}  // namespace sparlow
