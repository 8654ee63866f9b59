#pragma once

#include <functional>

#include "sparlow/platform/window/CWnd.h"

namespace sparlow {
class CSingleGraphView;
}

namespace sparlow::host {

/// The application's main window to the views: it has no place on the screen and hands on what they
/// tell. It is installed while it lives.
/// Threads: the window's.
class MainWindow : public CWnd {
 public:
  MainWindow();
  ~MainWindow() override;

  /// A view got the keyboard focus and isn't the active one.
  std::function<void(const CSingleGraphView* view)> focused;
  /// A view was double-clicked. It may be gone by now.
  std::function<void(const CSingleGraphView* view)> doubleClicked;

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

}  // namespace sparlow::host
