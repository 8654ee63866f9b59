#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "sparlow/platform/CView.h"
#include "sparlow/platform/qt/Application.h"

namespace sparlow::test {

/// The one application object of this test program, on Qt's offscreen platform.
qt::Application& App();
void EndApp();
void StartApp();

/// A view that notes what reaches it and does what a test wants done.
class ProbeView : public CView {
 public:
  std::vector<UINT> got;
  std::vector<CSize> sizes;
  int draws = 0;
  std::function<void(CDC&)> onDraw;
  std::function<void(UINT, WPARAM)> onMessage;
  bool* deleted = nullptr;

  /// A shown view with a client area of this size, painted once, with nothing noted.
  static ProbeView* Shown(int width, int height);
  void Forget();

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
  ~ProbeView() override;
  void OnDraw(CDC* dc) override;

 private:
  std::shared_ptr<int> life_ = std::make_shared<int>();
};

}  // namespace sparlow::test
