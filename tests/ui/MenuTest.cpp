#include <algorithm>

#include "sparlow/platform/window/CMenu.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/ui/GraphMenu.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

/// The lines of a menu: x checked, o one choice, ~ gray, - a separator; submenus in braces.
std::string Lines(const CMenu& menu) {
  std::string lines;
  for (const MenuItem& item : menu.Items()) {
    lines += lines.empty() ? "" : " | ";
    lines += item.radio ? "o " : item.checked ? "x " : "";
    lines += item.enabled ? "" : "~";
    lines += item.id == 0 && !item.subMenu ? "-" : item.text;
    if (item.subMenu)
      lines += " {" + Lines(*item.subMenu) + "}";
  }
  return lines;
}

class MenuTest : public GraphTest {
 protected:
  /// Presses the right button, opens both submenus and chooses a command. Gives what was shown.
  std::string Choose(UINT command) {
    std::string shown;
    system.onMenu = [&](CMenu& menu, CPoint at, HWND owner) {
      EXPECT_EQ(at, (CPoint{110, 70})) << "the point on the screen";
      menu.NotifyOpening(owner, 0);
      for (int i = 0; i < static_cast<int>(menu.Items().size()); ++i) {
        if (CMenu* const subMenu = menu.GetSubMenu(i))
          subMenu->NotifyOpening(owner, i);
      }
      shown = Lines(menu);
      return command;
    };
    SendMessage(view->GetSafeHwnd(), WM_RBUTTONDOWN, 0, PackPoint({10, 20}));
    return shown;
  }
  LRESULT Command(std::intptr_t code) {
    return SendMessage(view->GetSafeHwnd(), WM_SPARLOW_COMMAND, static_cast<WPARAM>(code), 7);
  }
};

TEST_F(MenuTest, ShowsItsCommandsAndPostsTheOneChosen) {
  Show(1000);
  EXPECT_EQ(Choose(ID_VIEW_SAMPLE_ZOOM_IN),
            "Zoom In\t+ | Zoom Out\t- | - | Zoom In To Cursors\tCtrl+ + | "
            "Zoom Out Full Graph\tCtrl+ - | - | Horizontal Axis {Set Range...} | "
            "Vertical Axis {x AutoZoom | Set Range...}");
  EXPECT_EQ(series.GetIntervalSize(), 1000u) << "not before the menu has gone";
  Pump();
  EXPECT_LT(series.GetIntervalSize(), 1000u);
  Choose(ID_Y_AUTO_ZOOM);
  Pump();
  EXPECT_NE(Choose(0).find("{AutoZoom"), std::string::npos) << "without its mark";
}

TEST_F(MenuTest, EnablesTheZoomsThatCanBeDone) {
  const auto gray = [this] {
    const std::string shown = Choose(0);
    return std::count(shown.begin(), shown.end(), '~');
  };
  EXPECT_EQ(gray(), 4) << "no samples";
  Show(1000);
  EXPECT_EQ(gray(), 0);
  series.iLCursor = -1;
  EXPECT_EQ(gray(), 1);
  EXPECT_NE(Choose(0).find("~Zoom In To Cursors"), std::string::npos);
  view->ChangeAxes([](GraphAxis& axes) { axes.hor.autoRange = false; });
  EXPECT_EQ(gray(), 4) << "fixed range";
  Begin(series);
  EXPECT_EQ(Choose(0), "") << "locked by a transfer";
  series.TermDataTransfer();
}

TEST_F(MenuTest, AHostsMenuIsKeptUpToDateToo) {
  static int number = 6;
  ++number;  // what is entered among the resources stays there, also when tests are repeated
  struct HostSeries : GatedSeries {
    int GetMenuID() const override { return 0x10000 + number; }
  };
  auto& other = Make<HostSeries>("Other");
  OpenView(other);
  Fill(other, 10);
  view->UpdateGraph();
  EXPECT_EQ(Choose(0), "") << "no such menu";
  Resources::AddMenu(number,
                     {{0,
                       "Popup",
                       {{1, "Own", {}},
                        {0, "X", {{ID_X_AUTO_RANGE, "Auto", {}}, {ID_MULTIPLE_ONLY, "Many", {}}}},
                        {0, "Y", {{ID_Y_AUTO_ZOOM, "Zoom", {}}, {ID_Y_AUTO_RANGE, "Auto", {}}}}}}});
  axis.ver.autoRange = false;
  axis.ver.log = true;
  EXPECT_EQ(Choose(0), "Own | X {x Auto | ~Many} | Y {x ~Zoom | Auto}");
  std::swap(axis.hor.autoRange, axis.ver.autoRange);
  EXPECT_EQ(Choose(0), "Own | X {Auto | ~Many} | Y {x ~Zoom | x Auto}");
}

TEST_F(MenuTest, CodesDoTheSameAlsoDuringATransfer) {
  int dialogs = 0;
  system.onDialog = [&](test::TestDialog&) { ++dialogs; };
  Show(1000);
  Begin(series);
  AddBlock(series, 1000);
  Command(0);
  EXPECT_LT(series.GetIntervalSize(), 1000u);
  series.TermDataTransfer();
  for (const std::intptr_t unknown : {6, -1, 0x10000})
    EXPECT_EQ(Command(unknown), 0);
  EXPECT_LT(series.GetIntervalSize(), 1000u);
  Command(3);
  EXPECT_EQ(series.GetIntervalSize(), 1000u);
  Command(4);
  Command(5);
  EXPECT_EQ(dialogs, 2);
}

}  // namespace
}  // namespace sparlow
