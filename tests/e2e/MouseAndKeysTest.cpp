// Zoom, scroll and cursors by mouse, wheel and keys.

#include "sparlow/platform/window/Windows.h"
#include "tests/e2e/ScreenTest.h"

namespace sparlow::host {
namespace {

class MouseAndKeys : public ScreenTest {};

TEST_F(MouseAndKeys, AZoomBoxZoomsAndLeavesNoTrace) {
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
    Do("key ctrl+minus");
    Await("all again", [&] { return Look().to == whole.to; });
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

}  // namespace
}  // namespace sparlow::host
