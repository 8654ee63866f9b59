// What the info bar is told, in which order and unit, and when it is told nothing.

#include "sparlow/graph/ReadoutSlots.h"
#include "sparlow/graph/UnitText.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

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
  ~ReadoutsTest() override { CloseView(); }

  void Show(const Points& samples, unsigned left, unsigned right) {
    GraphTest::Show(samples);
    series.SetLCursor(left);
    series.SetRCursor(right);
  }
  void ShowVolts() {
    series.SetUnits("V");
    Show({{0, 1}, {1, 3}, {2, 2}, {3, 7}}, 1, 2);
  }
  /// The messages that a call sends, by their last two digits.
  std::string Sent(const std::function<void()>& call) {
    Pump();
    bar.got.clear();
    call();
    Pump();
    std::string numbers;
    for (const ReadoutRecord& each : bar.got)
      numbers += FormatText("%02X ", static_cast<UINT>(each.what) & 0xFF);
    return numbers;
  }
  std::string CursorReadouts() {
    return Sent([this] { TheGraph().UpdateCursorsReadout(); });
  }
  std::string Statistics() {
    return Sent([this] { TheGraph().UpdateStaParams(); });
  }
  /// What they told.
  std::string Values() const {
    std::string values;
    for (const ReadoutRecord& each : bar.got)
      values += each.what == Readout::samples
                    ? FormatText("%d %s, ", each.count, each.text.c_str())
                    : FormatText("%.5g %s, ", each.value, each.text.c_str());
    return values;
  }
  ReadoutRecord Told(Readout what) const {
    for (const ReadoutRecord& each : bar.got) {
      if (each.what == what)
        return each;
    }
    ADD_FAILURE() << "no readout " << static_cast<UINT>(what);
    return {};
  }

  InfoBar bar;
  const std::string all = "6A 6B 6C 6D 7B 7C 6E 6F 70 78 79 ";
  const std::string statistics = "7A 72 73 74 75 76 77 ";
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
  EXPECT_EQ(Values(),
            "1 s, 3 V, 2 s, 2 V, -1 V/s, -1 s/V, 1 s, -1 V, 2 Sample, 2 V/s, 666.67 mV/s/s, ");
  // 6 V in 3 s, of which the cursors span -1 V; both by the whole 3 s.
  EXPECT_DOUBLE_EQ(Told(Readout::drift).cursorValue, -1.0 / 3);
  EXPECT_DOUBLE_EQ(Told(Readout::driftOfDrift).cursorValue, -1000.0 / 9);
  EXPECT_DOUBLE_EQ(Told(Readout::driftOfDrift).rawValue, 2.0 / 3);

  EXPECT_EQ(Statistics(), statistics);
  EXPECT_TRUE(Told(Readout::hasStatistics).hasStatistics);
  EXPECT_EQ(Values(), "0 , 1 V, 7 V, 6 V, 3.25 V, 2.2776 V, 2.2361 V, ");
  series.SetUnits("A");
  CursorReadouts();
  EXPECT_EQ(Told(Readout::drift).text, "A/s") << "before an update";
}

TEST_F(ReadoutsTest, XAndYOfACursorAreOfOneSample) {
  struct Moving : GatedSeries {
    double yLCursorGet() const override {
      const double y = ViewData::yLCursorGet();
      if (moves-- > 0)  // as a user does while a worker asks
        const_cast<Moving*>(this)->iLCursor += 1;
      return y;
    }
    mutable int moves = 0;
  };
  auto& moving = Make<Moving>("Moving");
  Fill(moving, {{0, 0}, {10, 1}, {20, 2}, {30, 3}, {40, 4}});
  OpenView(moving);
  TheGraph().active = true;
  view->UpdateGraph();
  moving.moves = 2;
  CursorReadouts();
  EXPECT_EQ(Told(Readout::leftX).value, 20);
  EXPECT_EQ(Told(Readout::leftY).value, 2);
  moving.iLCursor = 0;
  moving.moves = 1000;
  EXPECT_EQ(CursorReadouts(), "") << "whoever moves it sends";
}

