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
  }

  void Show(const Points& samples, unsigned left, unsigned right) {
    Fill(series, samples);
    view->UpdateGraph();
    series.SetLCursor(left);
    series.SetRCursor(right);
  }
  void ShowVolts() {
    series.SetUnits("V");
    Show({{0, 1}, {1, 3}, {2, 2}, {3, 7}}, 1, 2);
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
  /// What was told under a number.
  ReadoutRecord Told(Readout what) {
    for (const ReadoutRecord& each : bar.got) {
      if (each.what == what)
        return each;
    }
    ADD_FAILURE() << "no readout " << static_cast<UINT>(what);
    return {};
  }
  void ExpectValue(Readout what, double value, const char* text) {
    EXPECT_DOUBLE_EQ(Told(what).value, value) << static_cast<UINT>(what);
    EXPECT_EQ(Told(what).text, text) << static_cast<UINT>(what);
  }

  InfoBar bar;
  const Numbers all{0x46A, 0x46B, 0x46C, 0x46D, 0x47B, 0x47C, 0x46E, 0x46F, 0x470, 0x478, 0x479};
  const Numbers statistics{0x47A, 0x472, 0x473, 0x474, 0x475, 0x476, 0x477};
};

TEST(UnitText, RatiosOfUnits) {
  const struct {
    const char *y, *x, *slope, *second;
  } cases[] = {{"s", "s", "", "Hz"},    {"V", "s", "V/s", "V/s/s"},    {"", "s", "Hz", "Hz/s"},
               {"", "Hz", "s", "s/Hz"}, {"", "ms", "1/ms", "1/ms/ms"}, {"V", "", "V", "V"}};
  for (const auto& each : cases) {
    const std::string slope = RatioUnit(each.y, each.x);
    EXPECT_EQ(slope, each.slope) << each.y << " by " << each.x;
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
  ExpectValue(Readout::drift, 2, "V/s");
  ExpectValue(Readout::driftOfDrift, 2000.0 / 3, "mV/s/s");
  EXPECT_EQ(Told(Readout::samples).count, 2);
  EXPECT_EQ(Told(Readout::samples).text, "Sample");
  // 6 V in 3 s, of which the cursors span -1 V; both by the whole 3 s.
  EXPECT_DOUBLE_EQ(Told(Readout::drift).cursorValue, -1.0 / 3);
  EXPECT_DOUBLE_EQ(Told(Readout::driftOfDrift).cursorValue, -1000.0 / 9);
  EXPECT_DOUBLE_EQ(Told(Readout::driftOfDrift).rawValue, 2.0 / 3);

  EXPECT_EQ(Statistics(), statistics);
  EXPECT_TRUE(Told(Readout::hasStatistics).hasStatistics);
  const StatisticParameters values = series.GetStatParams();
  ExpectValue(Readout::minimum, 1, "V");
  ExpectValue(Readout::maximum, 7, "V");
  ExpectValue(Readout::span, 6, "V");
  ExpectValue(Readout::mean, 3.25, "V");
  ExpectValue(Readout::standardDeviation, values.stdDev, "V");
  ExpectValue(Readout::allanDeviation, values.allanDev, "V");
}

TEST_F(ReadoutsTest, LongTextsAreCut) {
  std::snprintf(series.cptName, sizeof series.cptName, "%s", "twenty characters xy");
  ShowVolts();
  CursorReadouts();
  EXPECT_EQ(Told(Readout::samples).text, "twenty characte");
}

TEST_F(ReadoutsTest, WhatHasNoDivisorIsNotSent) {
  const struct {
    Points samples;
    unsigned left, right;
    Numbers missing;
  } cases[] = {{{{0, 2}, {1, 5}, {1, 2}, {1, 5}}, 1, 2, {0x47B}},
               {{{0, 2}, {1, 5}, {1, 2}, {1, 5}}, 0, 2, {0x47C}},
               {{{5, 2}}, 0, 0, {0x47B, 0x47C, 0x478, 0x479}},
               {{{0, 2}, {1e-310, 2}}, 0, 1, {0x47B, 0x47C, 0x478, 0x479}}};
  for (const auto& each : cases) {
    Show(each.samples, each.left, each.right);
    Numbers missing = all;
    for (const UINT sent : CursorReadouts())
      std::erase(missing, sent);
    EXPECT_EQ(missing, each.missing);
  }
}

TEST_F(ReadoutsTest, WhenNothingIsSent) {
  const Numbers nothing;
  EXPECT_EQ(CursorReadouts(), nothing) << "no samples";
  ShowVolts();
  TheGraph().active = false;
  EXPECT_EQ(CursorReadouts(), nothing);
  EXPECT_EQ(Statistics(), statistics) << "also of a graph that isn't active";
  TheGraph().active = true;
  series.inTransfer = true;
  EXPECT_EQ(CursorReadouts(), nothing);
  Graph::RestrictGraphOperationInRealTime = false;
  EXPECT_EQ(CursorReadouts(), all);
  EXPECT_EQ(Statistics(), nothing);
  series.inTransfer = false;
  for (const int noSample : {-1, 4}) {
    series.iRCursor = noSample;
    EXPECT_EQ(CursorReadouts(), nothing) << noSample;
  }
}

TEST_F(ReadoutsTest, ACalculatedSeriesHasNoStatisticsAndNoDriftOfItsCursors) {
  ShowVolts();
  ViewData calculated;
  calculated.Init("Derivative", &series);
  Fill(calculated, 10);
  OpenView({640, 480}, calculated);
  TheGraph().active = true;
  calculated.SetLCursor(3);
  CursorReadouts();
  EXPECT_EQ(Told(Readout::drift).cursorValue, Told(Readout::drift).value);
  EXPECT_EQ(Statistics(), Numbers{0x47A});
  EXPECT_FALSE(Told(Readout::hasStatistics).hasStatistics);
  CloseView();
  calculated.Term();
}

TEST_F(ReadoutsTest, UpdatesWorkersAndCursorMovesSend) {
  Numbers both = all, endOfDrag = all;
  both.insert(both.end(), statistics.begin(), statistics.end());
  endOfDrag.insert(endOfDrag.begin(), 0x47D);
  for (const unsigned n : {5000u, 20000u})
    EXPECT_EQ(Sent([&] { GraphTest::Show(n), AwaitIdle(); }), both) << n;
  EXPECT_EQ(Sent([this] { TheGraph().MoveLCursor(1); }), Numbers{0x47D});
  EXPECT_EQ(Sent([this] {
              TheGraph().BeginDragLeftCursor();
              CPoint point{300, 100};
              TheGraph().DragCursor(point);
              TheGraph().EndDragCursor();
            }),
            endOfDrag);
}

TEST_F(ReadoutsTest, RecordsAreWhole) {
  const HWND receiver = bar.GetSafeHwnd();
  Sent([&] { ReadoutSender(receiver).Send(WM_READOUT_MEAN, 1, "V"); });
  const auto [wParam, lParam] = bar.raw;
  EXPECT_FALSE(TakeReadout(WM_READOUT_MAXIMUM, wParam, lParam)) << "another one's";

  const ReadoutSender slow(receiver);
  ReadoutSender(receiver).Send(WM_READOUT_MEAN, 2, "V");
  slow.Send(WM_READOUT_MEAN, 3, "V");
  EXPECT_EQ(TakeReadout(WM_READOUT_MEAN, wParam, lParam)->value, 2) << "the older one";

  std::atomic<bool> enough{false};
  std::thread worker([&] {
    for (bool big = false; !enough; big = !big)
      ReadoutSender(receiver).Send(WM_READOUT_MEAN, big ? 5e6 : 1, "V");
  });
  for (int i = 0; i < 20000; ++i) {
    const auto record = TakeReadout(WM_READOUT_MEAN, wParam, lParam);
    EXPECT_TRUE(record && record->text == (record->value == 5 ? "MV" : "V"));
  }
  enough = true;
  worker.join();
}

}  // namespace
}  // namespace sparlow
