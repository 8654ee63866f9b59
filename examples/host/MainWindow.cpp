#include "examples/host/MainWindow.h"

#include "sparlow/platform/window/Input.h"
#include "sparlow/ui/CSingleGraphView.h"

namespace sparlow::host {

MainWindow::MainWindow() {
  CreateMessageOnly();
  SetMainWindow(GetSafeHwnd());
}

MainWindow::~MainWindow() {
  SetMainWindow(nullptr);
  DestroyWindow();
}

LRESULT MainWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const auto* const view = reinterpret_cast<const CSingleGraphView*>(wParam);
  if (message == WM_VIEW_FOCUSED && focused) {
    focused(view);
    return 0;
  }
  if (message == WM_VIEW_DOUBLE_CLICK && doubleClicked) {
    doubleClicked(view);
    return 0;
  }
  return CWnd::WindowProc(message, wParam, lParam);
}

}  // namespace sparlow::host
