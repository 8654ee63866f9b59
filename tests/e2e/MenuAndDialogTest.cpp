// The popup menu and the dialog that fixes an axis.

#include <QAbstractButton>
#include <QMenu>
#include <QMessageBox>

#include "sparlow/graph/GraphColors.h"
#include "tests/e2e/ScreenTest.h"

namespace sparlow::host {
namespace {

class MenuAndDialog : public ScreenTest {
 protected:
  /// Where something is on the screen; null while it isn't there.
  using Place = std::function<QPoint()>;

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
  /// A button with a text, or a field with a name.
  static QWidget* InDialog(const QString& name) {
    const QWidget* const dialog = QApplication::activeModalWidget();
    for (QWidget* const found : dialog ? dialog->findChildren<QWidget*>() : QList<QWidget*>()) {
      const auto* const button = qobject_cast<QAbstractButton*>(found);
      if (found->accessibleName() == name || (button && button->text() == name))
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
  void ClickInDialog(const char* name) {
    Click(name, [=] {
      // On the box of a check box: its text may end before the middle.
      const QWidget* const found = InDialog(name);
      return found ? found->mapToGlobal(QPoint(8, found->height() / 2)) : QPoint();
    });
  }
  void Type(const char* field, const char* text) {
    ClickInDialog(field);
    Do(QString("key ctrl+a type ") + text);
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

TEST_F(MenuAndDialog, TheVerticalAxisIsFixed) {
  RunKnownFile([this] {
    const Shown automatic = Settled();
    Do(To(0.5, 0.4) + "click 3");
    ClickItem("Vertical Axis");
    ClickItem("Set Range...");
    ClickInDialog("Auto Range");
    Await("open fields", [] { return InDialog("Maximum")->isEnabled(); });
    Type("Minimum", "4");
    Type("Maximum", "2");
    ClickInDialog("OK");
    Await("a complaint",
          [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr; });
    Do("key Return");
    Type("Maximum", "12.5");
    Picture("7-dialog");
    ClickInDialog("OK");
    Await("the fixed range", [this] { return Look().yMin == 4 && Look().yMax == 12.5; });
    EXPECT_EQ(Settled().xMax, automatic.xMax);
    Await("the heavy line of a fixed axis", [this] {
      return Shows(PlotOrigin() + QPoint(0, PlotSize().height() / 3), GraphColors(0).fixedAxis);
    });
    Close();
  });
}

}  // namespace
}  // namespace sparlow::host
