#include "sparlow/platform/CMenu.h"
#include "sparlow/platform/Input.h"
#include "sparlow/ui/GraphMenu.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

/// The lines of a menu: text, "-" for a separator, submenus in braces; x checked, o one choice, ~
/// gray.
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
  /// Presses the right button and chooses a command, with both submenus opened before.
  void Choose(UINT command) {
    system.onMenu = [this, command](CMenu& menu, CPoint at, HWND owner) {
      EXPECT_EQ(at, (CPoint{110, 70})) << "the point on the screen";
      Open(menu, owner);
      shown = Lines(menu);
      return command;
    };
    SendMessage(view->GetSafeHwnd(), WM_RBUTTONDOWN, 0, PackPoint({10, 20}));
  }
  static void Open(CMenu& menu, HWND owner) {
    menu.TellOpening(owner, 0);
    for (int i = 0; i < menu.GetMenuItemCount(); ++i) {
      if (CMenu* const subMenu = menu.GetSubMenu(i))
        subMenu->TellOpening(owner, i);
    }
  }
  /// Whether each of the four zooms is enabled, as digits.
  std::string Zooms() {
    std::string zooms;
    system.onMenu = [&](CMenu& menu, CPoint, HWND owner) {
      Open(menu, owner);
      for (const int position : {0, 1, 3, 4})
        zooms += menu.Items()[static_cast<std::size_t>(position)].enabled ? '1' : '0';
      return 0u;
    };
    SendMessage(view->GetSafeHwnd(), WM_RBUTTONDOWN, 0, 0);
    return zooms;
  }
  LRESULT Command(std::intptr_t code) {
    return SendMessage(view->GetSafeHwnd(), WM_SPARLOW_COMMAND, static_cast<WPARAM>(code), 7);
  }

  std::string shown;
};

TEST_F(MenuTest, ShowsItsCommandsAndPostsTheOneChosen) {
  Fill(series, 1000);
  view->UpdateGraph();
  Choose(ID_VIEW_SAMPLE_ZOOM_IN);
  EXPECT_EQ(shown,
            "Zoom In\t+ | Zoom Out\t- | - | Zoom In To Cursors\tCtrl+ + | "
            "Zoom Out Full Graph\tCtrl+ - | - | Horizontal Axis {Set Range...} | "
            "Vertical Axis {x AutoZoom | Set Range...}");
  EXPECT_EQ(series.GetIntervalSize(), 1000u) << "not before the menu has gone";
  Pump();
  EXPECT_LT(series.GetIntervalSize(), 1000u);
  Choose(ID_VIEW_FULL_ZOOM_OUT);
  Pump();
  EXPECT_EQ(series.GetIntervalSize(), 1000u);
  Choose(ID_Y_AUTO_ZOOM);
  Pump();
  EXPECT_FALSE(axis.yAutoZoom);
  Choose(0);
  EXPECT_NE(shown.find("{AutoZoom"), std::string::npos) << "without its mark";
}

TEST_F(MenuTest, EnablesTheZoomsThatCanBeDone) {
  EXPECT_EQ(Zooms(), "0000") << "no samples";
  Fill(series, 1000);
  view->UpdateGraph();
  EXPECT_EQ(Zooms(), "1111");
  series.iLCursor = -1;
  EXPECT_EQ(Zooms(), "1101") << "no cursor";
  view->ChangeAxes([](GraphAxis& axes) { axes.hor.autoRange = false; });
  EXPECT_EQ(Zooms(), "0000") << "fixed range";
  Begin(series);
  EXPECT_EQ(Zooms(), "") << "locked by a transfer";
  series.TermDataTransfer();
}

