// The popup menu and the dialog that fixes an axis.

#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

#include "sparlow/graph/GraphColors.h"
#include "tests/e2e/ScreenTest.h"

namespace sparlow::host {
namespace {

class MenuAndDialog : public ScreenTest {
 protected:
  /// Where something is on the screen; null while it isn't there.
  using Place = std::function<QPoint()>;

  static QPoint MiddleOf(const QWidget* widget) {
    return widget && widget->isVisible() ? widget->mapToGlobal(widget->rect().center()) : QPoint();
  }
  static QPoint ItemPlace(const QString& text) {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      const auto* const menu = qobject_cast<QMenu*>(widget);
      if (!menu || !menu->isVisible())
        continue;
      for (QAction* const action : menu->actions()) {
        if (action->text().section('\t', 0, 0) == text)
          return menu->mapToGlobal(menu->actionGeometry(action).center());
      }
    }
    return {};
  }
  template <class Kind>
  static Kind* InDialog(const QString& name) {
    const QWidget* const dialog = QApplication::activeModalWidget();
    for (Kind* const found : dialog ? dialog->findChildren<Kind*>() : QList<Kind*>()) {
      if (found->accessibleName() == name || found->property("text").toString() == name)
        return found;
    }
    return nullptr;
  }

  void Click(const char* what, const Place& place, const QString& clicks = "click 1") {
    Await(what, [&] { return !place().isNull(); });
    Do(To(InHost(place)) + "sleep 0.1 " + clicks);
  }
  void ClickItem(const char* text) {
    Click(text, [=] { return ItemPlace(text); });
  }
  void Type(const char* field, const char* text) {
    Click(field, [=] { return MiddleOf(InDialog<QLineEdit>(field)); });
    Do(QString("key ctrl+a type ") + text);
  }
  void PressOk() {
    Click("OK", [] { return MiddleOf(InDialog<QPushButton>("OK")); });
  }
  void OpenRangeDialog() {
    Do(To(0.5, 0.4) + "click 3");
    ClickItem("Vertical Axis");
    ClickItem("Set Range...");
    Await("the dialog", [] { return InDialog<QLineEdit>("Maximum") != nullptr; });
  }
  void ClickAutoRange() {
    Click("Auto Range", [] {
      // On the box itself: the text may end before the middle.
      const auto* const box = InDialog<QCheckBox>("Auto Range");
      return box ? box->mapToGlobal(QPoint(8, box->height() / 2)) : QPoint();
    });
  }
  /// Whether the left edge of the plot is the heavy line of a fixed axis.
  bool LineIsHeavy() {
    return InHost([this] {
      return Shows(PlotOrigin() + QPoint(0, PlotSize().height() / 3), GraphColors(0).fixedAxis);
    });
  }
};

TEST_F(MenuAndDialog, CommandsByMouseAndByKeyboard) {
  RunKnownFile([this] {
    const Shown whole = Settled();
    Drag(To(0.3, 0.3), To(0.6, 0.7));
    Do("mouseup 1");
    Await("a zoom", [&] { return Look().to < whole.to; });
    Do(To(0.4, 0.4) + "click 3");
    ClickItem("Zoom Out Full Graph");
    Await("all samples", [&] { return Look().to - Look().from == whole.size; });
    EXPECT_EQ(Settled().xMax, whole.xMax);

    Do("sleep 0.3 key shift+F10");
    Await("the menu", [] { return !ItemPlace("Zoom In").isNull(); });
    Picture("6-menu");
    Do("key Down key Return");
    Await("half of them", [&] { return Look().to - Look().from <= whole.size / 2 + 1; });
    Close();
  });
}

TEST_F(MenuAndDialog, TheVerticalAxisIsFixedAndGivenBack) {
  RunKnownFile([this] {
    const Shown automatic = Settled();
    OpenRangeDialog();
    ClickAutoRange();
    Await("open fields", [] { return InDialog<QLineEdit>("Maximum")->isEnabled(); });
    Type("Minimum", "4");
    Type("Maximum", "2");
    PressOk();
    Await("a complaint",
          [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr; });
    Do("key Return");
    Type("Maximum", "12.5");
    Picture("7-dialog");
    PressOk();
    Await("the fixed range", [this] { return Look().yMin == 4 && Look().yMax == 12.5; });
    EXPECT_EQ(Settled().xMax, automatic.xMax);
    EXPECT_TRUE(LineIsHeavy());
    OpenRangeDialog();
    ClickAutoRange();
    PressOk();
    Await("the automatic range", [&] { return Look().yMax == automatic.yMax; });
    EXPECT_EQ(Settled(), automatic);
    EXPECT_FALSE(LineIsHeavy());
    Close();
  });
}

}  // namespace
}  // namespace sparlow::host
