// What the info bar is told, in which order and unit, and when it is told nothing.

#include "sparlow/graph/ReadoutSlots.h"
#include "sparlow/graph/UnitText.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

using Numbers = std::vector<UINT>;

/// A host's window that collects the readouts.
struct InfoBar : CWnd {
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (auto readout = TakeReadout(message, wParam, lParam)) {
      got.push_back(std::move(*readout));
      raw = {wParam, lParam};
    }
    return CWnd::WindowProc(message, wParam, lParam);
  }
  std::vector<ReadoutRecord> got;
  std::pair<WPARAM, LPARAM> raw;
};

class ReadoutsTest : public GraphTest {
 protected:
  ReadoutsTest() {
    EXPECT_TRUE(bar.CreateMessageOnly());
    Graph::SetInfoBar(bar.GetSafeHwnd());
    TheGraph().active = true;
  }
  ~ReadoutsTest() override {
    Graph::SetInfoBar(nullptr);
    Graph::RestrictGraphOperationInRealTime = true;
    SourceData::IgnoreDriftRate = false;
  }

  void Show(std::initializer_list<std::pair<double, double>> samples) {
    Begin(series);
    series.InitBlockTransfer();
    for (const auto& [x, y] : samples)
      series.Add(x, y);
    series.TermBlockTransfer();
    series.TermDataTransfer();
    view->UpdateGraph();
    Pump();
  }
  void ShowVolts() {
    series.SetUnits("V");
    Show({{0, 1}, {1, 3}, {2, 2}, {3, 7}});
    series.SetLCursor(1);
    series.SetRCursor(2);
  }
  /// What a call sends.
  Numbers Sent(const std::function<void()>& call) {
    Pump();
    bar.got.clear();
    call();
    Pump();
    Numbers numbers;
    for (const ReadoutRecord& each : bar.got)
      numbers.push_back(static_cast<UINT>(each.what));
    return numbers;
  }
  Numbers CursorReadouts() {
    return Sent([this] { TheGraph().UpdateCursorsReadout(); });
  }
  Numbers Statistics() {
    return Sent([this] { TheGraph().UpdateStaParams(); });
  }
  const ReadoutRecord* Find(Readout what) {
    for (const ReadoutRecord& each : bar.got) {
      if (each.what == what)
        return &each;
    }
    return nullptr;
  }
  void ExpectValue(Readout what, double value, const std::string& text) {
    const ReadoutRecord* const record = Find(what);
    ASSERT_TRUE(record) << static_cast<UINT>(what);
    EXPECT_DOUBLE_EQ(record->value, value) << static_cast<UINT>(what);
    EXPECT_EQ(record->text, text) << static_cast<UINT>(what);
  }

  InfoBar bar;
  const Numbers all{0x46A, 0x46B, 0x46C, 0x46D, 0x47B, 0x47C, 0x46E, 0x46F, 0x470, 0x478, 0x479};
  const Numbers statistics{0x47A, 0x472, 0x473, 0x474, 0x475, 0x476, 0x477};
};

TEST(UnitText, RatiosOfUnits) {
  const struct {
    const char *y, *x, *slope, *inverse, *second;
  } cases[] = {
      {"s", "s", "", "", "Hz"},
      {"V", "s", "V/s", "s/V", "V/s/s"},
      {"Hz", "s", "Hz/s", "s/Hz", "Hz/s/s"},
      {"", "s", "Hz", "s", "Hz/s"},
      {"", "Hz", "s", "Hz", "s/Hz"},
      {"V", "", "V", "1/V", "V"},
      {"", "ms", "1/ms", "ms", "1/ms/ms"},
      {"", "", "", "", ""},
  };
  for (const auto& each : cases) {
    const std::string slope = RatioUnit(each.y, each.x);
    EXPECT_EQ(slope, each.slope) << each.y << " by " << each.x;
    EXPECT_EQ(RatioUnit(each.x, each.y), each.inverse) << each.x << " by " << each.y;
    EXPECT_EQ(RatioUnit(slope, each.x), each.second) << each.y << " by " << each.x;
  }
}

