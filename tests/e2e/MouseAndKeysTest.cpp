// Zooms, cursors and the size of the host's window under mouse, wheel and keys, on a real screen.

#include <QAbstractScrollArea>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QProcess>
#include <QScreen>
#include <future>
#include <iostream>

#include "examples/host/Session.h"
#include "examples/host/TimerSource.h"
#include "sparlow/graph/Offset.h"
#include "sparlow/platform/window/Windows.h"
#include "tests/host/Sources.h"

namespace sparlow::host {
namespace {

/// Where graph, cursors and axes of the series on show stand.
struct Shown {
  unsigned size, from, to;
  int left, right;  // samples of the cursors
  double xMin, xMax, yMin, yMax;
  friend bool operator==(const Shown&, const Shown&) = default;
};

/// A person in front of the window: a thread that moves mouse and keys through the X server, and
/// looks at what that did. The window's thread runs the host as ever, so whatever the person does may
/// stop in a menu or a dialog.
class MouseAndKeys : public testing::Test {
 protected:
  using Act = std::function<void()>;

  /// Shows a source until the person, who begins when there are samples, has closed the window.
  void Run(std::unique_ptr<SampleSource> source, HostOptions::Job job, const Act& person) {
    int argc = 1;
    char name[] = "e2e_tests";
    char* argv[] = {name, nullptr};
    qt::Application application(argc, argv);
    HostOptions options;
    options.job = job;
    options.width = 800;
    options.height = 450;
    ErrorLog log(std::cerr);
    const std::sig_atomic_t interrupts = 0;
    Session session(application, options, log, interrupts);
    session.Add(std::move(source));
    session_ = &session;
    std::promise<void> ended;
    std::thread acting([&] {
      try {
        Await("the window is the active one and shows samples",
              [this] { return Widget()->isActiveWindow() && Tab().View().DataValid(); });
        person();
        if (ended.get_future().wait_for(kDeadline) != std::future_status::ready)
          throw std::runtime_error("the closed window doesn't end the host");
      } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
        application.Quit();
      }
    });
    session.Run();
    ended.set_value();
    acting.join();
    session_ = nullptr;
    EXPECT_TRUE(session.AnySamples());
    EXPECT_EQ(log.Count(), 0) << log.Last();
  }
  /// The same with 10001 samples of y = x * x / 10 V, x from 0 to 10 s, when they are read.
  void RunParabola(const Act& person) {
    std::vector<double> values;
    for (int i = 0; i <= 10000; ++i)
      values.push_back(i * i * 1e-7);
    Run(std::make_unique<ListSource>(values, 1000.0), HostOptions::Job::files, [&] {
      // The last update of the host would end a gesture.
      Await("the samples are read and said to be", [this] {
        return Source().Settled() && Tab().Settled() && Label("status").startsWith("finished");
      });
      person();
    });
  }

