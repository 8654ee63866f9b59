#include "tests/multi/MultiTest.h"

namespace sparlow {

struct RemovalTest : MultiTest {
  /// The series ends right after it has gone from the graph.
  void End(ViewData& gone) {
    EXPECT_FALSE(gone.renderStop || gone.IsAborted());
    gone.Term();
    std::erase_if(owned, [&](const auto& one) { return one.get() == &gone; });
  }
};

TEST_F(RemovalTest, ARenderIsStoppedAndAwaitedAndTheOthersAreShown) {
  for (const int active : {1, 0}) {
    GatedSeries& goes = Add("Goes", 20000);
    Multi().SetActive(active);
    EXPECT_TRUE(Paint());
    goes.CloseGate();
    view->UpdateGraph();
    StopAtGate(goes, [&] { EXPECT_TRUE(RemoveFrom(false, &goes)); });
    End(goes);
    EXPECT_TRUE(Paint() && Active() == &series && Shows("Delay") && !Shows("Goes"));
  }
}

TEST_F(RemovalTest, AnAnalysisIsToldToStopAndAwaitedAndTheOthersGoOn) {
  for (const int active : {0, 1, 2, -1}) {  // -1: masks
    const bool masks = active < 0;
    Doubled &goes = AddDoubled("Goes", masks), &stays = AddDoubled("Stays", masks);
    Multi().SetActive(active);
    StayAt(goes, masks);
    EXPECT_TRUE(RemoveFrom(masks, &goes) && goes.end == Doubled::fails);
    End(goes);
    EXPECT_TRUE(Paint(false) && Shows("Stays") && stays.GetSize() == series.GetSize());
    EXPECT_TRUE(RemoveFrom(masks, &stays));
    stays.Reset();
    EXPECT_TRUE(AddTo(masks, &stays));
    Analyze(masks);
    EXPECT_TRUE(Paint(false) && stays.runs == 2) << "taken back";
    EXPECT_TRUE(RemoveFrom(masks, &stays));
  }
}

TEST_F(RemovalTest, NobodyWaitsForAnAnalysisButTheEndOfTheView) {
  Doubled &analysis = AddDoubled("Analysis", false), &mask = AddDoubled("Mask");
  for (const bool active : {true, false}) {
    GatedSeries* const other = active ? nullptr : &Add("Other");
    EXPECT_TRUE(analysis.Analyze() && Paint());
    StayAt(analysis, false);
    Multi().ZoomInBySample();
    RedrawWindow(view->GetSafeHwnd());
    Pump();
    EXPECT_EQ(Shows("Rendering graph"), active);
    EXPECT_TRUE(active || (Draws(*other, 2) && !Draws(analysis, 1)));
    analysis.end = Doubled::succeeds;
    EXPECT_TRUE(Paint(false) && Draws(analysis, active ? 2 : 1));
  }
  StayAt(analysis, false);
  StayAt(mask, true);
  CloseView();
  EXPECT_TRUE(analysis.end == Doubled::fails && mask.end == Doubled::fails);
  EXPECT_FALSE(analysis.IsAborted() || mask.IsAborted()) << "they may be used elsewhere";
}

}  // namespace sparlow
