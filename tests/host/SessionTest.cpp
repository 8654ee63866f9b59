// The measurement host's window under a user's hand: keys, menus, wheel, and what the readouts say.

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

#include "examples/host/Session.h"
#include "sparlow/graph/Cursor.h"

namespace sparlow::host {

namespace {

/// A thousand samples in a second, that rise by a volt each.
class RampSource : public SampleSource {
 public:
  explicit RampSource(double first) : first_(first) {}
  std::string Name() const override { return "Ramp"; }
  std::string Unit() const override { return "V"; }
  std::string Activity() const override { return "rising"; }
  bool Next(std::vector<Sample>& block, const std::stop_token&) override {
    block.clear();
    for (int i = 0; i < 1000; ++i)
      block.push_back({i * 1e-3, first_ + i});
    return false;
  }
  double Progress() const override { return 1.0; }

 private:
  const double first_;
};

class SessionTest : public testing::Test {
 protected:
  SessionTest() {
    options.job = HostOptions::Job::files;
    session = std::make_unique<Session>(application, options, log, interrupts);
  }
  ~SessionTest() override {
    session.reset();
    SourceData::AnalyzeDataBetweenCursors = false;
    Cursor::SetStyle(2);
  }

  /// Runs the session; user does what a user does, and then closes the window.
  void Run(const std::function<void()>& user) {
    QTimer::singleShot(0, qApp, [&] {
      window = qobject_cast<QMainWindow*>(QApplication::activeWindow());
      for (QWidget* const each : QApplication::topLevelWidgets())
        window = window ? window : qobject_cast<QMainWindow*>(each);
      ASSERT_NE(window, nullptr);
      EXPECT_TRUE(QTest::qWaitForWindowActive(window));
      user();
      window->close();
    });
    session->Run();
  }
  static QWidget* View() { return QApplication::focusWidget(); }
  QWidget* Canvas() { return qobject_cast<QAbstractScrollArea*>(View())->viewport(); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(View(), key, modifiers);
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
  void Expect(const char* readout, const char* text) {
    const auto* const label =
        window->findChild<QLabel*>(QLatin1String("readout.") + QLatin1String(readout));
    ASSERT_NE(label, nullptr) << readout;
    EXPECT_TRUE(QTest::qWaitFor([&] { return label->text() == QLatin1String(text); }, 5'000))
        << readout << " is " << label->text().toStdString() << " and not " << text;
    EXPECT_TRUE(label->accessibleName().endsWith(QLatin1String(text)));
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
  session->Add(std::make_unique<RampSource>(0));
  Run([this] {
    const std::pair<const char*, const char*> whole[] = {{"leftX", "0 s"},
                                                         {"leftY", "0 V"},
                                                         {"rightX", "999 ms"},
                                                         {"rightY", "999 V"},
                                                         {"distanceX", "999 ms"},
                                                         {"distanceY", "999 V"},
                                                         {"samples", "1000 Sample"},
                                                         {"slope", "1 kV/s"},
                                                         {"inverseSlope", "1 ms/V"},
                                                         {"minimum", "0 V"},
                                                         {"maximum", "999 V"},
                                                         {"span", "999 V"},
                                                         {"mean", "499.5 V"},
                                                         {"standardDeviation", "288.675 V"},
                                                         {"drift", "1 kV/s"},
                                                         {"allanDeviation", "707.107 mV"},
                                                         {"driftOfDrift", "1.001 kV/s/s"}};
    for (const auto& [readout, text] : whole)
      Expect(readout, text);

    Key(Qt::Key_Plus);
    Expect("samples", "500 Sample");
    Expect("leftX", "250 ms");
    Key(Qt::Key_Right);
    Expect("leftX", "251 ms");
    Expect("minimum", "0 V");
    Choose("data.betweenCursors");
    Expect("minimum", "251 V");
    Key(Qt::Key_Right);
    Expect("minimum", "252 V");
    Key(Qt::Key_Plus, Qt::ControlModifier);
    Expect("samples", "498 Sample");
    Choose("data.betweenCursors");
    Expect("maximum", "999 V");
    // The cursors stay where they are; half of everything is what tells.
    Key(Qt::Key_Minus, Qt::ControlModifier);
    application.ProcessEvents();
    Turn(80);  // two parts of a notch
    Turn(40);
    Expect("samples", "500 Sample");
    Turn(240);
    Expect("leftX", "438 ms");
    Turn(-120);
    Expect("leftX", "376 ms");
    QTest::mouseDClick(Canvas(), Qt::LeftButton, {}, QPoint(300, 200));
    application.ProcessEvents();
    Choose("view.zoomIn");
    Expect("samples", "500 Sample");
  });
}

TEST_F(SessionTest, BringsATabForwardWithReadoutsOfItsOwn) {
  session->Add(std::make_unique<RampSource>(0));
  session->Add(std::make_unique<RampSource>(-500));
  Run([this] {
    Expect("mean", "499.5 V");
    Key(Qt::Key_Tab, Qt::ControlModifier);
    Expect("mean", "-500 mV");
    Expect("leftY", "-500 V");
  });
}

TEST_F(SessionTest, MenusChangeHowAllViewsLook) {
  session->Add(std::make_unique<RampSource>(0));
  Run([this] {
    Expect("mean", "499.5 V");
    const auto colorAt = [&](QPoint at) { return window->grab().toImage().pixelColor(at); };
    const QPoint margin = Canvas()->mapTo(window, QPoint(3, 3));
    EXPECT_GT(colorAt(margin).lightness(), 200);
    Choose("view.scheme.1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return colorAt(margin).lightness() < 60; }));
    Choose("view.marker.1");
    EXPECT_EQ(Cursor::GetStyle(), 1);
    // Every item of every menu is reached by a key of its own.
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

}  // namespace

}  // namespace sparlow::host