TEST_F(ReadoutsTest, ValuesUnitsAndOrder) {
  ShowVolts();
  EXPECT_EQ(CursorReadouts(), all);
  ExpectValue(Readout::leftX, 1, "s");
  ExpectValue(Readout::leftY, 3, "V");
  ExpectValue(Readout::rightX, 2, "s");
  ExpectValue(Readout::rightY, 2, "V");
  ExpectValue(Readout::slope, -1, "V/s");
  ExpectValue(Readout::inverseSlope, -1, "s/V");
  ExpectValue(Readout::distanceX, 1, "s");
  ExpectValue(Readout::distanceY, -1, "V");
  EXPECT_EQ(Find(Readout::samples)->count, 2);
  EXPECT_EQ(Find(Readout::samples)->text, "Sample");
  // 6 V in 3 s, of which the cursors span -1 V; both by the whole 3 s.
  ExpectValue(Readout::drift, 2, "V/s");
  EXPECT_DOUBLE_EQ(Find(Readout::drift)->cursorValue, -1.0 / 3);
  ExpectValue(Readout::driftOfDrift, 2000.0 / 3, "mV/s/s");
  EXPECT_DOUBLE_EQ(Find(Readout::driftOfDrift)->cursorValue, -1000.0 / 9);
  EXPECT_DOUBLE_EQ(Find(Readout::driftOfDrift)->rawValue, 2.0 / 3);

  EXPECT_EQ(Statistics(), statistics);
  EXPECT_TRUE(Find(Readout::hasStatistics)->hasStatistics);
  const StatisticParameters values = series.GetStatParams();
  ExpectValue(Readout::minimum, 1, "V");
  ExpectValue(Readout::maximum, 7, "V");
  ExpectValue(Readout::span, 6, "V");
  ExpectValue(Readout::mean, 3.25, "V");
  ExpectValue(Readout::standardDeviation, values.stdDev, "V");
  ExpectValue(Readout::allanDeviation, values.allanDev, "V");

  series.SetLCursor(0);
  series.SetRCursor(3);
  CursorReadouts();
  EXPECT_EQ(Find(Readout::driftOfDrift)->cursorValue, Find(Readout::driftOfDrift)->value);
}

TEST_F(ReadoutsTest, LongTextsAreCut) {
  series.SetUnits("quitelongunit");
  std::snprintf(series.cptName, sizeof series.cptName, "%s", "twenty characters xy");
  Show({{0, 1}, {1e-6, 2e3}});
  CursorReadouts();
  ExpectValue(Readout::distanceX, 1, "us");
  EXPECT_EQ(Find(Readout::slope)->text, "Gquitelongunit/");
  EXPECT_EQ(Find(Readout::samples)->text, "twenty characte");
}

TEST_F(ReadoutsTest, WhatHasNoDivisorIsNotSent) {
  Show({{0, 2}, {1, 5}, {1, 2}, {1, 5}});
  series.SetLCursor(1);
  series.SetRCursor(2);
  EXPECT_EQ(CursorReadouts(),
            (Numbers{0x46A, 0x46B, 0x46C, 0x46D, 0x47C, 0x46E, 0x46F, 0x470, 0x478, 0x479}));
  series.SetLCursor(0);
  EXPECT_EQ(CursorReadouts(),
            (Numbers{0x46A, 0x46B, 0x46C, 0x46D, 0x47B, 0x46E, 0x46F, 0x470, 0x478, 0x479}));
  const Numbers noDrift{0x46A, 0x46B, 0x46C, 0x46D, 0x46E, 0x46F, 0x470};
  Show({{5, 2}});
  EXPECT_EQ(CursorReadouts(), noDrift);
  Show({{0, 2}, {1e-310, 2}});
  EXPECT_EQ(CursorReadouts(), noDrift) << "the reciprocal is infinite";
  SourceData::IgnoreDriftRate = true;
  ShowVolts();
  EXPECT_EQ(CursorReadouts(), Numbers(all.begin(), all.end() - 2));
}

