#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>

#include "sparlow/platform/qt/QtMessageBox.h"
#include "sparlow/platform/window/CMenu.h"
#include "sparlow/platform/window/WindowPeer.h"
#include "sparlow/ui/CGraphScale.h"
#include "sparlow/ui/Module.h"
#include "tests/qt/QtEnvironment.h"

namespace sparlow::test {
namespace {

QMenu* OpenMenu() {
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

void Press(QWidget* widget, int key) {
  ASSERT_NE(widget, nullptr);
  const QPointer<QWidget> alive(widget);
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    if (alive)
      QApplication::sendEvent(widget, &event);
  }
}

/// Runs one step after the other, each from the event loop, whatever loop that is then; a step may
/// open another one.
class Steps {
 public:
  explicit Steps(std::vector<std::function<void()>> steps) : steps_(std::move(steps)) {
    schedule();
  }
  ~Steps() { EXPECT_EQ(next_, steps_.size()) << "steps that never came"; }

 private:
  void schedule() {
    QTimer::singleShot(1, &context_, [this] {
      if (next_ == steps_.size())
        return;
      schedule();
      steps_[next_++]();
    });
  }

  std::vector<std::function<void()>> steps_;
  std::size_t next_ = 0;
  QObject context_;
};

struct QtMenuDialogTest : QtTest {
  QtMenuDialogTest() {
    subMenu.CreatePopupMenu();
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 1, "One\tCtrl+ +");
    menu.AppendMenu(MF_GRAYED, 2, "Two");
    menu.AppendMenu(MF_POPUP, subMenu, "&Select");
    subMenu.AppendMenu(MF_STRING, 101, "Upper");
    subMenu.AppendMenu(MF_STRING | MF_CHECKED, 102, "Low\xE4r");
    AttachResources();
  }

  void Track() { menu.TrackPopupMenu(0, 20, 20, view); }
  void End() { view->DestroyWindow(); }

  CMenu menu;
  CMenu subMenu;
};

TEST_F(QtMenuDialogTest, AMenuWorksByKeyboardAndShowsWhatItsOwnerSays) {
  std::vector<WPARAM> told;
  view->onMessage = [&](UINT message, WPARAM wParam) {
    if (message == WM_COMMAND || message == WM_USER)
      told.push_back(wParam);
    if (message != WM_INITMENUPOPUP)
      return;
    auto* const popup = reinterpret_cast<CMenu*>(wParam);
    popup->CheckMenuItem(1, MF_CHECKED);
    popup->CheckMenuRadioItem(101, 102, 102, MF_BYCOMMAND);
  };
  menu.CheckMenuRadioItem(101, 102, 102, MF_BYCOMMAND);
  EXPECT_FALSE(menu.CheckMenuRadioItem(101, 102, 103, MF_BYCOMMAND));
  EXPECT_TRUE(menu.CheckMenuRadioItem(101, 102, 101, MF_BYCOMMAND));
  EXPECT_FALSE(subMenu.Items()[1].checked);
  // Paints and posted messages must come through the menu's loop.
  PostMessage(window, WM_USER, 7, 0);
  RedrawWindow(window);
  Steps steps({[] {}, [] {}, [] {},
               [&] {
                 EXPECT_EQ(told, std::vector<WPARAM>{7});
                 EXPECT_GT(view->draws, 0);
                 const QList<QAction*> lines = OpenMenu()->actions();
                 EXPECT_EQ(lines[0]->text(), "One\tCtrl+ +");
                 EXPECT_TRUE(lines[0]->isChecked());
                 EXPECT_FALSE(lines[1]->isEnabled());
                 EXPECT_FALSE(lines[1]->isChecked());
                 for (const int key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right})
                   Press(OpenMenu(), key);
               },
               [&] {
                 const QAction* const line = OpenMenu()->actions().at(1);
                 EXPECT_EQ(line->text(), QString::fromUtf8("Low\xC3\xA4r"));
                 EXPECT_TRUE(line->isChecked());
                 EXPECT_NE(line->actionGroup(), nullptr) << "the mark of a choice";
                 Press(OpenMenu(), Qt::Key_Down);
                 Press(OpenMenu(), Qt::Key_Return);
               }});
  Track();
  EXPECT_EQ(told.size(), 1u) << "posted, not sent";
  app->ProcessEvents();
  EXPECT_EQ(told.back(), 102u);
}

