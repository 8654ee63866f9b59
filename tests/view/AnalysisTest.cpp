#include "tests/support/Doubled.h"
#include "tests/view/View.h"

namespace sparlow::test {

struct AnalysisTest : testing::Test {
  AnalysisTest() {
    source.fill({{0, 0}, {10, 1}, {20, 2}, {30, 3}, {40, 4}, {50, 5}, {60, 6}, {70, 7}});
    analysis.SetAnalyzeFromSource(&source);
  }
  std::string Range() const {
    return FormatText("%u %u %g %g", analysis.nAnalyzeFrom + 1, analysis.nAnalyzeTo + 1,
                      analysis.GetxAnalyzeFrom(), analysis.GetxAnalyzeTo());
  }
  Live<ViewData> source;
  Live<Doubled> analysis;
};

TEST_F(AnalysisTest, UsesTheRangeThatItIsGivenOrThatOfTheCursors) {
  EXPECT_EQ(Range(), "0 0 0 -1");  // the samples count from 1 here
  for (const auto& [from, to, range] : std::vector<std::tuple<unsigned, unsigned, const char*>>{
           {3, 8, "4 9 30 70"}, {5, 6, "6 7 50 50"}, {5, 5, "6 6 0 -1"}, {2, 99, "3 100 20 70"}}) {
    analysis.SetInterval(from, to);
    EXPECT_EQ(Range(), range);
  }
  source.iLCursor = 3;
  source.iRCursor = 6;
  Analysis::AnalyzeDataBetweenCursors = true;
  EXPECT_TRUE(analysis.Analyze());
  EXPECT_EQ(analysis.GetSize(), 4u);
  EXPECT_EQ(Range(), "4 8 30 60");
  Analysis::SetOptionsToDefault();
  EXPECT_TRUE(analysis.Analyze());
  EXPECT_EQ(analysis.GetSize(), 8u);
  EXPECT_EQ(Range(), "0 0 0 -1");
  analysis.nAnalyzeFrom = 6u;
  EXPECT_TRUE(analysis.ApplyMask());
  EXPECT_EQ(analysis.GetSize(), 2u) << "the range as it stands";
}

TEST_F(AnalysisTest, WithoutASourceNothingRunsAndAFailureLeavesNoHalfResult) {
  EXPECT_TRUE(analysis.Analyze());
  Live<ViewData> empty;
  for (SourceData* const none : std::vector<SourceData*>{nullptr, &empty, &analysis}) {
    analysis.SetAnalyzeFromSource(none);
    EXPECT_FALSE(analysis.Analyze());
  }
  EXPECT_EQ(analysis.runs, 1);
  EXPECT_EQ(analysis.GetSize(), 8u) << "the old samples";
  analysis.SetAnalyzeFromSource(&source);
  for (const auto end : {Doubled::fails, Doubled::throws}) {
    for (const auto how : {&Analysis::ApplyMask, &Analysis::Analyze}) {
      analysis.end = end;
      if (end == Doubled::fails)
        EXPECT_FALSE((analysis.*how)());
      else
        EXPECT_THROW((analysis.*how)(), std::runtime_error);
      EXPECT_EQ(analysis.Valid(), how == &Analysis::ApplyMask);
      EXPECT_FALSE(analysis.inTransfer);
      std::thread([&] {
        EXPECT_TRUE(analysis.threadsMutex->TryLock());
        analysis.threadsMutex->Unlock();
      }).join();
    }
  }
  analysis.end = Doubled::fails;
  analysis.InitDataTransfer(false);
  EXPECT_FALSE(analysis.ApplyMask());
  EXPECT_TRUE(analysis.inTransfer) << "which was begun before";
}

TEST_F(AnalysisTest, ItsSourceMayGrowAndBeAskedForMeanwhile) {
  std::thread feed([&] {
    for (int i = 8; i < 50000; ++i)
      source.Add(analysis.IsCalculated() ? 10 * i : 0, -i);
  });
  for (int i = 0; i < 10; ++i) {
    analysis.SetAnalyzeFromSource(&source);
    EXPECT_TRUE(analysis.Analyze());
  }
  feed.join();
  EXPECT_EQ(analysis.yGet(analysis.GetSize() - 1), -2.0 * (analysis.GetSize() - 1));
}

}  // namespace sparlow::test
