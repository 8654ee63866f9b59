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
