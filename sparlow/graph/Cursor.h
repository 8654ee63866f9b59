#pragma once

#include "sparlow/platform/Geometry.h"

namespace sparlow {

/// The on-screen marker of one measurement cursor.
/// Threads: the window's.
class Cursor {
 public:
  void SetColor(COLORREF marker) { color = marker; }

  COLORREF color = 0;
  bool drag = false;  ///< follows the mouse
};

}  // namespace sparlow