  // The person.
  /// Asks the window's thread, as soon as it takes messages.
  template <class Question>
  auto InHost(const Question& question) {
    auto answer = std::make_shared<std::promise<decltype(question())>>();
    auto result = answer->get_future();
    QMetaObject::invokeMethod(
        qApp, [answer, &question] { answer->set_value(question()); }, Qt::QueuedConnection);
    if (result.wait_for(kDeadline) != std::future_status::ready) {
      std::cout << "[  FAILED  ] the window's thread hangs" << std::endl;
      std::_Exit(EXIT_FAILURE);
    }
    return result.get();
  }
  /// Waits until something holds on the window's thread. Ends the test when it never does.
  void Await(const char* what, const std::function<bool()>& holds) {
    const auto end = std::chrono::steady_clock::now() + kDeadline;
    while (!InHost(holds)) {
      if (std::chrono::steady_clock::now() > end) {
        Picture(QString("failed-") + testing::UnitTest::GetInstance()->current_test_info()->name());
        throw std::runtime_error(std::string("never seen: ") + what);
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
  }
  /// Waits until all that was to be drawn is drawn, and tells where things stand.
  Shown Settled() {
    Await("the graph is drawn", [this] { return !Tab().View().RenderDue(); });
    return InHost([this] { return Look(); });
  }
  /// Runs commands of xdotool; returns when the X server has them.
  static void Do(const QString& commands) {
    EXPECT_EQ(QProcess::execute("xdotool", QProcess::splitCommand(commands)), 0)
        << commands.toStdString();
  }
  static QString To(QPoint onScreen) {
    return QString("mousemove %1 %2 ").arg(onScreen.x()).arg(onScreen.y());
  }
  /// To a point of the plot by its shares of width and height, from its top left.
  QString To(double right, double down) {
    return To(InHost([=, this] {
      const QPointF inPlot(right * PlotSize().width(), down * PlotSize().height());
      return Widget()->viewport()->mapToGlobal(PlotOrigin() + inPlot.toPoint());
    }));
  }
  /// Draws a box from one such point to another, in two moves, as a hand does it.
  static void Drag(const QString& from, const QString& to) {
    Do(from + "mousedown 1 sleep 0.1 mousemove_relative 3 3 sleep 0.1 " + to + "sleep 0.1");
  }
  void Close() {
    InHost([this] { return Widget()->window()->close(); });
  }
  /// What the client area of the view shows.
  QImage Pixels() {
    return InHost([this] { return Grab(); });
  }
  /// Keeps a picture of the whole screen.
  void Picture(const QString& name) {
    const QString path = qEnvironmentVariable("E2E_PICTURES", ".") + "/" + name + ".png";
    EXPECT_TRUE(InHost([&] { return qApp->primaryScreen()->grabWindow(0).save(path); }))
        << path.toStdString();
  }

  // The window's thread.
  Channel& Source() { return session_->At(0); }
  Pane& Tab() { return session_->PaneAt(0); }
  QAbstractScrollArea* Widget() {
    return qobject_cast<QAbstractScrollArea*>(qt::WidgetOf(Tab().View()));
  }
  QImage Grab() { return Widget()->viewport()->grab().toImage(); }
  QPoint PlotOrigin() { return {Offset::Left(Tab().Axis().ver.maxLabelLength), Offset::Top()}; }
  QSize PlotSize() {
    const QPoint origin = PlotOrigin();
    return Widget()->viewport()->size() -
           QSize(origin.x() + Offset::Right(), origin.y() + Offset::Bottom());
  }
  Shown Look() {
    const ViewData& series = Source().Series();
    const GraphAxis& axis = Tab().Axis();
    return {series.GetSize(),  series.GetFrom(),  series.GetTo(),
            series.iLCursor,   series.iRCursor,   axis.hor.GetMin(),
            axis.hor.GetMax(), axis.ver.GetMin(), axis.ver.GetMax()};
  }
  QString Label(const char* name) {
    const auto* const label = Widget()->window()->findChild<QLabel*>(name);
    return label ? label->text() : QString("no such label");
  }
  /// Where an item of the menu is on the screen; null while it isn't there.
  static QPoint ItemPlace(const QString& text) {
    const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    for (QAction* const action : menu ? menu->actions() : QList<QAction*>()) {
      if (action->text().section('\t', 0, 0) == text)
        return menu->mapToGlobal(menu->actionGeometry(action).center());
    }
    return {};
  }

  static constexpr std::chrono::seconds kDeadline{20};

 private:
  Session* session_ = nullptr;
};

TEST_F(MouseAndKeys, ABoxTheWheelAndMenusZoomAndLeaveNoTrace) {
  RunParabola([this] {
    const Shown whole = Settled();
    const QImage before = Pixels();
    Drag(To(0.3, 0.3), To(0.6, 0.7));
    Await("the box", [&] { return Grab() != before; });
    Picture("2-box");
    Do(To(0.3, 0.3) + "sleep 0.2 mouseup 1");
    Await("no box", [&] { return Grab() == before; });
    EXPECT_EQ(Settled(), whole) << "a box without a size zooms";

    Drag(To(0.3, 0.3), To(0.6, 0.7));
    Do("mouseup 1");
    Await("a zoom", [&] { return Look().to < whole.to; });
    const Shown zoomed = Settled();
    EXPECT_NEAR(zoomed.from, 3000, 50);
    EXPECT_NEAR(zoomed.to, 6000, 50);
    EXPECT_NEAR(zoomed.xMax - zoomed.xMin, 3, 0.2);
    EXPECT_LT(zoomed.yMax - zoomed.yMin, whole.yMax - whole.yMin);
    const QImage after = Pixels();
    Picture("2-zoomed");
    InHost([this] {
      InvalidateRect(Tab().View().GetSafeHwnd(), nullptr, true);
      UpdateWindow(Tab().View().GetSafeHwnd());
      return true;
    });
    EXPECT_EQ(Pixels(), after) << "the box left something";

    Do(To(0.5, 0.5) + "click 4");
    Await("the wheel to zoom", [&] { return Look().to - Look().from < 1600; });
    Do("click 3");
    Await("the menu", [] { return !ItemPlace("Zoom Out Full Graph").isNull(); });
    Picture("6-menu");
    Do(To(InHost([] { return ItemPlace("Zoom Out Full Graph"); })) + "sleep 0.1 click 1");
    Await("all again", [&] { return Look().to - Look().from == whole.size; });

    Do("sleep 0.3 key shift+F10");
    Await("the menu", [] { return !ItemPlace("Zoom In").isNull(); });
    Do("key Down key Return");
    Await("half of them", [&] { return Look().to - Look().from <= whole.size / 2 + 1; });
    Close();
  });
}

TEST_F(MouseAndKeys, ALiveGraphFollowsAWindowThatChangesItsSize) {
  auto source = std::make_unique<TimerSource>(std::chrono::microseconds(200), std::nullopt);
  Run(std::move(source), HostOptions::Job::measure, [this] {
    const QString window = InHost([this] { return QString::number(Widget()->window()->winId()); });
    unsigned size = 0;
    for (const QSize wanted : {QSize(620, 420), {950, 450}, {620, 570}}) {
      for (int step = 8; step >= 0; --step)
        Do(QString("windowsize %1 %2 %3")
               .arg(window)
               .arg(wanted.width() + 7 * step)
               .arg(wanted.height() + 3 * step));
      Await("the size", [&] { return Widget()->window()->size() == wanted; });
      Await("a frame that reaches to the new right edge", [this] {
        const QPoint edge = PlotOrigin() + QPoint(PlotSize().width(), PlotSize().height() / 2);
        return !Tab().View().RenderDue() && Grab().pixelColor(edge) == QColor(Qt::black);
      });
      Await("more samples, on show too", [&] {
        const SampleReader samples = Source().Series().Read();
        const bool more = samples.size() > size + 200;
        if (more)
          size = samples.size();
        return more && Look().xMax > samples.x(size - 1) - 0.5;
      });
    }
    Picture("8-resized");
    Close();
  });
}

}  // namespace
}  // namespace sparlow::host

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
