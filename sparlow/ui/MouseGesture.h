#pragma once

#include "sparlow/platform/window/Messages.h"

namespace sparlow {

/// What the mouse does in a view while its button is down. It alone takes the mouse and gives it
/// back.
class MouseGesture {
 public:
  enum Kind { none, box, leftCursor, rightCursor };

  Kind Now() const { return kind_; }
  bool DragsCursor() const { return kind_ == leftCursor || kind_ == rightCursor; }
  /// Takes the mouse for a window. Another one that had it is notified.
  void Begin(Kind kind, HWND window);
  /// Gives the mouse back, unless it has gone to another window, and returns what it did. It is
  /// over before: the window is notified of the release as of any other loss of the mouse.
  Kind End();

 private:
  Kind kind_ = none;
  HWND window_ = nullptr;
};

}  // namespace sparlow
