// Zoom, scroll and cursors by mouse, wheel and keys.

#include <QScrollBar>
#include <cmath>

#include "sparlow/platform/Windows.h"
#include "tests/e2e/ScreenTest.h"

namespace sparlow::host {

namespace {

class MouseAndKeys : public ScreenTest {
 protected:
  void AwaitSamples(const char* what, unsigned count) {
    Await(what, [=, this] { return Look().to - Look().from == count; });
  }
  void AwaitZoom(unsigned most) {
    Await("fewer samples on show", [=, this] { return Look().to - Look().from < most; });
  }
};

TEST_F(MouseAndKeys, AFileIsShownWithItsReadouts) {
  RunKnownFile([this] {
    const Shown shown = Settled();
    EXPECT_EQ(shown.size, 10001u);
    EXPECT_EQ(shown.to - shown.from, 10001u);
    EXPECT_LE(std::fabs(shown.xMin), 0.1);
    EXPECT_NEAR(shown.xMax, 10, 0.1);
    Await("readouts", [this] { return !Label("readout.rightX").isEmpty(); });
    EXPECT_TRUE(Readout("readout.leftX").startsWith("0")) << Readout("readout.leftX").toStdString();
    EXPECT_TRUE(Readout("readout.rightX").startsWith("10"));
    // The curve passes (5 s, 2.5 V).
    const QImage pixels = Pixels();
    const auto [column, row] = InHost([this] {
      const QPointF share((5 - Look().xMin) / (Look().xMax - Look().xMin),
                          (Look().yMax - 2.5) / (Look().yMax - Look().yMin));
      const QPoint at =
          PlotOrigin() +
          QPointF(share.x() * PlotSize().width(), share.y() * PlotSize().height()).toPoint();
      return std::pair(at.x(), at.y());
    });
    int traced = 0;
    for (int y = row - 2; y <= row + 2; ++y)
      traced += pixels.pixel(column, y) == qRgb(0x50, 0x50, 0x50);
    EXPECT_GT(traced, 0) << column << ", " << row;
    Picture("1-file");
    Close();
  });
}

TEST_F(MouseAndKeys, AZoomBoxZoomsAndLeavesNoTrace) {
  RunKnownFile([this] {
    const Shown whole = Settled();
    const QImage before = Pixels();
    Drag(To(0.3, 0.3), To(0.6, 0.7));
    Await("the box", [&] { return Widget()->viewport()->grab().toImage() != before; });
    Picture("2-box");
    Do(To(0.3, 0.3) + "sleep 0.2 mouseup 1");
    Await("no box", [&] { return Widget()->viewport()->grab().toImage() == before; });
    EXPECT_EQ(Settled(), whole) << "a box without a size zooms";

    Drag(To(0.3, 0.3), To(0.6, 0.7));
    Do("mouseup 1");
    AwaitZoom(10001);
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
    Close();
  });
}

TEST_F(MouseAndKeys, TheThumbScrollsAtItsRelease) {
  RunKnownFile([this] {
    Drag(To(0.3, 0.3), To(0.6, 0.7));
    Do("mouseup 1");
    AwaitZoom(10001);
    const Shown before = Settled();
    const auto onBar = [&](double share) {
      return To(InHost([=, this] {
        const QScrollBar* const bar = Widget()->horizontalScrollBar();
        return bar->mapToGlobal(QPoint(static_cast<int>(share * bar->width()), bar->height() / 2));
      }));
    };
    Drag(onBar((before.from + before.to) / 2.0 / before.size), onBar(0.75));
    Await("the thumb is dragged", [&] {
      return Widget()->horizontalScrollBar()->sliderPosition() >
             static_cast<int>(before.from) + 2000;
    });
    Picture("3-thumb");
    EXPECT_EQ(Settled(), before) << "the graph moves with the thumb";
    const int track = InHost([this] { return Widget()->horizontalScrollBar()->sliderPosition(); });
    Do("mouseup 1");
    Await("another first sample", [&] { return Look().from != before.from; });
    const Shown after = Settled();
    EXPECT_EQ(after.from, static_cast<unsigned>(track));
    EXPECT_EQ(after.to - after.from, before.to - before.from);
    EXPECT_GT(after.xMin, before.xMin + 2);
    Picture("3-scrolled");
    Close();
  });
}

TEST_F(MouseAndKeys, ACursorThatCrossesTheOtherTakesItsPart) {
  RunKnownFile([this] {
    Settled();
    Drag(ToCursor(false), To(0.6, 0.5));
    Do("mouseup 1");
    Await("the right cursor has moved", [this] { return std::abs(Look().right - 6000) < 50; });
    const int crossed = Settled().right;
    Await("its readout", [&] { return Label("readout.rightX") != "10 s"; });
    const QString rightX = Readout("readout.rightX");
    const QString rightY = Readout("readout.rightY");
    Drag(ToCursor(true), To(0.8, 0.2));
    Picture("4-crossing");
    Do("mouseup 1");
    Await("the readouts change parts", [&] { return Label("readout.leftX") == rightX; });
    EXPECT_EQ(Readout("readout.leftY"), rightY);
    EXPECT_NE(Readout("readout.rightX"), rightX);
    const Shown after = Settled();
    EXPECT_EQ(after.left, crossed);
    EXPECT_NEAR(after.right, 8000, 50);
    Picture("4-crossed");
    Close();
  });
}

TEST_F(MouseAndKeys, ArrowKeysMoveCursorsWhileTheyAreHeld) {
  RunKnownFile([this] {
    const Shown start = Settled();
    Do("key Right");
    Await("one sample on", [&] { return Look().left == start.left + 1; });
    const QString first = Readout("readout.leftX");
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
    Picture("5-keys");
    Close();
  });
}

TEST_F(MouseAndKeys, KeysAndWheelZoom) {
  RunKnownFile([this] {
    Settled();
    const unsigned whole = 10001, half = 5000;
    Do("key plus");
    AwaitZoom(half + 2);
    Do("key minus");
    Await("all again, but for rounding",
          [=, this] { return Look().to - Look().from >= whole - 1; });
    Do(To(0.5, 0.5) + "click 4");
    AwaitZoom(half + 2);
    Do("click 4");
    AwaitZoom(half / 2 + 2);
    Picture("9-wheel");
    Do("key ctrl+minus");
    AwaitSamples("all at once", whole);
    Drag(ToCursor(true), To(0.4, 0.5));
    Do("mouseup 1");
    Await("the cursor has moved", [this] { return Look().left > 3900; });
    const Shown shown = Settled();
    Do("key ctrl+plus");
    AwaitZoom(whole);
    EXPECT_EQ(Settled().from, static_cast<unsigned>(shown.left));
    EXPECT_EQ(Settled().to, static_cast<unsigned>(shown.right) + 1);
    Do("click 5 key ctrl+minus");
    AwaitSamples("all again", whole);
    Close();
  });
}

}  // namespace

}  // namespace sparlow::host
