// Several curves in one view: picked, removed, masked, printed.

#include <QCursor>
#include <QFile>
#include <QTemporaryDir>

#include "tests/e2e/ScreenTest.h"

namespace sparlow::host {
namespace {

class ManyCurves : public ScreenTest {
 protected:
  /// Three level curves, the first active; the plot reaches from y = 1 to y = 3.
  void RunLevels(const Act& person) {
    RunFiles({[](double) { return 1.0; }, [](double) { return 2.0; }, [](double) { return 3.0; }},
             person, ViewKind::masks);
  }
  /// A point of the level curve at y, right of the middle.
  QString ToLevel(double y) {
    return To(InHost([=, this] {
      const AxisData& ver = Tab().Axis().ver;
      const QPoint inPlot(PlotSize().width() * 6 / 10, ver.GetPosInv(y));
      return Widget()->viewport()->mapToGlobal(PlotOrigin() + inPlot);
    }));
  }
  void AwaitTitle(const char* title) {
    Await(title, [=, this] { return Tab().Title().ends_with(title) && Tab().Settled(); });
  }
  void AwaitHand(bool hand) {
    Await("the pointer", [=, this] {
      return (Widget()->viewport()->cursor().shape() == Qt::BitmapCursor) == hand;
    });
  }
};

TEST_F(ManyCurves, AClickPicksACurveAndDelTakesItOut) {
  RunLevels([this] {
    AwaitTitle("known samples 1");
    Do(ToLevel(2));
    AwaitHand(true);
    Picture("10-hand");
    Do(To(0.6, 0.25));
    AwaitHand(false);
    Do(ToLevel(2) + "sleep 0.1 click 1");
    AwaitTitle("known samples 2");
    Do("key Delete");
    AwaitTitle("known samples 1");
    EXPECT_EQ(InHost([this] { return Tab().Count(); }), 2u);
    Picture("10-removed");
    Close();
  });
}

TEST_F(ManyCurves, AMaskComesWhileTheViewIsZoomedAndAPageIsPrinted) {
  RunLevels([this] {
    AwaitTitle("known samples 1");
    Drag(To(0.25, 0.2), To(0.5, 0.8));
    Do("mouseup 1");
    Await("the view is zoomed", [this] { return Tab().Axis().hor.max < 5.5; });
    const double right = Settled().xMax;
    Do("key alt+m sleep 0.3 key m");
    Await("the mask is worked out", [this] { return Tab().AnyMask() && Tab().Settled(); });
    EXPECT_EQ(Settled().xMax, right);
    Picture("11-mask");

    const QTemporaryDir folder;
    const QString path = folder.filePath("page.pdf");
    const QImage before = Pixels();
    Do("key ctrl+e sleep 0.7 key ctrl+a type " + path);
    Do("sleep 0.2 key Return");
    Await("the page is there", [&] { return QFile(path).size() > 2000; });
    Settled();
    Await("the view is as before", [&] { return Grab() == before; });
    Close();
  });
}

}  // namespace
}  // namespace sparlow::host
