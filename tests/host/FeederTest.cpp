#include "examples/host/Feeder.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <thread>

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

 protected:
  const MessageMap* GetMessageMap() const override {
    static constexpr MessageEntry entries[] = {
        {WM_UPDATE_GRAPH, Handle<UpdateCounter, &UpdateCounter::OnUpdate>}};
    static const MessageMap map{&CWnd::messageMap, entries};
    return &map;
  }

 private:
  LRESULT OnUpdate(WPARAM, LPARAM) {
    inTransfer.push_back(series_.inTransfer);
    return 0;
  }

  const SourceData& series_;
};

/// So many blocks of ten samples, without end if blocks is negative.
class BlockSource : public SampleSource {
 public:
  explicit BlockSource(int blocks) : blocks_(blocks) {}
  std::string Name() const override { return "blocks"; }
  std::string Unit() const override { return "V"; }
  std::string Activity() const override { return "going on"; }
  double Progress() const override { return -1.0; }
  bool Next(std::vector<Sample>& block, const std::stop_token&) override {
    block.clear();
    for (int i = 0; i < 10; ++i, ++made_)
      block.push_back({made_ * 1.0, made_ * 2.0});
    return --blocks_ != 0;
  }

 private:
  int blocks_;
  int made_ = 0;
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
  BlockSource source(7);
  Feeder feeder(source, series_, view.GetSafeHwnd(), log_);
  EXPECT_FALSE(feeder.Finished());
  feeder.Start();
  WaitUntil([&] { return feeder.Finished(); });
  ASSERT_EQ(series_.GetSize(), 70u);
  EXPECT_EQ(series_.Read().y(69), 138.0);
  EXPECT_TRUE(series_.IntervalWhole());
  EXPECT_TRUE(series_.adjusted);
  while (MessageQueue::Serve()) {
  }
  ASSERT_GE(view.inTransfer.size(), 2u);
  EXPECT_FALSE(view.inTransfer.back());
}

TEST_F(FeederTest, EndsASourceThatDoesNotEnd) {
  BlockSource source(-1);
  Feeder feeder(source, series_, nullptr, log_);
  feeder.Start();
  WaitUntil([&] { return series_.GetSize() >= 100; });
  feeder.End();
  WaitUntil([&] { return feeder.Finished(); });
  EXPECT_FALSE(series_.inTransfer);
  EXPECT_EQ(series_.GetTo(), series_.GetSize());
}

TEST_F(FeederTest, StopsWithoutCompletingTheTransfer) {
  BlockSource source(-1);
  Feeder feeder(source, series_, nullptr, log_);
  feeder.Start();
  WaitUntil([&] { return series_.GetSize() >= 100; });
  feeder.Stop();
  const unsigned size = series_.GetSize();
  EXPECT_FALSE(feeder.Finished());
  EXPECT_FALSE(series_.adjusted);
  EXPECT_EQ(size % 10, 0u);
  feeder.Stop();
  EXPECT_EQ(series_.GetSize(), size);
}

}  // namespace

}  // namespace sparlow::host
