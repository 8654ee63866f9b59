#pragma once

#include "sparlow/platform/window/Messages.h"

namespace sparlow {

/// The posted messages of all windows, in the order in which they were posted.
/// Threads: as each operation states.
class MessageQueue {
 public:
  /// Keeps a message for a window. Returns false, and keeps nothing, when the window has gone. Any
  /// thread; it never runs a handler.
  static bool Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  /// Drops what waits for a window that ends. Any thread.
  static void Drop(HWND window);

  /// Message boxes of workers, then the messages that were posted before the call, then one paint
  /// for each window that needs it. Returns true when messages wait that came meanwhile: the caller
  /// serves again after it has let its event loop run, so that a poster that never stops starves
  /// nobody. The window's thread.
  static bool Serve();
};

}  // namespace sparlow
