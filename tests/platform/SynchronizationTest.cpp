#include "sparlow/platform/Synchronization.h"

#include <gtest/gtest.h>

#include <vector>

#include "sparlow/platform/UiThread.h"

namespace sparlow {
namespace {

TEST(Mutex, BelongsToAThreadAndCounts) {
  CMutex mutex;
  mutex.Lock();
  mutex.Lock();
  mutex.Unlock();
  bool taken = true;
  std::thread([&] {
    taken = mutex.TryLock();
    mutex.Unlock();  // not its own: nothing happens
  }).join();
  EXPECT_FALSE(taken);
  mutex.Unlock();
  std::thread([&] {
    taken = mutex.TryLock();
    mutex.Unlock();
  }).join();
  EXPECT_TRUE(taken);
}

TEST(Mutex, KeepsThreadsApart) {
  CMutex mutex;
  int count = 0;
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&] {
      for (int i = 0; i < 2000; ++i) {
        const CSingleLock lock(&mutex);
        ++count;
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(count, 8000);
}

TEST(Event, StaysSignalledUntilReset) {
  const HANDLE event = CreateEvent(false);
  EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
  EXPECT_EQ(WaitForSingleObject(event, 5), WAIT_TIMEOUT);
  std::thread([event] { SetEvent(event); }).join();
  EXPECT_EQ(WaitForSingleObject(event, INFINITE), WAIT_OBJECT_0);
  EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
  ResetEvent(event);
  EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
  CloseHandle(event);
  EXPECT_EQ(WaitForSingleObject(nullptr, INFINITE), WAIT_TIMEOUT);
  EXPECT_FALSE(SetEvent(nullptr));
}

/// A window's thread whose boxes are answered by the test.
class BoxTest : public ::testing::Test {
 protected:
  BoxTest() {
    UiThread::Attach([] {});
    UiThread::SetBoxHandler([this](const BoxRequest& box) {
      EXPECT_TRUE(UiThread::IsCurrent());
      EXPECT_EQ(++open_, 1) << "one box at a time";
      shown.push_back(box.text);
      if (during)
        during();
      --open_;
      return 7;
    });
  }
  ~BoxTest() override { UiThread::Detach(); }

  std::vector<std::string> shown;
  std::function<void()> during;

 private:
  int open_ = 0;
};

TEST_F(BoxTest, AWorkerThatHoldsALockGetsItsBoxWhileTheWindowsThreadWaitsForThatLock) {
  CMutex mutex;
  Event locked;
  int answer = 0;
  std::thread worker([&] {
    const CSingleLock lock(&mutex);
    locked.Set();
    answer = AfxMessageBox("Too large");
  });
  locked.Wait(std::chrono::hours(1));
  {
    const CSingleLock lock(&mutex);
    EXPECT_EQ(answer, 7);
  }
  worker.join();
  EXPECT_EQ(shown, std::vector<std::string>{"Too large"});
}

TEST_F(BoxTest, BoxesOfWorkersWaitForOneThatIsOpen) {
  std::atomic<int> answered{0};
  std::vector<std::thread> workers;
  during = [&] { UiThread::ServeBoxes(); };
  for (int i = 0; i < 3; ++i)
    workers.emplace_back([&] { answered += AfxMessageBox("Worker") == 7; });
  AfxMessageBox("Own");
  while (answered < 3)
    UiThread::ServeBoxes();
  for (std::thread& worker : workers)
    worker.join();
  EXPECT_EQ(shown.size(), 4u);
}

TEST_F(BoxTest, AClosingWindowAnswersWithoutABox) {
  const UiThread::AnswerBoxes closing;
  std::mutex lock;
  std::condition_variable changed;
  bool done = false;
  std::thread worker([&] {
    EXPECT_EQ(AfxMessageBox("Nobody sees this"), IDOK);
    const std::lock_guard guard(lock);
    done = true;
    changed.notify_all();
  });
  std::unique_lock guard(lock);
  WaitServingBoxes(guard, changed, [&] { return done; });
  guard.unlock();
  worker.join();
  EXPECT_TRUE(shown.empty());
}

TEST_F(BoxTest, AWindowThatClosesUnderAnOpenBoxLetsItsWorkerGoOn) {
  std::atomic<int> answer{0};
  std::thread worker([&] { answer = AfxMessageBox("Open"); });
  during = [&] {
    const UiThread::AnswerBoxes closing;
    while (answer == 0)
      std::this_thread::yield();
  };
  while (shown.empty())
    UiThread::ServeBoxes();
  worker.join();
  EXPECT_EQ(answer, IDOK);
}

}  // namespace
}  // namespace sparlow
