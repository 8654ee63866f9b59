// The measurement host's window under a user's hand, and what the readouts say.

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QTest>
#include <QWheelEvent>
#include <iostream>
#include <numeric>

#include "examples/host/Session.h"
#include "examples/host/TimerSource.h"
#include "tests/host/Sources.h"

namespace sparlow::host {
namespace {

class SessionTest : public testing::Test {
 protected:
  SessionTest() {
    options.job = HostOptions::Job::files;
    ShowIn(ViewKind::single);
  }
  ~SessionTest() override {
    session.reset();
    SourceData::AnalyzeDataBetweenCursors = false;
  }

  void ShowIn(ViewKind view) {
    session.reset();
    options.view = view;
    session = std::make_unique<Session>(application, options, log, interrupts);
  }
  /// Chooses a source, counted from 1, in the menu. False when that isn't on offer.
  bool ChooseSource(int number) {
    QMetaObject::invokeMethod(window->findChild<QMenu*>("series.sources"), "aboutToShow");
    auto* const found = window->findChild<QAction*>(QStringLiteral("series.source.%1").arg(number));
    if (!found || !found->isEnabled())
      return false;
    found->trigger();
    return true;
  }
  /// A thousand samples in a second, that rise by a volt each.
  void AddRamp(double first) {
    std::vector<double> values(1000);
    std::iota(values.begin(), values.end(), first);
    session->Add(std::make_unique<ListSource>(values, 1000.0));
  }
  /// Runs the session; user does what a user does, and then closes the window.
  void Run(const std::function<void()>& user) {
    QTimer::singleShot(0, qApp, [&] {
      for (QWidget* const each : QApplication::topLevelWidgets())
        window = window ? window : qobject_cast<QMainWindow*>(each);
      ASSERT_NE(window, nullptr);
      EXPECT_TRUE(QTest::qWaitForWindowActive(window));
      user();
      window->close();
    });
    session->Run();
  }
  static QWidget* Canvas() {
    return qobject_cast<QAbstractScrollArea*>(QApplication::focusWidget())->viewport();
  }
  static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  void Choose(const char* action) {
    auto* const found = window->findChild<QAction*>(QLatin1String(action));
    ASSERT_NE(found, nullptr) << action;
    found->trigger();
  }
  void Turn(int eighths) {
    const QPointF at(200, 200);
    QWheelEvent turn(at, Canvas()->mapToGlobal(at), {}, {0, eighths}, {}, {}, Qt::NoScrollPhase,
                     false);
    QApplication::sendEvent(Canvas(), &turn);
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
  std::unique_ptr<Session> session;
  QMainWindow* window = nullptr;
};

TEST_F(SessionTest, ShowsEveryReadoutAndFollowsZoomsAndCursors) {
  AddRamp(0);
  Run([this] {
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
    Key(Qt::Key_Right);
    Expect("leftX", "501 ms");
    Choose("data.betweenCursors");
    Expect("minimum", "501 V");
    Key(Qt::Key_Right);
    Expect("minimum", "502 V");
    Choose("data.betweenCursors");
    Expect("maximum", "999 V");
    // The cursors stay where they are; half of everything is what tells.
    Key(Qt::Key_Minus, Qt::ControlModifier);
    application.ProcessEvents();
    Turn(80);  // two parts of a notch
    Turn(40);
    Expect("samples", "500 Sample");
  });
}

TEST_F(SessionTest, StopsAMeasurementAndStays) {
  options.job = HostOptions::Job::measure;
  session->Add(std::make_unique<TimerSource>(std::chrono::milliseconds(1), std::nullopt));
  Run([this] {
    Channel& channel = session->At(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return channel.Samples().size() > 100; }));
    Choose("data.stop");
    EXPECT_TRUE(QTest::qWaitFor([&] { return channel.Settled(); }));
    EXPECT_FALSE(session->ClosedByUser());
  });
}

TEST_F(SessionTest, TabsAndMenusAreReachedByKey) {
  AddRamp(0);
  AddRamp(-500);
  Run([this] {
    Expect("mean", "499.5 V");
    Key(Qt::Key_Tab, Qt::ControlModifier);
    Expect("mean", "-500 mV");
    const auto marginLightness = [&] {
      const QPoint margin = Canvas()->mapTo(window, QPoint(3, 3));
      return window->grab().toImage().pixelColor(margin).lightness();
    };
    Choose("view.scheme.1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return marginLightness() < 60; }));
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
  ShowIn(ViewKind::masks);
  AddRamp(0);
  AddRamp(-500);
  Run([this] {
    Pane& pane = session->PaneAt(0);
    Expect("mean", "499.5 V");
    EXPECT_TRUE(ChooseSource(1));
    Expect("mean", "-500 mV");
    EXPECT_FALSE(ChooseSource(2)) << "it is the last one";
    EXPECT_TRUE(ChooseSource(1));

    Choose("series.average.10");
    EXPECT_EQ(pane.Count(), 3u);
    Choose("masks.mean");
    Choose("masks.average.1000");
    Choose("masks.removeLast");
    EXPECT_TRUE(pane.AnyMask());
    Choose("masks.removeAll");
    EXPECT_FALSE(pane.AnyMask());
    Choose("series.removeActive");
    EXPECT_EQ(pane.Count(), 2u);
    Expect("mean", "-500 mV");
    Choose("analyse.derivative");
    Expect("leftY", "1 kV/s");
  });
}

}  // namespace
}  // namespace sparlow::host
