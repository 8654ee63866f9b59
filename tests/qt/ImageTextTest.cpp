#include <gtest/gtest.h>

#include "tests/qt/Pixels.h"

namespace sparlow::qt {
namespace {

constexpr COLORREF white = RGB(255, 255, 255);

TEST(ImageTextTest, ACellIsAsHighAsAskedFor) {
  const ImageDevice device({10, 10}, 1.0, white);
  EXPECT_EQ(device.TextExtent("0", {"Arial", 15}).cy, 15);
  for (int height = 6; height < 120; height += 7) {
    const int found = device.TextExtent("x", {"Arial", height}).cy;
    EXPECT_LE(found, height);
    EXPECT_GE(found, height - 2);
    EXPECT_GT(device.TextAscent({"Arial", height}), found / 2);
  }
  for (const int absurd : {-5, 0, 1, 1 << 30})
    EXPECT_GE(device.TextExtent("x", {"Arial", absurd}).cy, 1);
}

TEST(ImageTextTest, TextFillsItsCellAtEveryScaleAndTakesTheSameRoom) {
  const FontRequest font{"Arial", 30};
  const CSize extent = ImageDevice({1, 1}, 1.0, white).TextExtent("Hgjy|", font);
  for (const double scale : {1.0, 1.5, 2.0}) {
    ImageDevice device({160, 80}, scale, white);
    EXPECT_EQ(device.TextExtent("Hgjy|", font), extent);
    device.Text({20, 10}, "Hgjy|", font, RGB(0, 0, 0), {});
    const QRect touched = test::Find(device.Image(), white, true).area;
    const QRect cell = PixelScale(scale).Area({20, 10, 20 + extent.cx, 10 + extent.cy});
    EXPECT_TRUE(cell.adjusted(-2, 0, 2, 0).contains(touched)) << scale;
    EXPECT_GT(touched.height(), cell.height() * 2 / 3) << scale;
    EXPECT_GT(touched.width(), cell.width() * 3 / 4) << scale;
    // A clip holds, and the transform is gone again.
    ImageDevice clipped({160, 80}, scale, white);
    clipped.Text({20, 10}, "Hgjy|", font, RGB(0, 0, 0), CRect{30, 10, 60, 20});
    const QRect inClip = test::Find(clipped.Image(), white, true).area;
    EXPECT_TRUE(PixelScale(scale).Area({30, 10, 60, 20}).contains(inClip));
    clipped.FillRect({5, 5, 6, 6}, RGB(0, 0, 0), {});
    EXPECT_EQ(clipped.PixelAt({5, 5}), RGB(0, 0, 0));
  }
}

}  // namespace
}  // namespace sparlow::qt
