#include <bit>
#include <limits>
#include <random>

#include "sparlow/ui/CGraphScale.h"
#include "sparlow/ui/ValueText.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

using test::TestDialog;

TEST(ValueTextTest, ReadsWhatPeopleWrite) {
  const struct {
    const char* text;
    const char* unit;
    double value;
    const char* decimalSign = ".";
  } cases[] = {
      {"12.5m", "s", 12.5e-3},
      {" -.5e-3 ", "s", -.5e-3},
      {"5 m", "m", 5.0},
      {"5 mm", "m", 5e-3},
      {"3\xC2\xB5V", "V", 3e-6},
      {"3 \xCE\xBCV", "V", 3e-6},
      {"4MV", "V", 4e6},
      {"20 \xC2\xB0", "\xB0", 20.0},
      {"5e0 1/s", "1/s", 5.0},
      {"1,5", "V", 1.5, ","},
      {"-,5 mV", "V", -5e-4, ","},
      {"1.5", "V", 1.5, ","},
      {"2\u066B5", "V", 2.5, "\u066B"},
      {"1,5 a.u.", "a.u.", 1.5, ","},
  };
  for (const auto& c : cases)
    EXPECT_EQ(ReadValue(c.text, c.unit, c.decimalSign), c.value) << c.text;
  for (const char* const text :
       {"1e400", "1e-400", "1e99999999999", "five", "", "V", "1,5", "1 2", "nan", "inf", "0x10",
        "+-1", "1 kHz", "1 KV", "1e", ".", "1,234.5"})
    EXPECT_EQ(ReadValue(text, "V", "."), std::nullopt) << text;
  for (const char* const text : {"1.234,5", "1,234,5", "1 234,5", "1'234", ","})
    EXPECT_EQ(ReadValue(text, "V", ","), std::nullopt) << text;
}

TEST(ValueTextTest, TellsTheEndsOfARangeApart) {
  const struct {
    double min, max;
    const char* shown;
  } cases[] = {{0, 1.0 / 3, "333.33333 mV"},
               {9999.2345, 10000.2345, "10.0002345 kV"},
               {1e9 + 1.0 / 3, 1e9 + 2e-3 / 3, "1.0000000000007 GV"},
               {1e15, 1e15 + 0.25, "1.0000000000000002e15 V"},
               {0, 0.25, "250 mV"},
               {0, 1e300, "1e300 V"},
               {-1e30, 0.0, "0 V"}};
  for (const auto& c : cases)
    EXPECT_EQ(ShowValue(c.max, "V", DigitsToTell(c.max, c.min)), c.shown);
}

TEST(ValueTextTest, ShowsThePrefixOfTheAxisAndEveryDigit) {
  EXPECT_EQ(ShowValue(0.0125, "s", 17), "12.5 ms");
  EXPECT_EQ(ShowValue(0.0, "V", 17), "0 V");
  EXPECT_EQ(ShowValue(20.0, "\xB0", 17), "20 \xC2\xB0");

  std::mt19937_64 bits(4711);
  for (int i = 0; i < 20000; ++i) {
    const auto value = std::bit_cast<double>(bits());
    if (!std::isnormal(value))
      continue;
    // Every other one of a size that prefixes are for.
    const double shown = i % 2 == 0 ? value : std::ldexp(value, -std::ilogb(value) + i % 100 - 50);
    for (const char* const unit : {"", "s", "m", "V", "e5"})
      ASSERT_EQ(ReadValue(ShowValue(shown, unit, 17), unit, "."), shown) << unit;
  }
}

class AxisDialogTest : public GraphTest {
 protected:
  AxisDialogTest() {
    SetApplicationName("Probe");
    UiThread::SetBoxHandler([this](const BoxRequest& box) {
      EXPECT_EQ(box.caption, "Probe: Input error");
      EXPECT_EQ(box.style, MB_ICONHAND | MB_TASKMODAL);
      boxes.push_back(box.text);
      if (onBox)
        onBox();
      return IDOK;
    });
    Fill(series, 1000);
    view->UpdateGraph();
    before = axis.ver;
  }
  ~AxisDialogTest() override { SetApplicationName(""); }

  /// Opens the dialog of the vertical axis, unticks Auto Range and enters texts.
  void Edit(const char* min, const char* max, int button = IDOK) {
    Run([=](TestDialog& dialog) {
      if (dialog.items[IDC_AUTO_RANGE].checked)
        dialog.Click(IDC_AUTO_RANGE);
      for (const int field : {IDC_MIN_VALUE, IDC_MAX_VALUE})
        EXPECT_TRUE(dialog.items[field].enabled);
      dialog.items[IDC_MIN_VALUE].text = min;
      dialog.items[IDC_MAX_VALUE].text = max;
      dialog.Click(button);
    });
  }
  void Run(TestDialog::Script script) {
    system.onDialog = [this, script](TestDialog& dialog) {
      script(dialog);
      closed = dialog.closed;
      focus = dialog.focus;
    };
    boxes.clear();
    SendMessage(view->GetSafeHwnd(), WM_SPARLOW_COMMAND, 5, 0);
  }
  void ExpectRange(double min, double max, bool autoRange) {
    EXPECT_EQ(axis.ver.fixedMin, min);
    EXPECT_EQ(axis.ver.fixedMax, max);
    EXPECT_EQ(axis.ver.autoRange, autoRange);
  }

