#include <gtest/gtest.h>

#include <thread>

#include "sparlow/platform/CDC.h"
#include "tests/support/RecordingDevice.h"
#include "tests/view/View.h"

namespace sparlow::test {
namespace {

TEST(FeedingAView, NewDataSetsDoNotDisturbRenderPaintAndCopy) {
  Live<ViewData> view;
  GraphAxis axis = unitAxis();
  axis.hor.scale = 16.0;
  RecordingDevice device;
  DeviceContext context(&device);
  CDC dc(&context);
  std::atomic<bool> done{false};
  std::thread feeder([&] {
    for (int set = 0; set < 40; ++set) {
      view.InitDataTransfer(set % 5 == 0);
      for (int block = 0; block < 4; ++block) {
        view.InitBlockTransfer();
        for (int i = 0; i < 700 * (set % 6); ++i)
          view.Add(view.GetSize(), set, i % 2 == 0);
        view.TermBlockTransfer();
      }
      view.TermDataTransfer();
    }
    done = true;
  });
  const auto copy = std::make_unique<ViewData>(view);
  for (bool full = true; !done; full = !full) {
    ASSERT_TRUE(view.Render(&axis, full));
    view.Draw(&dc, 0, false);
    view.DrawWaveform(&dc, 0, 0);
    device.take();
    view.CanContinueRender(axis);
    view.yPosGet(1000, &axis);
    view.SetRCursor(1u << 30);
    view.SetLCursor(700);
    view.MoveRCursor(-5, &axis.hor);
    view.MoveLCursor(full ? 9 : -9, &axis.hor);
    view.CalculateStatParams(-1, 30);
    const double x = view.xLCursorGet();
    ASSERT_TRUE(x >= 0 && x < 14000 && view.yRCursorGet() < 40);
    view.xRCursorPosGet(&axis);
    *copy = view;
    ASSERT_TRUE(copy->Render(&axis, true));
    for (unsigned i = 1; !copy->waveform && i < copy->nColumns; ++i)
      ASSERT_LT(copy->xPos[i - 1], copy->xPos[i]);
    if (full)
      view.ResetViewData();
  }
  feeder.join();
  view.AdjustSizeTo();
  view.waveform = false;
  view.Render(&axis, true);
  EXPECT_EQ(view.nColumns, (view.GetSize() + 15) / 16);
}

}  // namespace
}  // namespace sparlow::test
