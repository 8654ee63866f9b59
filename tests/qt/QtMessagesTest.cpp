#include <QEventLoop>
#include <QTimer>
#include <QWidget>
#include <atomic>
#include <thread>

#include "sparlow/platform/base/Synchronization.h"
#include "sparlow/platform/base/UiThread.h"
#include "tests/qt/QtEnvironment.h"

namespace sparlow::test {
namespace {

using QtMessagesTest = QtTest;

TEST_F(QtMessagesTest, APosterThatNeverStopsStarvesNobody) {
  view->onMessage = [&](UINT message, WPARAM) {
    if (message == WM_USER)
      PostMessage(window, WM_USER, 0, 0);
  };
  PostMessage(window, WM_USER, 0, 0);
  // Timers and paints must come through; otherwise the loop never ends.
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    RedrawWindow(window);
    if (view->draws >= 2)
      app->Quit();
  });
  timer.start(1);
  EXPECT_EQ(app->Exec(), 0);
}

TEST_F(QtMessagesTest, WorkersWakeAlsoALoopInsideAHandlerAndTheLastCloseEndsIt) {
  std::vector<WPARAM> order;
  QEventLoop inner;
  view->onMessage = [&](UINT message, WPARAM n) {
    if (message != WM_USER)
      return;
    if (n == 0)
      inner.exec();  // ends only when the second message comes
    else
      inner.quit();
    order.push_back(n);
    if (order.size() == 3)
      qt::WidgetOf(*view)->close();
  };
  testing::internal::CaptureStderr();
  // Nothing but another thread wakes the loop.
  std::thread worker([this] {
    EXPECT_EQ(AfxMessageBox("no samples"), IDOK);
    for (const WPARAM n : {0, 1, 2})
      PostMessage(window, WM_USER, n, 0);
  });
  EXPECT_EQ(app->Exec(), 0);
  worker.join();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "qt_tests: no samples\n")
      << "without a display";
  ASSERT_EQ(order.size(), 3u);
  EXPECT_EQ(order.front(), 1u);
}

TEST_F(QtMessagesTest, ABoxThatRunsALoopInAWaitForALockServesNothingElse) {
  CMutex mutex;
  Event locked;
  bool waiting = true;
  bool early = false;
  UiThread::SetBoxHandler([&](const BoxRequest&) {
    PostMessage(window, WM_USER, 0, 0);
    RedrawWindow(window);
    app->ProcessEvents();
    return IDOK;
  });
  view->onDraw = [&](CDC&) { early |= waiting; };
  view->onMessage = [&](UINT message, WPARAM) {
    early |= waiting;
    if (message == WM_USER)
      app->Quit();
  };
  std::thread worker([&] {
    const CSingleLock lock(&mutex);
    locked.Set();
    EXPECT_EQ(AfxMessageBox("disk full"), IDOK);
  });
  EXPECT_TRUE(locked.Wait(std::chrono::hours(1)));
  mutex.Lock();
  waiting = false;
  mutex.Unlock();
  worker.join();
  EXPECT_FALSE(early);
  app->Exec();
  app->ProcessEvents();
  EXPECT_GE(view->draws, 1);
  UiThread::SetBoxHandler(nullptr);
}

}  // namespace
}  // namespace sparlow::test