  AxisData before;
  std::vector<std::string> boxes;
  std::function<void()> onBox;
  bool closed = false;
  int focus = 0;
};

TEST_F(AxisDialogTest, FixesARangeAndAFieldLeftAloneGivesItsValueBack) {
  EXPECT_EQ(before.fixedMin, before.min) << "what an automatic axis shows is what is edited";
  EXPECT_EQ(before.fixedMax, before.max);
  Edit("-2", "-1500 m");
  EXPECT_TRUE(closed);
  ExpectRange(-2.0, -1.5, false);
  EXPECT_EQ(axis.ver.min, -2.0);

  axis.ver.fixedMin = 0.1 + 0.2;
  axis.ver.fixedMax = 1.0 / 3.0 * 1e30;
  Run([](TestDialog& dialog) { dialog.Click(IDOK); });
  EXPECT_TRUE(boxes.empty());
  ExpectRange(0.1 + 0.2, 1.0 / 3.0 * 1e30, false);
}

TEST_F(AxisDialogTest, WhatIsRefusedIsToldAndTheDialogStays) {
  const struct {
    const char* min;
    const char* max;
    const char* told;
    int focus = 0;
    bool log = false;
  } cases[] = {
      {"1", "1", "Maximum value must be greater than minimum value."},
      {"1", "900 m", "Maximum value must be greater than minimum value."},
      {"1", "high",
       "Maximum: \"high\" is not a number, with a prefix (p n u m k M G T) and s if need be.",
       IDC_MAX_VALUE},
      {"1e400", "1", "Minimum: \"1e400\" is not a number", IDC_MIN_VALUE},
      {"0", "1", "Minimum value of a logarithmic axis must be greater than zero.", IDC_MIN_VALUE,
       true},
  };
  for (const auto& c : cases) {
    axis.ver.log = c.log;
    Edit(c.min, c.max);
    ASSERT_EQ(boxes.size(), 1u) << c.max;
    EXPECT_TRUE(boxes[0].starts_with(c.told)) << boxes[0];
    EXPECT_FALSE(closed);
    EXPECT_EQ(focus, c.focus);
    ExpectRange(before.fixedMin, before.fixedMax, false);
    axis.ver.autoRange = true;
  }
  axis.ver = before;
  Edit("5", "7", IDCANCEL);
  EXPECT_TRUE(closed);
  ExpectRange(before.fixedMin, before.fixedMax, false);
}

// The box shows a tick on an axis that the host has preset, too.
TEST_F(AxisDialogTest, AutoRangeEndsAPresetRangeUnlessItIsCancelled) {
  const auto preset = [this] {
    axis.Preset(-5, 5, 0, 10);
    view->UpdateGraph();
  };
  for (const auto& [button, ends] : {std::pair{IDCANCEL, false}, {IDOK, true}}) {
    preset();
    EXPECT_EQ(axis.ver.power, 0);
    Run([button = button](TestDialog& dialog) {
      EXPECT_FALSE(dialog.items[IDC_MIN_VALUE].enabled);
      dialog.items[IDC_MAX_VALUE].text = "rubbish";
      dialog.Click(button);
    });
    EXPECT_TRUE(closed) << "nothing is compared";
    EXPECT_EQ(axis.preset, !ends);
    EXPECT_EQ(axis.ver.max < 5, ends);
  }
  preset();
  Edit("1", "2");
  EXPECT_TRUE(axis.preset);
  Run([](TestDialog& dialog) { dialog.Click(IDC_AUTO_RANGE), dialog.Click(IDCANCEL); });
  EXPECT_FALSE(axis.preset) << "ticked, and a tick holds after a cancel";
}

TEST_F(AxisDialogTest, HelpIsSoughtBesideTheProgram) {
  Run([](TestDialog& dialog) { dialog.AskForHelp(); });
  ASSERT_EQ(system.help.size(), 1u);
  EXPECT_TRUE(system.help[0].first.ends_with("/Merivox.chm"));
  EXPECT_EQ(system.help[0].first.find("ui_tests"), std::string::npos) << system.help[0].first;
  EXPECT_EQ(system.help[0].second, 0x200C1u);
}

TEST_F(AxisDialogTest, TheViewMayEndInsideTheDialogAndItsBox) {
  onBox = [this] { CloseView(); };
  Edit("2", "1");
  EXPECT_EQ(boxes.size(), 1u);
  Pump();
  ExpectRange(before.fixedMin, before.fixedMax, true);
}

}  // namespace
}  // namespace sparlow
