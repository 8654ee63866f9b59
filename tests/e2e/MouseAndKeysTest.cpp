// Zooms, cursors, curves and the size of the window under mouse, wheel and keys.

#include <QCursor>
#include <QMenu>

#include "examples/host/TimerSource.h"
#include "sparlow/graph/GraphColors.h"
#include "sparlow/platform/window/Windows.h"
#include "tests/e2e/ScreenTest.h"

namespace sparlow::host {
namespace {

class MouseAndKeys : public ScreenTest {
 protected:
  /// Where an item of the menu is on the screen; null while it isn't there.
  static QPoint ItemPlace(const QString& text) {
    const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    for (QAction* const action : menu ? menu->actions() : QList<QAction*>()) {
      if (action->text().section('\t', 0, 0) == text)
        return menu->mapToGlobal(menu->actionGeometry(action).center());
    }
    return {};
  }
};

TEST_F(MouseAndKeys, ABoxTheWheelAndMenusZoomAndLeaveNoTrace) {
  RunKnownFile([this] {
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

TEST_F(MouseAndKeys, ArrowKeysMoveCursorsWhileTheyAreHeld) {
  RunKnownFile([this] {
    const Shown start = Settled();
    Do("key Right");
    Await("one sample on", [&] { return Look().left == start.left + 1; });
    const QString first = InHost([this] { return Label("readout.leftX"); });
    Do("keydown Right");
    // The n-th step of a held key goes n samples: a fixed step would take minutes.
    Await("the steps grow", [&] { return Look().left > start.left + 1000; });
    Do("keyup Right sleep 0.2");
    const int held = Settled().left;
    Do("key Right");
    Await("one sample on again", [&] { return Look().left == held + 1; });
    Await("the readout follows", [&] { return Label("readout.leftX") != first; });
    EXPECT_EQ(Settled().right, start.right);

    Do("keydown shift keydown Left");
    Await("the right cursor moves", [&] { return Look().right < start.right - 20; });
    Do("keyup Left sleep 0.2 keyup shift");
    EXPECT_EQ(Settled().left, held + 1);
    Close();
  });
}

TEST_F(MouseAndKeys, AClickPicksACurveAndDelTakesItOut) {
  const std::vector<Curve> levels{[](double) { return 1.0; }, [](double) { return 2.0; },
                                  [](double) { return 3.0; }};
  const auto person = [this] {
    const auto awaitTitle = [this](const char* title) {
      Await(title, [=, this] { return Tab().Title().ends_with(title) && Tab().Settled(); });
    };
    const auto awaitHand = [this](bool hand) {
      Await("the pointer", [=, this] {
        return (Widget()->viewport()->cursor().shape() == Qt::BitmapCursor) == hand;
      });
    };
    const auto toLevel = [this](double y) {
      return To(InHost([=, this] {
        const QPoint inPlot(PlotSize().width() / 2, Tab().Axis().ver.GetPosInv(y));
        return Widget()->viewport()->mapToGlobal(PlotOrigin() + inPlot);
      }));
    };
    awaitTitle("known samples 1");
    Do(toLevel(2));
    awaitHand(true);
    Picture("10-hand");
    Do(toLevel(2.4));
    awaitHand(false);
    Do(toLevel(2) + "sleep 0.1 click 1");
    awaitTitle("known samples 2");
    Do("key Delete");
    awaitTitle("known samples 1");
    EXPECT_EQ(InHost([this] { return Tab().Count(); }), 2u);
    Close();
  };
  RunFiles(levels, person, ViewKind::masks);
}

TEST_F(MouseAndKeys, ALiveGraphFollowsAWindowThatChangesItsSize) {
  Sources sources;
  sources.push_back(std::make_unique<TimerSource>(std::chrono::microseconds(200), std::nullopt));
  Run(std::move(sources), HostOptions::Job::measure, [this] {
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
        return !Tab().View().RenderDue() && Shows(edge, GraphColors(0).frame);
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