TEST_F(ReadoutsTest, WhatHasNoDivisorIsNotSent) {
  const struct {
    Points samples;
    unsigned left, right;
    const char* sent;
  } cases[] = {{{{0, 2}, {1, 5}, {1, 2}, {1, 5}}, 1, 2, "6A 6B 6C 6D 7C 6E 6F 70 78 79 "},
               {{{0, 2}, {1, 5}, {1, 2}, {1, 5}}, 0, 2, "6A 6B 6C 6D 7B 6E 6F 70 78 79 "},
               {{{5, 2}}, 0, 0, "6A 6B 6C 6D 6E 6F 70 "},
               {{{0, 2}, {1e-310, 2}}, 0, 1, "6A 6B 6C 6D 6E 6F 70 "}};
  for (const auto& each : cases) {
    Show(each.samples, each.left, each.right);
    EXPECT_EQ(CursorReadouts(), each.sent);
  }
}

TEST_F(ReadoutsTest, WhenNothingIsSent) {
  EXPECT_EQ(CursorReadouts(), "") << "no samples";
  ShowVolts();
  TheGraph().active = false;
  EXPECT_EQ(CursorReadouts(), "");
  EXPECT_EQ(Statistics(), statistics) << "also of a graph that isn't active";
  TheGraph().active = true;
  series.inTransfer = true;
  EXPECT_EQ(CursorReadouts(), "");
  Graph::RestrictGraphOperationInRealTime = false;
  EXPECT_EQ(CursorReadouts(), all);
  EXPECT_EQ(Statistics(), "");
  series.inTransfer = false;
  for (const int noSample : {-1, 4}) {
    series.iRCursor = noSample;
    EXPECT_EQ(CursorReadouts(), "") << noSample;
  }
}

TEST_F(ReadoutsTest, ACalculatedSeriesHasNoStatisticsAndNoDriftOfItsCursors) {
  ShowVolts();
  auto& calculated = Make<ViewData>("Derivative", &series);
  Fill(calculated, 10);
  OpenView(calculated);
  TheGraph().active = true;
  calculated.SetLCursor(3);
  CursorReadouts();
  EXPECT_EQ(Told(Readout::drift).cursorValue, Told(Readout::drift).value);
  EXPECT_EQ(Statistics(), "7A ");
  EXPECT_FALSE(Told(Readout::hasStatistics).hasStatistics);
}

TEST_F(ReadoutsTest, UpdatesWorkersAndCursorMovesSend) {
  for (const auto& [n, unit] : {std::pair{5000u, "mol"}, {20000u, "cd"}}) {
    series.SetUnits(unit);
    EXPECT_EQ(Sent([&, n = n] { GraphTest::Show(n), AwaitIdle(); }), all + statistics) << n;
    EXPECT_TRUE(Told(Readout::mean).text.ends_with(unit));
  }
  EXPECT_EQ(Sent([this] { TheGraph().MoveLCursor(1); }), "7D ");
  EXPECT_EQ(Sent([this] { TheGraph().UpdateDriftRate(); }), "78 79 ");
  const auto drag = [this] {
    TheGraph().BeginDragLeftCursor();
    CPoint point{300, 100};
    TheGraph().DragCursor(point);
    TheGraph().EndDragCursor();
  };
  EXPECT_EQ(Sent(drag), "7D " + all);
}

TEST_F(ReadoutsTest, RecordsAreWhole) {
  const HWND receiver = bar.GetSafeHwnd();
  Sent([&] { ReadoutSender(receiver).Send(WM_READOUT_MEAN, 1, "V"); });
  const auto [wParam, lParam] = bar.raw;
  EXPECT_FALSE(TakeReadout(WM_READOUT_MAXIMUM, wParam, lParam)) << "another one's";
  EXPECT_FALSE(TakeReadout(WM_READOUT_MEAN, 0, lParam)) << "nobody's";
  const ReadoutSender slow(receiver);
  ReadoutSender(receiver).Send(WM_READOUT_MEAN, 2, "V");
  slow.Send(WM_READOUT_MEAN, 3, "V");
  EXPECT_EQ(TakeReadout(WM_READOUT_MEAN, wParam, lParam)->value, 2) << "the older one";

  std::jthread worker([&](const std::stop_token& enough) {
    for (bool big = false; !enough.stop_requested(); big = !big)
      ReadoutSender(receiver).Send(WM_READOUT_MEAN, big ? 5e6 : 1, "V");
  });
  for (int i = 0; i < 20000; ++i) {
    const auto record = TakeReadout(WM_READOUT_MEAN, wParam, lParam);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->text, record->value == 5 ? "MV" : "V");
  }
}

}  // namespace
}  // namespace sparlow
