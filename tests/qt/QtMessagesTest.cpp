#include <QEventLoop>
#include <QTimer>
#include <atomic>
#include <thread>

#include "sparlow/platform/Synchronization.h"
#include "sparlow/platform/UiThread.h"
#include "sparlow/platform/Windows.h"
#include "tests/qt/QtEnvironment.h"

namespace sparlow::test {
namespace {

TEST(QtMessagesTest, PostsKeepTheirOrderAndNeverRunInsideThePoster) {
  ProbeView* const view = ProbeView::Shown(50, 50);
  const HWND window = view->GetSafeHwnd();
  std::vector<WPARAM> order;
  view->onMessage = [&](UINT message, WPARAM n) {
    if (message == WM_USER) {
      EXPECT_TRUE(UiThread::IsCurrent());
      order.push_back(n);
    }
  };
  constexpr WPARAM count = 2000;
  std::thread worker([window] {
    for (WPARAM i = 0; i < count; ++i)
      EXPECT_TRUE(PostMessage(window, WM_USER, i, 0));
  });
  worker.join();
  EXPECT_TRUE(PostMessage(window, WM_USER, count, 0));
  EXPECT_TRUE(order.empty());
  App().ProcessEvents();
  ASSERT_EQ(order.size(), count + 1);
  EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));

  PostMessage(window, WM_USER, 0, 0);
  EXPECT_TRUE(view->DestroyWindow());
  EXPECT_FALSE(PostMessage(window, WM_USER, 0, 0));
  App().ProcessEvents();
  EXPECT_EQ(order.size(), count + 1);
}

TEST(QtMessagesTest, ManyMarksMakeOnePaint) {
  ProbeView* const view = ProbeView::Shown(50, 50);
  const HWND window = view->GetSafeHwnd();
  std::thread worker([window] {
    for (int i = 0; i < 500; ++i)
      RedrawWindow(window);
  });
  worker.join();
  RedrawWindow(window);
  EXPECT_EQ(view->draws, 0);
  App().ProcessEvents();
  EXPECT_EQ(view->draws, 1);
  // A mark during a paint makes one more.
  view->onDraw = [&](CDC&) {
    if (view->draws == 2)
      RedrawWindow(window);
  };
  RedrawWindow(window);
  App().ProcessEvents();
  EXPECT_EQ(view->draws, 3);
  view->DestroyWindow();
}

TEST(QtMessagesTest, APosterThatNeverStopsStarvesNobody) {
  ProbeView* const view = ProbeView::Shown(50, 50);
  const HWND window = view->GetSafeHwnd();
  view->onMessage = [&](UINT message, WPARAM) {
    if (message == WM_USER)
      PostMessage(window, WM_USER, 0, 0);
  };
  std::atomic<bool> stop{false};
  std::thread worker([&] {
    while (!stop) {
      PostMessage(window, WM_USER + 1, 0, 0);
      std::this_thread::yield();
    }
  });
  PostMessage(window, WM_USER, 0, 0);
  // All of these must come through; otherwise the loop never ends.
  QTimer timer;
  int ticks = 0;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    RedrawWindow(window);
    QTimer::singleShot(0, [&] {
      if (++ticks >= 5 && view->draws >= 2)
        App().Quit();
    });
  });
  timer.start(1);
  EXPECT_EQ(App().Exec(), 0);
  EXPECT_GE(view->draws, 2);
  stop = true;
  worker.join();
  view->DestroyWindow();
}

TEST(QtMessagesTest, ALoopInsideAHandlerServesWhatWaits) {
  ProbeView* const view = ProbeView::Shown(50, 50);
  const HWND window = view->GetSafeHwnd();
  std::vector<WPARAM> order;
  view->onMessage = [&](UINT message, WPARAM n) {
    static QEventLoop* inner = nullptr;
    if (message != WM_USER)
      return;
    if (n == 0) {
      QEventLoop loop;
      inner = &loop;
      loop.exec();  // ends only when the second message comes
      inner = nullptr;
    } else if (inner) {
      inner->quit();
    }
    order.push_back(n);
    if (n == 2)
      App().Quit();
  };
  for (const WPARAM n : {0, 1, 2})
    PostMessage(window, WM_USER, n, 0);
  App().Exec();
  EXPECT_EQ(order.size(), 3u);
  EXPECT_EQ(order.front(), 1u);
  view->DestroyWindow();
}

TEST(QtMessagesTest, ABoxOfAWorkerComesUpWhileTheWindowWaitsForItsLock) {
  ProbeView* const view = ProbeView::Shown(50, 50);
  const HWND window = view->GetSafeHwnd();
  CMutex mutex;
  Event locked;
  bool waiting = true;
  int boxes = 0;
  bool early = false;
  UiThread::SetBoxHandler([&](const BoxRequest& request) {
    EXPECT_TRUE(UiThread::IsCurrent());
    EXPECT_EQ(request.text, "disk full");
    ++boxes;
    // Like a real box, it runs a loop of its own.
    PostMessage(window, WM_USER, 0, 0);
    RedrawWindow(window);
    qt::Resize(*view, 70, 60);
    App().ProcessEvents();
    return IDOK;
  });
  view->onDraw = [&](CDC&) { early |= waiting; };
  view->onMessage = [&](UINT message, WPARAM) {
    early |= waiting;
    if (message == WM_USER)
      App().Quit();
  };
  std::thread worker([&] {
    const CSingleLock lock(&mutex);
    locked.Set();
    EXPECT_EQ(AfxMessageBox("disk full"), IDOK);
  });
  EXPECT_TRUE(locked.Wait(std::chrono::milliseconds(INFINITE / 2)));
  mutex.Lock();
  waiting = false;
  mutex.Unlock();
  worker.join();
  EXPECT_EQ(boxes, 1);
  EXPECT_FALSE(early) << "only boxes may be served in a wait";
  App().Exec();
  App().ProcessEvents();
  EXPECT_GE(view->draws, 1);
  ASSERT_EQ(view->sizes.size(), 1u);
  EXPECT_EQ(view->sizes[0], (CSize{70, 60}));
  UiThread::SetBoxHandler(nullptr);
  view->DestroyWindow();
}

TEST(QtMessagesTest, WithoutADisplayABoxIsLoggedAndAnswered) {
  EXPECT_FALSE(App().HasDisplay());
  EXPECT_EQ(GetApplicationName(), "qt_tests");
  testing::internal::CaptureStderr();
  int answer = 0;
  std::thread worker([&] {
    answer = AfxMessageBox("no samples");
    App().Quit();
  });
  App().Exec();
  worker.join();
  EXPECT_EQ(answer, IDOK);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "qt_tests: no samples\n");
}

}  // namespace
}  // namespace sparlow::test
