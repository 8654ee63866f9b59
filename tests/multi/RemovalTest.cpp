#include "tests/multi/MultiTest.h"

namespace sparlow {

struct RemovalTest : MultiTest {
  /// The series ends right after it has gone from the graph.
  void End(ViewData& gone) {
    EXPECT_FALSE(gone.renderStop);
    EXPECT_FALSE(gone.IsAborted());
    gone.Term();
    std::erase_if(owned, [&](const auto& one) { return one.get() == &gone; });
  }
};

TEST_F(RemovalTest, ARenderIsStoppedAndAwaitedAndTheOthersAreShown) {
  for (const int active : {1, 0}) {
    GatedSeries& goes = Add("Goes", 20000);
    Multi().SetActive(active);
    Paint();
    goes.CloseGate();
    view->UpdateGraph();
    StopAtGate(goes, [&] { EXPECT_TRUE(RemoveFrom(false, &goes)); });
    End(goes);
    Paint();
    EXPECT_EQ(Active(), &series);
    EXPECT_TRUE(Shows("Delay"));
  }
}

TEST_F(RemovalTest, AnAnalysisIsToldToStopAndAwaitedAndTheOthersGoOn) {
  for (const int active : {0, 1, 2, -1}) {  // -1: masks
    const bool masks = active < 0;
    Doubled &goes = AddDoubled("Goes", masks), &stays = AddDoubled("Stays", masks);
    Multi().SetActive(active);
    StayAt(goes, masks);
    EXPECT_TRUE(RemoveFrom(masks, &goes));
    EXPECT_EQ(goes.end, Doubled::fails);
    End(goes);
    Paint(false);
    EXPECT_TRUE(Shows("Stays"));
    EXPECT_EQ(stays.GetSize(), series.GetSize());
    EXPECT_TRUE(RemoveFrom(masks, &stays));
    stays.Reset();
    EXPECT_TRUE(AddTo(masks, &stays));
    Analyze(masks);
    Paint(false);
    EXPECT_EQ(stays.runs, 2) << "taken back";
    EXPECT_TRUE(RemoveFrom(masks, &stays));
  }
}

TEST_F(RemovalTest, NobodyWaitsForAnAnalysisButTheEndOfTheView) {
  Doubled &analysis = AddDoubled("Analysis", false), &mask = AddDoubled("Mask");
  for (const bool active : {true, false}) {
    GatedSeries* const other = active ? nullptr : &Add("Other");
    EXPECT_TRUE(analysis.Analyze());
    Paint();
    StayAt(analysis, false);
    Multi().ZoomInBySample();
    RedrawWindow(view->GetSafeHwnd());
    Pump();
    EXPECT_EQ(Shows("Rendering graph"), active);
    if (other) {
      EXPECT_TRUE(Draws(*other, 2));
    }
    EXPECT_FALSE(Draws(analysis, active ? 2 : 1));
    analysis.end = Doubled::succeeds;
    Paint(false);
    EXPECT_TRUE(Draws(analysis, active ? 2 : 1));
  }
  StayAt(analysis, false);
  StayAt(mask, true);
  CloseView();
  for (const Doubled* const each : {&analysis, &mask}) {
    EXPECT_EQ(each->end, Doubled::fails);
    EXPECT_FALSE(each->IsAborted()) << "it may be used elsewhere";
  }
}

}  // namespace sparlow
