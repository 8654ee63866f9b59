#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "sparlow/platform/qt/Application.h"
#include "sparlow/platform/window/CView.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow::test {

/// The application object of this test program, on Qt's offscreen platform.
inline std::unique_ptr<qt::Application> app;

inline void StartApp() {
  static int argc = 1;
  static char name[] = "/somewhere/qt_tests";
  static char* argv[] = {name, nullptr};
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  app = std::make_unique<qt::Application>(argc, argv);
}

/// A view that notes what reaches it and does what a test wants done.
class ProbeView : public CView {
 public:
  std::vector<CSize> sizes;
  int draws = 0;
  CPoint mouseAt;
  std::function<void(CDC&)> onDraw;
  std::function<void(UINT, WPARAM)> onMessage;
  bool* deleted = nullptr;  ///< must be there when a test ends the view in onMessage

  /// A shown view with a client area of this size, painted, with nothing noted.
  static ProbeView* Shown(int width, int height) {
    auto* const view = new ProbeView;
    EXPECT_TRUE(view->Create());
    qt::Resize(*view, width, height);
    view->ShowWindow(true);
    app->ProcessEvents();
    EXPECT_GE(view->draws, 1);
    view->draws = 0;
    view->sizes.clear();
    return view;
  }
  CSize ClientSize() const {
    CRect client;
    GetClientRect(GetSafeHwnd(), &client);
    return {client.Width(), client.Height()};
  }

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_SIZE)
      sizes.push_back(ClientSize());
    if (message == WM_MOUSEMOVE)
      mouseAt = PointOf(lParam);
    if (onMessage && message != WM_NCDESTROY) {
      const auto call = onMessage;
      const bool* const ended = deleted;
      call(message, wParam);
      if (ended && *ended)
        return 0;
    }
    return CView::WindowProc(message, wParam, lParam);
  }

 protected:
  ~ProbeView() override {
    if (deleted)
      *deleted = true;
  }
  void OnDraw(CDC* dc) override {
    ++draws;
    if (onDraw)
      onDraw(*dc);
  }
};

/// A test with a shown view.
struct QtTest : testing::Test {
  QtTest() { view->deleted = &deleted; }
  ~QtTest() override {
    if (!deleted)
      view->DestroyWindow();
  }

  bool deleted = false;
  ProbeView* const view = ProbeView::Shown(80, 60);
  const HWND window = view->GetSafeHwnd();
};

}  // namespace sparlow::test