TEST_F(ReadoutsTest, WhenNothingIsSent) {
  EXPECT_EQ(CursorReadouts(), Numbers{}) << "no samples";
  EXPECT_EQ(Statistics(), Numbers{}) << "no samples";
  ShowVolts();
  TheGraph().active = false;
  EXPECT_EQ(CursorReadouts(), Numbers{});
  EXPECT_EQ(Statistics(), statistics) << "also of a graph that isn't active";
  TheGraph().active = true;
  series.inTransfer = true;
  EXPECT_EQ(CursorReadouts(), Numbers{});
  Graph::RestrictGraphOperationInRealTime = false;
  EXPECT_EQ(CursorReadouts(), all);
  EXPECT_EQ(Statistics(), Numbers{});
  series.inTransfer = false;
  series.iRCursor = -1;
  EXPECT_EQ(CursorReadouts(), Numbers{}) << "no cursor";
  EXPECT_EQ(Sent([this] { TheGraph().UpdateDriftRate(); }), Numbers{});
  series.iRCursor = 4;
  EXPECT_EQ(CursorReadouts(), Numbers{}) << "a cursor of samples that are gone";
  series.iRCursor = 2;

  bar.DestroyWindow();
  TheGraph().UpdateCursorsReadout();
  Graph::SetInfoBar(nullptr);
  TheGraph().UpdateCursorsReadout();
  TheGraph().UpdateStaParams();
  Graph::UpdateStaParams(nullptr, nullptr);
  EXPECT_EQ(Sent([] {}), Numbers{});
}

TEST_F(ReadoutsTest, ACalculatedSeriesHasNoStatisticsAndNoDriftOfItsCursors) {
  ShowVolts();
  CloseView();
  ViewData calculated;
  calculated.Init("Derivative", &series);
  Fill(calculated, 10);
  OpenView({640, 480}, calculated);
  TheGraph().active = true;
  calculated.SetLCursor(3);
  EXPECT_EQ(CursorReadouts(), all);
  EXPECT_EQ(Find(Readout::drift)->cursorValue, Find(Readout::drift)->value);
  EXPECT_EQ(Statistics(), Numbers{0x47A});
  EXPECT_FALSE(Find(Readout::hasStatistics)->hasStatistics);
  CloseView();
  calculated.Term();
}

TEST_F(ReadoutsTest, UpdatesWorkersAndCursorMovesSend) {
  Numbers both = all;
  both.insert(both.end(), statistics.begin(), statistics.end());
  Fill(series, 5000);
  EXPECT_EQ(Sent([this] { view->UpdateGraph(); }), both);
  Fill(series, 20000);
  EXPECT_EQ(Sent([this] {
              view->UpdateGraph();
              ASSERT_TRUE(AwaitIdle());
            }),
            both);
  EXPECT_EQ(Sent([this] { TheGraph().MoveLCursor(1); }), Numbers{0x47D});
  Numbers end = all;
  end.insert(end.begin(), 0x47D);
  EXPECT_EQ(Sent([this] {
              TheGraph().BeginDragLeftCursor();
              CPoint point{300, 100};
              TheGraph().DragCursor(point);
              TheGraph().EndDragCursor();
            }),
            end);
}

TEST_F(ReadoutsTest, RecordsAreWholeAndForgeriesAreNone) {
  const HWND receiver = bar.GetSafeHwnd();
  Sent([&] { ReadoutSender(receiver).Send(WM_READOUT_MEAN, 1, "V"); });
  const auto [wParam, lParam] = bar.raw;
  for (const UINT message : {0x469u, 0x46Au, 0x470u, 0x471u, 0x47Eu})
    EXPECT_FALSE(TakeReadout(message, wParam, lParam)) << message;
  EXPECT_FALSE(TakeReadout(WM_READOUT_MEAN, 0, lParam));
  EXPECT_FALSE(TakeReadout(WM_READOUT_HAS_STATISTICS, 2, 0));

  Graph::SetInfoBar(nullptr);
  bar.DestroyWindow();
  std::atomic<bool> enough{false};
  std::thread worker([&] {
    for (bool big = false; !enough; big = !big)
      ReadoutSender(receiver).Send(WM_READOUT_MEAN, big ? 5e6 : 1, "V");
  });
  for (int i = 0; i < 20000; ++i) {
    const auto record = TakeReadout(WM_READOUT_MEAN, wParam, lParam);
    ASSERT_TRUE(record);
    ASSERT_EQ(record->text, record->value == 5 ? "MV" : "V");
  }
  enough = true;
  worker.join();
}

}  // namespace
}  // namespace sparlow
