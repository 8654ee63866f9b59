#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "sparlow/platform/base/ErrorBox.h"
#include "sparlow/platform/base/Synchronization.h"
#include "sparlow/platform/base/UiThread.h"

namespace sparlow {
namespace {

/// A window's thread whose boxes are answered by the test.
struct BoxTest : ::testing::Test {
  BoxTest() {
    UiThread::Attach([this] { ++wakes; });
    UiThread::SetBoxHandler([this](const BoxRequest& box) {
      EXPECT_TRUE(UiThread::IsCurrent());
      EXPECT_EQ(++open, 1) << "one box at a time";
      shown.push_back(box.text);
      if (during)
        during();
      --open;
      return 7;
    });
  }
  ~BoxTest() override { UiThread::Detach(); }

  std::vector<std::string> shown;
  std::function<void()> during;
  int open = 0;
  std::atomic<int> wakes{0};
};

TEST_F(BoxTest, AWorkerThatHoldsALockGetsItsBoxWhileTheWindowsThreadWaitsForThatLock) {
  CMutex mutex;
  int answer = 0;
  const std::jthread worker([&] {
    const CSingleLock lock(&mutex);
    answer = AfxMessageBox("Too large");
  });
  while (wakes == 0)
    std::this_thread::yield();
  const CSingleLock lock(&mutex);
  EXPECT_EQ(answer, 7);
}

TEST_F(BoxTest, ALongTextIsCutBetweenCharacters) {
  const std::string micro = "\xC2\xB5";
  std::string text;
  while (text.size() < 1022)
    text += micro;
  EXPECT_EQ(ShowErrorBox(MB_ICONHAND, "Input error", "%s", (text + micro).c_str()), 7);
  EXPECT_EQ(shown, std::vector<std::string>{text});
}

TEST_F(BoxTest, BoxesOfWorkersWaitForOneThatIsOpen) {
  std::atomic<int> answered{0};
  std::vector<std::jthread> workers;
  during = [this] {
    while (wakes < 3)
      std::this_thread::yield();
    UiThread::ServeBoxes();
  };
  for (int i = 0; i < 3; ++i)
    workers.emplace_back([&] { answered += AfxMessageBox("Worker") == 7; });
  AfxMessageBox("Own");
  EXPECT_GE(wakes, 4) << "those that stood back are served now";
  while (answered < 3)
    UiThread::ServeBoxes();
  EXPECT_EQ(shown.size(), 4u);
}

TEST_F(BoxTest, WhoWaitsForItsWorkersAnswersTheirBoxesAndNoOthers) {
  const int owner = 0;
  std::atomic<bool> done{false};
  std::thread worker([&] {
    const UiThread::BoxOwner mine(&owner);
    EXPECT_EQ(AfxMessageBox("Open"), IDOK);
    EXPECT_EQ(AfxMessageBox("Nobody sees this"), IDOK);
    done = true;
  });
  std::thread other;
  during = [&] {
    if (done)
      return;
    other = std::thread([] { EXPECT_EQ(AfxMessageBox("Another's"), 7); });
    const UiThread::AnswerBoxes closing(&owner);
    while (!done)
      UiThread::ServeBoxes();
  };
  while (shown.size() < 2)
    UiThread::ServeBoxes();
  worker.join();
  other.join();
  EXPECT_EQ(shown, (std::vector<std::string>{"Open", "Another's"}));
}

TEST(Event, HasThePlatformsNamesAndNullIsNone) {
  const HANDLE event = CreateEvent(false);
  std::jthread other([event] { EXPECT_EQ(WaitForSingleObject(event, INFINITE), WAIT_OBJECT_0); });
  EXPECT_EQ(WaitForSingleObject(event, 1), WAIT_TIMEOUT);
  EXPECT_TRUE(SetEvent(event));
  other.join();
  EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
  EXPECT_EQ(WaitForSingleObject(event, 1), WAIT_OBJECT_0);
  EXPECT_TRUE(CloseHandle(event));
  EXPECT_FALSE(SetEvent(nullptr));
  EXPECT_FALSE(ResetEvent(nullptr));
  EXPECT_FALSE(CloseHandle(nullptr));
  EXPECT_EQ(WaitForSingleObject(nullptr, INFINITE), WAIT_TIMEOUT);
}

}  // namespace
}  // namespace sparlow
