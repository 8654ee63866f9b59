#include "sparlow/platform/window/CDocument.h"
#include "tests/multi/MultiTest.h"

namespace sparlow {

struct OverlayTest : MultiTest {
  /// What stands behind the eight lines of every graph's menu, * at the choice.
  std::string Menu() {
    CMenu menu;
    std::string text;
    for (const MenuItem& item : Multi().CreateCustomPopupMenu(menu)->Items().subspan(8)) {
      text += item.text + "|";
      if (item.subMenu)
        for (const MenuItem& choice : item.subMenu->Items())
          text += (choice.enabled ? "" : "~") + choice.text + (choice.radio ? "* " : " ");
    }
    return text;
  }
};

TEST_F(OverlayTest, SixOfAKindHaveColoursInTurnAndASeventhIsRefused) {
  EXPECT_EQ(Menu(), "");
  for (const bool masks : {false, true}) {
    std::vector<ViewData*> made;
    for (int i = masks ? 0 : 1; i < 6; ++i) {
      made.push_back(&Make((masks ? "M" : "G") + std::to_string(i)));
      EXPECT_TRUE(AddTo(masks, made.back()));
      EXPECT_EQ(made.back()->GetColor(), (masks ? MaskColorTable : GraphColorTable)[i]);
    }
    GatedSeries& more = Make("more");
    EXPECT_FALSE(AddTo(masks, &more));
    EXPECT_EQ(more.GetColor(), 0u);
    for (ViewData* const foreign : {static_cast<ViewData*>(&more), static_cast<ViewData*>(nullptr)})
      EXPECT_EQ(RemoveFrom(masks, foreign), masks);
    EXPECT_TRUE(RemoveFrom(masks, made[2]));
    for (ViewData* const declined : std::vector<ViewData*>{made[0], &series, nullptr})
      EXPECT_FALSE(AddTo(masks, declined));
    EXPECT_TRUE(AddTo(masks, &more));
    EXPECT_EQ(more.GetColor(), made[2]->GetColor());
    if (!masks) {
      EXPECT_EQ(Menu(), "|&Select|Delay G1 G2 G4 G5 more* |&Remove Selected Graph|");
    }
  }
  EXPECT_EQ(system.boxes,
            (std::vector<std::string>{"Cannot view more than 6 graphs simultaneously.",
                                      "Cannot apply more than 6 masks simultaneously."}));
  EXPECT_EQ(Menu(),
            "|&Select|Delay G1 G2 G4 G5 more*  ~M0 ~M1 ~M3 ~M4 ~M5 ~more |&Remove Selected Graph|")
      << "masks that aren't calculated yet can't be chosen";
  Fill(*Multi().GetMaskList().GetAt(0), 3);
  Multi().SetActive(0);
  EXPECT_NE(Menu().find(" M0 ~M1 "), std::string::npos) << Menu();
  EXPECT_EQ(Multi().GetViewDataList().count, 6);
  EXPECT_EQ(Multi().GetMaskList().GetAt(0)->GetName(), "M0");
  Begin(*Active());
  EXPECT_EQ(Menu(), "");
}

TEST_F(OverlayTest, TheActiveOneRulesTheAxesAndTheOthersFollowButMasks) {
  GatedSeries &far = Add("Far"), &none = Add("None", 0), &active = Add("Active");
  Doubled &mask = AddDoubled("Mask"), &empty = AddDoubled("Empty");
  Fill(series, {{0, -50}, {2, -40}, {3, -50}, {8, -40}, {100, 0}});
  Fill(far, {{500, 0}, {501, 1}});
  Fill(active, {{0, 0}, {2.5, 1}, {5, 0}, {7, 1}, {10, 0}});
  Fill(mask, {{-20, -3}, {0, 4}, {80, 0}});
  active.SetUnits("V");
  Paint();
  const auto range = [this] {
    return FormatText("%g %g %g %g %s", axis.hor.min, axis.hor.max, axis.ver.min, axis.ver.max,
                      axis.ver.GetFuncName());
  };
  EXPECT_EQ(range(), "-20 501 -50 4 V");
  mask.SetTo(2);
  empty.nFrom = 7u;
  Multi().ZoomInBySample();
  EXPECT_EQ(range(), "2.5 5 -50 4 V");
  EXPECT_EQ(series.GetInterval(), (SampleInterval{1, 4}));
  EXPECT_EQ(none.nColumns, 0u);
  EXPECT_TRUE(Multi().RemoveViewData(&none));
  EXPECT_EQ(active.GetIntervalSize(), 2u) << "nothing moves";
  EXPECT_EQ(mask.GetTo(), 2u);
  for (const int index : {0, 5}) {  // the second is none, but all is shown
    Multi().SetActive(index);
    EXPECT_EQ(Active(), &series);
    for (const ViewData* const each : std::initializer_list<ViewData*>{&series, &active, &mask})
      EXPECT_TRUE(each->IntervalWhole()) << each->GetName();
    EXPECT_EQ(range(), "-20 501 -50 4 s");
    Multi().ZoomInBySample();
  }
  Multi().RemoveActiveGraph();
  EXPECT_EQ(Active(), &far);
  EXPECT_TRUE(far.IntervalWhole());
  EXPECT_TRUE(active.IntervalWhole());
  Multi().RemoveActiveGraph();
  EXPECT_FALSE(Multi().RemoveViewData(&active)) << "the last one";
  EXPECT_EQ(empty.nFrom, 7u) << "has nothing to show";
}

// Peaks beyond the active series' samples, and a curve that has none in the window.
TEST_F(OverlayTest, AFixedAxisFitsTheCurvesInItsRange) {
  ViewData &peak = Make<ViewData>("Peak"), &elsewhere = Make<ViewData>("Elsewhere");
  EXPECT_TRUE(AddTo(false, &peak));
  EXPECT_TRUE(AddTo(false, &elsewhere));
  Fill(series, {{-50, 0}, {0, 1}, {60, 0}});
  Fill(peak, {{-40, 0}, {80, 9}, {90, 0}, {200, 50}, {201, 0}});
  Fill(elsewhere, {{-90, 99}, {-80, 99}});
  Multi().SetActive(0);
  view->ChangeAxes([](GraphAxis& axes) {
    axes.hor.autoRange = false;
    axes.hor.fixedMin = 0;
    axes.hor.fixedMax = 100;
  });
  EXPECT_EQ(axis.ver.max, 50) << "with the sample behind the range, which its curve runs to";
  Fill(peak, {{-40, 0}, {80, 9}, {90, 0}, {99, 0}, {101, 2}, {201, 50}});
  view->UpdateGraph();
  EXPECT_EQ(axis.ver.max, 9);
  EXPECT_EQ(axis.ver.min, 0);
  // Of a single sample on show, the range that the axis makes of it.
  axis.hor.ResetFixed();
  Fill(series, {{5, 0}, {50, 0}});
  series.SetTo(1);
  Fill(peak, {{4.96, 3}, {5.04, -3}});
  view->UpdateGraph();
  EXPECT_EQ(axis.hor.max, 5.05);
  EXPECT_EQ(axis.ver.max, 3);
}

// What begins as the only one, put there by SetViewData, can be listed later.
TEST_F(OverlayTest, TheActiveSeriesCanBeAdded) {
  GatedSeries& other = Make("Other");
  Fill(other, 11);
  AddDoubled("Mask");
  EXPECT_EQ(Menu(), "|&Select|Delay*  ~Mask ") << "nothing to be removed";
  Multi().SetViewData(&other);
  EXPECT_FALSE(Multi().GetViewDataList().Holds(&other));
  EXPECT_TRUE(AddTo(false, &other));
  EXPECT_TRUE(Multi().GetViewDataList().Holds(&other));
  EXPECT_FALSE(AddTo(false, &other));
  EXPECT_EQ(Menu(), "|&Select|Delay Other*  ~Mask |&Remove Selected Graph|");
}

TEST_F(OverlayTest, AViewPicksByMenu) {
  struct HostView : CMultiGraphViewWithMasks {
    using CMultiGraphViewWithMasks::CreateGraph, CSingleGraphView::graph;
  };
  CDocument document;
  auto* const host = new HostView;
  host->Create();
  document.AddView(host);
  host->RemoveMaskData(&series);
  EXPECT_FALSE(host->AddMaskData(&series)) << "no graph yet";
  host->CreateGraph(&axis);
  for (const char* const name : {"One", "Two", "Three"})
    EXPECT_TRUE(host->AddViewData(&Make(name)));
  EXPECT_TRUE(host->AddMaskData(&Make("Mask")));
  std::string picked;
  for (const UINT id : {102u, 107u, 103u, 113u}) {
    SendMessage(host->GetSafeHwnd(), WM_COMMAND, id, 0);
    picked += document.GetTitle() + "/" + host->graph->GetName() + " ";
  }
  EXPECT_EQ(picked, "Two/Two Mask/Mask Three/Three Three/One ");
  host->DestroyWindow();
}

TEST_F(OverlayTest, AWriteToASecondarySampleOfALiveGraphIsSeen) {
  GatedSeries& other = Add("Other");
  Multi().SetActive(0);
  Begin(series);
  AddBlock(series, 10);
  view->UpdateGraph();
  view->UpdateGraph();
  const int before = other.yPos[3];
  other.Set(3, other.xGet(3), other.yGet(3) + 0.01);
  view->UpdateGraph();
  EXPECT_NE(other.yPos[3], before);
}

}  // namespace sparlow
