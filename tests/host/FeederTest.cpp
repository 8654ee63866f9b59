#include "examples/host/Feeder.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <thread>

#include "examples/host/SyntheticSource.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/platform/CWnd.h"
#include "sparlow/platform/MessageQueue.h"

namespace sparlow::host {

namespace {

/// A window that notes, at each update, whether the series was in a transfer.
class UpdateCounter : public CWnd {
 public:
  explicit UpdateCounter(const SourceData& series) : series_(series) { CreateMessageOnly(); }
  ~UpdateCounter() override { DestroyWindow(); }

  std::vector<bool> inTransfer;

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_UPDATE_GRAPH)
      inTransfer.push_back(series_.inTransfer);
    return CWnd::WindowProc(message, wParam, lParam);
  }

 private:
  const SourceData& series_;
};

class FeederTest : public testing::Test {
 protected:
  FeederTest() { series_.Init("series"); }
  ~FeederTest() override { series_.Term(); }

  static void WaitUntil(const std::function<bool()>& done) {
    while (!done())
      std::this_thread::yield();
  }

  std::ostringstream told_;
  ErrorLog log_{told_};
  SourceData series_;
};

TEST_F(FeederTest, BringsAWholeSourceAndTellsTheViewAtTheEnd) {
  UpdateCounter view(series_);
  SyntheticSource source(200'000, 1);
  Feeder feeder(source, series_, view.GetSafeHwnd(), log_);
  EXPECT_FALSE(feeder.Finished());
  feeder.Start();
  WaitUntil([&] { return feeder.Finished(); });
  ASSERT_EQ(series_.GetSize(), 200'000u);
  EXPECT_EQ(series_.Read().x(199'999), 199'999 / 1e6);
  EXPECT_TRUE(series_.IntervalWhole());
  EXPECT_TRUE(series_.adjusted);
  while (MessageQueue::Serve()) {
  }
  ASSERT_GE(view.inTransfer.size(), 2u);
  EXPECT_FALSE(view.inTransfer.back());
}

TEST_F(FeederTest, CompletesATransferThatIsEndedButNotOneThatIsStopped) {
  SyntheticSource endless(0xFFFFFFFFu, 1);
  Feeder ended(endless, series_, nullptr, log_);
  ended.Start();
  WaitUntil([&] { return series_.GetSize() > 0; });
  ended.End();
  WaitUntil([&] { return ended.Finished(); });
  EXPECT_FALSE(series_.inTransfer);
  EXPECT_EQ(series_.GetTo(), series_.GetSize());

  SourceData other;
  other.Init("other");
  Feeder stopped(endless, other, nullptr, log_);
  stopped.Start();
  WaitUntil([&] { return other.GetSize() > 0; });
  stopped.Stop();
  EXPECT_FALSE(stopped.Finished());
  EXPECT_FALSE(other.adjusted);
  const unsigned size = other.GetSize();
  stopped.Stop();
  EXPECT_EQ(other.GetSize(), size);
  other.Term();
}

}  // namespace

}  // namespace sparlow::host
