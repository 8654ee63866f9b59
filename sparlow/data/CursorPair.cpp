#include "sparlow/data/CursorPair.h"

#include <algorithm>

namespace sparlow {

void CursorPair::putCursors(int left, int right) {
  iLCursor = left;
  iRCursor = right;
}

void CursorPair::SwapCursors() {
  putCursors(iRCursor, iLCursor);
}

bool CursorPair::placeCursor(Side side, unsigned sample, unsigned size) {
  if (size < 2)
    return false;
  const bool left = side == Side::left;
  const int last = static_cast<int>(size) - 1;
  const int placed = static_cast<int>(std::min(sample, size - 1));
  const int other = std::clamp<int>(left ? iRCursor : iLCursor, -1, last);
  if (left ? placed < other : placed > other) {
    cursor(side) = placed;
    return false;
  }
  if (placed != other) {
    putCursors(std::min(placed, other), std::max(placed, other));
    return true;
  }
  // The one that is met is pushed aside, as far as there are samples.
  const int lower = left ? std::max(placed - 1, 0) : std::min(placed, last - 1);
  putCursors(lower, lower + 1);
  return true;
}

}  // namespace sparlow