TEST_F(MenuTest, AHostsMenuIsKeptUpToDateToo) {
  struct HostSeries : GatedSeries {
    int GetMenuID() const override { return 0x10000 + 7; }
  } other;
  other.Init("Other", nullptr);
  Fill(other, 10);
  CloseView();
  OpenView({640, 480}, other);
  EXPECT_EQ(Zooms(), "") << "no such menu";
  Resources::AddMenu(7,
                     {{0,
                       "Popup",
                       {{1, "Own", {}},
                        {0, "X", {{ID_X_AUTO_RANGE, "Auto", {}}, {ID_MULTIPLE_ONLY, "Many", {}}}},
                        {0, "Y", {{ID_Y_AUTO_ZOOM, "Zoom", {}}, {ID_Y_AUTO_RANGE, "Auto", {}}}}}}});
  axis.ver.autoRange = false;
  axis.ver.log = true;
  Choose(0);
  EXPECT_EQ(shown, "Own | X {x Auto | ~Many} | Y {x ~Zoom | Auto}");
  CloseView();
  other.Term();
}

TEST_F(MenuTest, TheViewMayEndInsideItsMenu) {
  Fill(series, 1000);
  view->UpdateGraph();
  system.onMenu = [this](CMenu& menu, CPoint, HWND owner) -> UINT {
    CloseView();
    menu.TellOpening(owner, 0);
    return ID_VIEW_SAMPLE_ZOOM_IN;
  };
  SendMessage(view->GetSafeHwnd(), WM_RBUTTONDOWN, 0, 0);
  Pump();
  EXPECT_EQ(series.GetIntervalSize(), 1000u);
}

TEST_F(MenuTest, CodesDoTheSameAlsoDuringATransfer) {
  int dialogs = 0;
  system.onDialog = [&](test::TestDialog&) { ++dialogs; };
  Fill(series, 1000);
  view->UpdateGraph();
  Begin(series);
  AddBlock(series, 1000);
  EXPECT_EQ(Command(0), 0);
  EXPECT_LT(series.GetIntervalSize(), 1000u);
  series.TermDataTransfer();
  for (const std::intptr_t code : {6, -1, 0x10000})
    EXPECT_EQ(Command(code), 0);
  EXPECT_LT(series.GetIntervalSize(), 1000u);
  Command(3);
  EXPECT_EQ(series.GetIntervalSize(), 1000u);
  Command(4);
  Command(5);
  EXPECT_EQ(dialogs, 2);

  CloseView();
  view = new TestView;
  ASSERT_TRUE(view->Create());
  for (std::intptr_t code = 0; code < 6; ++code)
    EXPECT_EQ(Command(code), 0) << "without a graph";
}

TEST(CMenuTest, StatesGoByCommandAlsoInSubmenusThatAreFilledLater) {
  CMenu menu;
  EXPECT_FALSE(menu.AppendMenu(MF_STRING, 1, "to nothing"));
  CMenu series;
  menu.CreatePopupMenu();
  series.CreatePopupMenu();
  EXPECT_TRUE(menu.AppendMenu(MF_GRAYED, 1, "One"));
  EXPECT_TRUE(menu.AppendMenu(MF_SEPARATOR));
  EXPECT_TRUE(menu.AppendMenu(MF_POPUP, series, "&Select"));
  EXPECT_FALSE(series.AppendMenu(MF_POPUP, menu, "a circle"));
  for (const UINT id : {101u, 102u})
    EXPECT_TRUE(series.AppendMenu(MF_STRING, id, "Series"));
  EXPECT_TRUE(menu.CheckMenuRadioItem(101, 102, 101, MF_BYCOMMAND));
  EXPECT_TRUE(menu.CheckMenuRadioItem(101, 102, 102, MF_BYCOMMAND));
  EXPECT_FALSE(menu.CheckMenuRadioItem(101, 103, 103, MF_BYCOMMAND));
  EXPECT_EQ(menu.EnableMenuItem(1, MF_ENABLED), static_cast<int>(MF_GRAYED));
  EXPECT_EQ(menu.CheckMenuItem(0, MF_BYPOSITION | MF_CHECKED), static_cast<int>(MF_UNCHECKED));
  EXPECT_EQ(menu.CheckMenuItem(99, MF_CHECKED), -1);
  series.DestroyMenu();
  EXPECT_EQ(Lines(menu), "x One | - | &Select {Series | o Series}");
}

}  // namespace
}  // namespace sparlow
