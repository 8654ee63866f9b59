// Windows and their messages, over peers that open nothing.

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "sparlow/platform/window/CDialog.h"
#include "sparlow/platform/window/CDocument.h"
#include "sparlow/platform/window/CView.h"
#include "sparlow/platform/window/Windows.h"
#include "tests/support/TestWindows.h"

namespace sparlow {
namespace {

using test::TestWindows;

constexpr UINT WM_NUMBER = WM_USER + 1;

/// Writes down what reaches it.
class NotedView : public CView {
 public:
  ~NotedView() override {
    if (deleted)
      *deleted = true;
  }

  std::vector<int>* numbers = nullptr;
  int paints = 0;
  bool* deleted = nullptr;
  std::function<void()> onPaint;

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_NUMBER) {
      numbers->push_back(static_cast<int>(wParam));
      return 2 * static_cast<LRESULT>(wParam);
    }
    return CView::WindowProc(message, wParam, lParam);
  }

 protected:
  void OnDraw(CDC*) override {
    ++paints;
    if (onPaint)
      onPaint();
  }
};

struct WindowTest : ::testing::Test {
  WindowTest() {
    view->deleted = &deleted;
    view->numbers = &numbers;
    view->Create();
    handle = view->GetSafeHwnd();
  }
  ~WindowTest() override {
    if (!deleted)
      view->DestroyWindow();
  }

  TestWindows system;
  std::vector<int> numbers;
  bool deleted = false;
  NotedView* view = new NotedView;
  HWND handle = nullptr;
};

TEST_F(WindowTest, PostsKeepTheirOrderAndNeverRunInsideThePoster) {
  PostMessage(handle, WM_NUMBER, 0, 0);
  EXPECT_TRUE(numbers.empty());
  const std::jthread poster([this] {
    for (WPARAM i = 1; i < 1000; ++i)
      EXPECT_TRUE(PostMessage(handle, WM_NUMBER, i, 0));
  });
  EXPECT_TRUE(TestWindows::PumpUntil([this] { return numbers.size() == 1000; }));
  EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
  EXPECT_EQ(SendMessage(handle, WM_NUMBER, 21, 0), 42);
  EXPECT_TRUE(view->IsKindOf(&CWnd::classCWnd));
  EXPECT_FALSE(view->IsKindOf(&CDialog::classCDialog));
}

TEST_F(WindowTest, AMarkInAPaintMakesAnotherAndWhatWaitsGoesWithTheWindow) {
  TestWindows::Pump();
  view->paints = 0;
  for (int i = 0; i < 10; ++i)
    std::thread([this] { RedrawWindow(handle); }).join();
  view->onPaint = [this] {
    if (view->paints == 1)
      InvalidateRect(handle, nullptr, false);
  };
  MessageQueue::Serve();
  EXPECT_EQ(view->paints, 1);
  EXPECT_TRUE(TestWindows::PumpUntil([this] { return view->paints == 2; }));
  PostMessage(handle, WM_NUMBER, 2, 0);
  view->DestroyWindow();
  TestWindows::Pump();
  EXPECT_TRUE(deleted);
  EXPECT_TRUE(numbers.empty());
  EXPECT_FALSE(PostMessage(handle, WM_NUMBER, 3, 0));
}

TEST_F(WindowTest, DocumentsAndViewsMayGoInAnyOrder) {
  CDocument later;
  {
    CDocument document;
    document.AddView(view);
    EXPECT_EQ(view->GetDocument(), &document);
  }
  EXPECT_EQ(view->GetDocument(), nullptr);
  later.AddView(view);
  view->DestroyWindow();
  EXPECT_TRUE(deleted);
}

}  // namespace
}  // namespace sparlow