TEST_F(QtMenuDialogTest, AMenuEndsWithAnOwnerThatIsInTheMiddleOfAPress) {
  view->onMessage = [&](UINT message, WPARAM) {
    if (message == WM_RBUTTONDOWN)
      Track();
  };
  Steps steps({[&] { End(); }});
  QWidget* const client = qt::WidgetOf(*view)->findChild<QWidget*>("qt_scrollarea_viewport");
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), client->mapToGlobal(QPointF(5, 5)),
                    Qt::RightButton, Qt::RightButton, Qt::NoModifier);
  QApplication::sendEvent(client, &press);
  EXPECT_TRUE(deleted);
  app->ProcessEvents();
}

TEST_F(QtMenuDialogTest, TheItemsOfADialogHaveRoomForTheirTexts) {
  AxisRange range{-1.0 / 3, -1.0 / 3 + 1e-15, false, "counts"};
  Steps steps({[] {
    QWidget* const dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(dialog->windowTitle().isEmpty());
    const QList<QWidget*> items = dialog->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (const QWidget* const item : items) {
      EXPECT_TRUE(dialog->rect().contains(item->geometry()));
      EXPECT_EQ(std::count_if(items.begin(), items.end(),
                              [&](const QWidget* other) {
                                return other->geometry().intersects(item->geometry());
                              }),
                1)
          << "with itself";
    }
    const QList<QLineEdit*> fields = dialog->findChildren<QLineEdit*>();
    EXPECT_EQ(fields.first()->x(), fields.last()->x());
    for (const QLineEdit* const field : fields) {
      EXPECT_TRUE(field->text().endsWith(" mcounts")) << field->text().toStdString();
      EXPECT_GT(field->width(), field->fontMetrics().horizontalAdvance(field->text()));
    }
    EXPECT_EQ(WindowSystem::Current()->DecimalSign(),
              QLocale::system().decimalPoint().toStdString());
    Press(dialog, Qt::Key_Escape);
  }});
  AxisDialog().Edit(range);
  EXPECT_FALSE(range.confirmed);
}

TEST_F(QtMenuDialogTest, ADialogOpensOverTheMiddleOfItsWindowAndOnTheScreen) {
  QWidget* const widget = qt::WidgetOf(*view);
  const QRect screen = QApplication::primaryScreen()->availableGeometry();
  for (const QPoint at : {screen.center(), screen.topLeft(), screen.bottomRight()}) {
    widget->move(at);
    AxisRange range{0.0, 1.0, false, "V"};
    Steps steps({[&] {
      QWidget* const dialog = QApplication::activeModalWidget();
      EXPECT_TRUE(screen.contains(dialog->frameGeometry()));
      EXPECT_EQ(dialog->windowHandle()->transientParent(), widget->windowHandle());
      if (at == screen.center()) {
        const QPoint off = dialog->frameGeometry().center() - widget->frameGeometry().center();
        EXPECT_LE(off.manhattanLength(), 2);
      }
      auto* const box = dialog->findChild<QCheckBox*>();
      for (const bool automatic : {true, false}) {
        box->click();
        EXPECT_EQ(dialog->findChild<QLineEdit*>()->isEnabled(), !automatic);
      }
      Press(dialog, Qt::Key_Escape);
    }});
    AxisDialog().Edit(range);
    EXPECT_FALSE(range.autoRange);
  }
}

TEST_F(QtMenuDialogTest, ARefusedFieldIsReadyToBeTypedOver) {
  AxisRange range{0.0, 1.0, false, "V"};
  Steps steps({[] {
    QWidget* const dialog = QApplication::activeModalWidget();
    QLineEdit* const field = dialog->findChildren<QLineEdit*>().last();
    field->setText("much");
    Press(dialog, Qt::Key_Return);
    EXPECT_EQ(dialog->focusWidget(), field);
    EXPECT_EQ(field->selectedText(), "much");
    Press(dialog, Qt::Key_Escape);
  }});
  AxisDialog().Edit(range);
  EXPECT_FALSE(range.confirmed);
}

TEST_F(QtMenuDialogTest, ADialogAndItsBoxEndWithTheirWindow) {
  UiThread::SetBoxHandler(qt::OpenMessageBox);
  AxisRange range{3.0, 2.0, false, "V"};
  Steps steps({[] { Press(QApplication::activeModalWidget(), Qt::Key_Return); },
               [&] {
                 const auto* const box =
                     qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                 ASSERT_NE(box, nullptr);
                 EXPECT_EQ(box->icon(), QMessageBox::Critical);
                 End();
               }});
  AxisDialog().Edit(range);
  EXPECT_TRUE(deleted);
  EXPECT_EQ(range.min, 3.0);
  UiThread::SetBoxHandler(nullptr);
}

}  // namespace
}  // namespace sparlow::test
