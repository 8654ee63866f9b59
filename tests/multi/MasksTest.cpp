#include "sparlow/platform/window/Input.h"
#include "tests/multi/MultiTest.h"

namespace sparlow {

using MasksTest = MultiTest;

TEST_F(MasksTest, ANewMaskIsCalculatedOnceAndAFailureHindersNoOther) {
  int updates = 0;
  view->afterMessage = [&](UINT message) { updates += message == WM_UPDATE_GRAPH; };
  Doubled &fails = AddDoubled("Fails"), &throws = AddDoubled("Throws");
  fails.end = Doubled::fails;
  throws.end = Doubled::throws;
  Analyze(true);
  Paint(false);
  EXPECT_EQ(updates, 0) << "nothing was calculated";
  throws.Reset();  // else half a result counts
  Doubled& mask = AddDoubled("Mask");
  StayAt(mask, true);
  Analyze(true);
  mask.end = Doubled::succeeds;
  Paint(false);
  EXPECT_GT(updates, 0);
  EXPECT_TRUE(Draws(mask, 1));
  EXPECT_EQ(fails.runs, 1);
  EXPECT_EQ(throws.runs, 2);
  EXPECT_EQ(mask.runs, 1);
  EXPECT_FALSE(Multi().AnalyzeEachNewMask()) << "none is new";
  view->afterMessage = nullptr;
}

TEST_F(MasksTest, AllAreNamedInTheLegendAndTheActiveOneIsThickAndOnTop) {
  series.SetColor(0x010203);
  Paint();
  EXPECT_TRUE(Draws(series, 1)) << "alone";
  EXPECT_EQ(Plot().cy, 438);
  Doubled &longest = AddDoubled("0123456789"), &shorter = AddDoubled("abc");
  longest.ApplyMask();
  shorter.ApplyMask();
  const auto maskColumn = [this](int lines) {
    Paint();
    EXPECT_EQ(Plot().cy, 438 - 15 * lines - 4);
    EXPECT_TRUE(Draws(FormatText("Text 58,%d \"Delay\" height 15 color 0x010203", Plot().cy + 42)));
    EXPECT_TRUE(Draws(FormatText("Text %d,%d ", 620 - Multi().legendMaskWidth, Plot().cy + 42)));
    return Multi().legendMaskWidth;
  };
  EXPECT_EQ(maskColumn(2), 70);
  EXPECT_TRUE(Draws(series, 2));
  EXPECT_TRUE(Draws(shorter, 1));
  EXPECT_TRUE(Multi().RemoveMaskData(&longest));
  GatedSeries &second = Add("Second"), &third = Add(std::string(100, 'x'));
  Multi().SetActiveMask(0);
  EXPECT_EQ(maskColumn(3), 70);
  EXPECT_TRUE(Draws("\"Second\" height 15 color 0x0000"));
  EXPECT_FALSE(Draws(std::string(70, 'x'))) << "too long to stand beside the masks";
  const auto frame = Frame();  // the copy to the window is the last
  EXPECT_NE(frame[frame.size() - 2].find(Stroke(2, shorter.GetColor())), std::string::npos);
  EXPECT_TRUE(Draws(third, 1));
  EXPECT_FALSE(Draws(shorter, 1));
  int index = -1;
  bool isMask = false;
  shorter.SetColor(0);  // as all of the frame
  second.SetColor(1);
  EXPECT_FALSE(Multi().GetViewDataByPoint(nullptr, &index, &isMask, {5, 5}));
  EXPECT_EQ(index, -1);
  EXPECT_TRUE(Multi().GetViewDataByPoint(nullptr, &index, &isMask, {300, 200}));
  EXPECT_EQ(index, 0);
  EXPECT_TRUE(isMask);
  system.pointerAt = {Window().at.x + 600, Window().at.y + 200};  // where the mouse may be lost
  const auto click = [this](UINT end = WM_LBUTTONUP) {
    system.pointer = nullptr;
    Multi().active = true;
    for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, end})
      SendMessage(view->GetSafeHwnd(), message, 0, PackPoint({300, 200}));
    return system.pointer == LoadCursor(102);
  };
  for (const bool onMask : {false, true}) {
    second.SetColor(onMask ? 1 : 0);
    shorter.SetColor(onMask ? 0 : 1);
    EXPECT_TRUE(click(onMask ? WM_CAPTURECHANGED : WM_LBUTTONUP));
    EXPECT_EQ(Active(), onMask ? &shorter : static_cast<ViewData*>(&second));
  }
  Graph::RestrictGraphOperationInRealTime = false;
  Begin(shorter);
  EXPECT_FALSE(click()) << "during a transfer";
  EXPECT_FALSE(shorter.TermDataTransfer());
  GraphColors black(3);
  black.backActive = 0;
  view->SetColors(black);
  EXPECT_FALSE(click()) << "background";
  GraphColors light;
  view->SetColors(light);
  EXPECT_TRUE(Multi().RemoveMaskData(&shorter));
  EXPECT_EQ(Active(), &series);
  EXPECT_TRUE(AddTo(true, &shorter));
  EXPECT_EQ(maskColumn(3), 21) << "after the last mask had gone";
  Doubled& endless = AddDoubled(std::string(200, 'm'));
  EXPECT_EQ(maskColumn(3), Plot().cx / 2);
  Fill(endless, {{0, 0}, {1, 1000}});
  endless.SetFrom(1);
  Multi().SetActiveMask(1);
  EXPECT_TRUE(endless.IntervalWhole());
  Paint();
  EXPECT_EQ(axis.ver.max, 1000);
  EXPECT_TRUE(Multi().RemoveMaskData(&endless));
  EXPECT_LT(axis.ver.max, 1000) << "the window is as if it had never been there";
  Multi().SetActive(1);
  EXPECT_TRUE(Multi().RemoveMaskData(&second)) << "though no mask";
  EXPECT_EQ(Active(), &series);
}

}  // namespace sparlow
