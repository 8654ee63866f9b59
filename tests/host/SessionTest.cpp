// The measurement host's window under a user's hand, and what the readouts say.

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QTest>
#include <iostream>
#include <numeric>

#include "examples/host/Session.h"
#include "sparlow/graph/Offset.h"
#include "tests/host/Sources.h"

namespace sparlow::host {
namespace {

class SessionTest : public testing::Test {
 protected:
  ~SessionTest() override { SourceData::AnalyzeDataBetweenCursors = false; }

  /// Shows two ramps of a thousand samples in a second, a volt apart, from 0 and from -500 V; user
  /// does what a user does, and then closes the window.
  void Run(ViewKind view, const std::function<void(Session&)>& user) {
    options.job = HostOptions::Job::files;
    options.view = view;
    Session session(application, options, log, interrupts);
    for (const double first : {0.0, -500.0}) {
      std::vector<double> values(1000);
      std::iota(values.begin(), values.end(), first);
      session.Add(std::make_unique<ListSource>(values, 1000.0));
    }
    QTimer::singleShot(0, qApp, [&] {
      for (QWidget* const each : QApplication::topLevelWidgets())
        window = window ? window : qobject_cast<QMainWindow*>(each);
      ASSERT_NE(window, nullptr);
      EXPECT_TRUE(QTest::qWaitForWindowActive(window));
      user(session);
      window->close();
    });
    session.Run();
  }
  static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  /// Chooses from a menu. False when that isn't on offer.
  bool Choose(const char* action) {
    QMetaObject::invokeMethod(window->findChild<QMenu*>("series.sources"), "aboutToShow");
    auto* const found = window->findChild<QAction*>(QLatin1String(action));
    if (!found || !found->isEnabled())
      return false;
    found->trigger();
    return true;
  }
  void Expect(const QString& readout, const QString& text) {
    SCOPED_TRACE(readout.toStdString());
    const auto* const label = window->findChild<QLabel*>("readout." + readout);
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return label->text() == text; }, 5'000))
        << label->text().toStdString() << " and not " << text.toStdString();
    EXPECT_TRUE(label->accessibleName().endsWith(text));
  }

  int argc = 1;
  char name[5] = "host";
  char* argv[2] = {name, nullptr};
  qt::Application application{argc, argv};
  HostOptions options;
  ErrorLog log{std::cerr};
  const volatile std::sig_atomic_t interrupts = 0;
  QMainWindow* window = nullptr;
};

TEST_F(SessionTest, ReadoutsFollowCursorsZoomsAndTabs) {
  Run(ViewKind::single, [this](Session&) {
    const QString whole =
        "leftX=0 s;leftY=0 V;rightX=999 ms;rightY=999 V;distanceX=999 ms;distanceY=999 V;"
        "slope=1 kV/s;inverseSlope=1 ms/V;samples=1000 Sample;minimum=0 V;maximum=999 V;"
        "span=999 V;mean=499.5 V;standardDeviation=288.675 V;drift=1 kV/s;"
        "driftOfDrift=1.001 kV/s/s;allanDeviation=707.107 mV";
    for (const QString& each : whole.split(';'))
      Expect(each.section('=', 0, 0), each.section('=', 1));
    Key(Qt::Key_Plus);
    Expect("samples", "500 Sample");
    Key(Qt::Key_PageDown);
    Expect("leftX", "500 ms");
    EXPECT_TRUE(Choose("data.betweenCursors"));
    Key(Qt::Key_Right);
    Expect("minimum", "501 V");
    Key(Qt::Key_Tab, Qt::ControlModifier);
    Expect("mean", "-500 mV");
    for (const QMenu* const menu : window->findChildren<QMenu*>()) {
      QStringList keys;
      for (const QAction* const action : menu->actions()) {
        if (!action->isSeparator())
          keys += QKeySequence::mnemonic(action->text()).toString();
      }
      EXPECT_EQ(keys.removeDuplicates(), 0) << menu->title().toStdString();
      EXPECT_FALSE(keys.contains(QString())) << menu->title().toStdString();
    }
  });
}

TEST_F(SessionTest, SeriesMasksAndAnalysesComeAndGo) {
  Run(ViewKind::masks, [this](Session& session) {
    Pane& pane = session.PaneAt(0);
    Expect("mean", "499.5 V");
    EXPECT_TRUE(Choose("series.source.1"));
    Expect("mean", "-500 mV");
    EXPECT_FALSE(Choose("series.source.2")) << "it is the last one";
    EXPECT_TRUE(Choose("series.source.1"));

    EXPECT_TRUE(QTest::qWaitFor([&] { return pane.Settled() && !pane.View().RenderDue(); }));
    const GraphAxis& axis = pane.Axis();
    const QPoint onFirst(Offset::Left(axis.ver.maxLabelLength) + axis.hor.GetPos(0.5),
                         Offset::Top() + axis.ver.GetPosInv(500.0));
    auto* const view = qobject_cast<QAbstractScrollArea*>(qt::WidgetOf(pane.View()))->viewport();
    QTest::mouseMove(view, onFirst);
    EXPECT_EQ(view->cursor().shape(), Qt::BitmapCursor);
    QTest::mouseClick(view, Qt::LeftButton, {}, onFirst);
    Expect("mean", "499.5 V");

    EXPECT_TRUE(Choose("series.average.10"));
    EXPECT_EQ(pane.Count(), 3u);
    EXPECT_TRUE(Choose("masks.mean"));
    EXPECT_TRUE(Choose("masks.average.1000"));
    EXPECT_TRUE(Choose("masks.removeLast"));
    EXPECT_TRUE(pane.AnyMask());
    EXPECT_TRUE(Choose("masks.removeAll"));
    EXPECT_FALSE(pane.AnyMask());
    Key(Qt::Key_Delete);
    EXPECT_EQ(pane.Count(), 2u);
    Expect("mean", "-500 mV");
    EXPECT_TRUE(Choose("analyse.derivative"));
    Expect("leftY", "1 kV/s");
  });
}

}  // namespace
}  // namespace sparlow::host
