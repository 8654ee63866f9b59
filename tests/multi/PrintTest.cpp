#include "tests/multi/MultiTest.h"

namespace sparlow {

struct PrintTest : MultiTest {
  void Print(const CRect& rect = {300, 400, 3300, 2400}) {
    paper.take();
    view->Print(&dc, rect);
  }
  int OnPaper(const std::string& part) const { return Count(paper.calls(), part); }

  test::RecordingDevice paper{{20000, 20000}, 600};
  DeviceContext page{&paper};
  CDC dc{&page};
};

TEST_F(PrintTest, PaperHasItsOwnLooksAndTheWindowGetsItsOwnBack) {
  GatedSeries &two = Add("Two"), &three = Add("Three");
  GraphColors dark(2);
  const auto screen = [&] {
    return std::tuple(three.GetColor(), Multi().markers.Left().color, Multi().colors,
                      axis.hor.scale, axis.ver.scale, Plot(), test::columnsOf(two),
                      test::columnsOf(three), Offset::LogPixelSize, RenderDue(), page.font,
                      page.origin, page.clip);
  };
  for (const bool active : {false, true}) {
    Paint();
    view->SetActive(active);
    if (active)
      view->SetColors(dark);  // else it has the colour of the table
    const CFont font;
    dc.SelectObject(&font);
    const auto before = screen();
    Print();
    EXPECT_TRUE(screen() == before) << active;
    EXPECT_GT(OnPaper(Stroke(14, 0x505050)), 0);
    EXPECT_GT(OnPaper(Stroke(7, two.GetColor())), 0);
    EXPECT_EQ(OnPaper("Line 706,547 706,1910" + Stroke(7, 0)), 1) << "the frame";
    EXPECT_EQ(OnPaper("FillRect") + OnPaper("Copy"), 0) << "the paper stays as it is";
    EXPECT_GT(OnPaper("Text"), 5);
    EXPECT_EQ(OnPaper("Text"), OnPaper("\" height 92 "));
    EXPECT_EQ(OnPaper(Stroke(35, 0x0000FF)), active ? 2 : 0) << "left cursor";
    EXPECT_EQ(OnPaper(" width 35 "), active ? 4 : 0);
  }
  two.SetColor(0xFFFFFF);
  Print();
  EXPECT_EQ(OnPaper(Stroke(7, 0xFFFFFF)), 0) << "white on white";
}

TEST_F(PrintTest, TheCallerRendersForThePageAndAWorkerForTheWindow) {
  series.Reset();
  Print();
  view->Print(nullptr, {0, 0, 3000, 2000});
  EXPECT_TRUE(paper.calls().empty()) << "no data";
  Show(20000);
  Paint();
  series.CloseGate();  // for workers
  Print();
  EXPECT_GT(OnPaper(Stroke(7, 0x505050)), 2454);
  StopAtGate(series, [this] { Print(); });
  EXPECT_GT(OnPaper("\"Delay\""), 0);
  Paint(false);
  EXPECT_TRUE(Shows("Delay")) << "begun anew";
  ExpectTrueColumns();
}

TEST_F(PrintTest, DataThatGoMeanwhileLeaveTheWindowsOwnLayout) {
  struct Vanishing : GatedSeries {
    void Draw(CDC* on, int height, bool bold) const override {
      GatedSeries::Draw(on, height, bold);
      if (on->GetPixelFactor() > 1.0)
        const_cast<Vanishing*>(this)->Reset();
    }
  };
  auto& vanishing = Make<Vanishing>("Vanishing");
  Fill(vanishing, 100);
  AddTo(false, &vanishing);
  Paint();
  const CSize plot = Plot();
  Print();
  EXPECT_FALSE(vanishing.Valid());
  EXPECT_EQ(Plot(), plot);
}

TEST_F(PrintTest, ATooLargePageIsToldAndPrintedWhateverHappensInTheBox) {
  Paint();
  Print({0, 0, 16383, 1000});
  EXPECT_TRUE(system.boxes.empty());
  UiThread::SetBoxHandler([&](const BoxRequest& box) {
    system.boxes.push_back(box.text);
    RedrawWindow(view->GetSafeHwnd());
    Pump();
    EXPECT_FALSE(Draws(" width 7 ")) << "the window in the measure of the page";
    if (system.boxes.size() == 2)
      CloseView();
    return IDOK;
  });
  Print({0, 0, 16384, 1000});
  EXPECT_GT(OnPaper("\"Delay\""), 0);
  Print({0, 0, 1000, 20000});
  const char* const told =
      "Screen or printer resolution is too high.\nThe graph will be truncated.";
  EXPECT_EQ(system.boxes, std::vector<std::string>(2, told));
  EXPECT_EQ(view, nullptr);
  EXPECT_EQ(Offset::LogPixelSize, 1u);
}

}  // namespace sparlow
