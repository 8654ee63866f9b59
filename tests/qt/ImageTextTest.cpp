#include <gtest/gtest.h>

#include "sparlow/platform/CDC.h"
#include "sparlow/platform/qt/ImageDevice.h"

namespace sparlow::qt {
namespace {

constexpr COLORREF white = RGB(255, 255, 255);

QRect inked(const ImageDevice& device) {
  QRect touched;
  const QImage& image = device.Image();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (FromQt(image.pixel(x, y)) != white)
        touched |= QRect(x, y, 1, 1);
    }
  }
  return touched;
}

TEST(ImageTextTest, ACellIsAsHighAsAskedFor) {
  const ImageDevice device({10, 10}, 1.0, white);
  DeviceContext context(const_cast<ImageDevice*>(&device));
  const int cell = MulDiv(11, CDC(&context).GetDeviceCaps(LOGPIXELSY), 72);
  ASSERT_EQ(cell, 15);
  EXPECT_EQ(device.TextExtent("0", {"Arial", cell}).cy, 15);
  for (int height = 6; height < 120; height += 7) {
    const FontRequest request{"Arial", height};
    const int found = device.TextExtent("x", request).cy;
    EXPECT_LE(found, height);
    EXPECT_GE(found, height - 2);
    EXPECT_GT(device.TextAscent(request), found / 2);
  }
  for (const int absurd : {-5, 0, 1, 1 << 30})
    EXPECT_GE(device.TextExtent("x", {"Arial", absurd}).cy, 1);
  EXPECT_EQ(device.TextExtent("", {}).cx, 0);
}

TEST(ImageTextTest, TextFillsItsCellAtEveryScaleAndTakesTheSameRoom) {
  const FontRequest font{"Arial", 30};
  const CSize extent = ImageDevice({1, 1}, 1.0, white).TextExtent("Hgjy|", font);
  for (const double scale : {1.0, 1.5, 2.0}) {
    ImageDevice device({160, 80}, scale, white);
    EXPECT_EQ(device.TextExtent("Hgjy|", font), extent);
    device.Text({20, 10}, "Hgjy|", font, RGB(0, 0, 0), {});
    const QRect touched = inked(device);
    const QRect cell = PixelScale(scale).Area({20, 10, 20 + extent.cx, 10 + extent.cy});
    EXPECT_TRUE(cell.adjusted(-2, 0, 2, 0).contains(touched)) << scale;
    EXPECT_GT(touched.height(), cell.height() * 2 / 3) << scale;
    EXPECT_GT(touched.width(), cell.width() * 3 / 4) << scale;
    // The transform is gone again, and a clip holds.
    ImageDevice clipped({160, 80}, scale, white);
    clipped.Text({20, 10}, "Hgjy|", font, RGB(0, 0, 0), CRect{30, 10, 60, 20});
    clipped.Line({5, 5}, {5, 5}, {}, {});
    EXPECT_EQ(clipped.PixelAt({5, 5}), RGB(0, 0, 0));
    clipped.FillRect({5, 5, 7, 7}, white, {});
    EXPECT_TRUE(PixelScale(scale).Area({30, 10, 60, 20}).contains(inked(clipped)));
  }
}

TEST(ImageTextTest, BytesThatAreNoUtf8AreLatin1AndAlignmentUsesTheCell) {
  QImage pictures[2];
  const char* const texts[] = {
      "20 \xC2\xB0"
      "C",
      "20 \xB0"
      "C"};
  for (int i = 0; i < 2; ++i) {
    ImageDevice device({100, 60}, 1.0, white);
    DeviceContext context(&device);
    CDC dc(&context);
    dc.SetTextAlign(TA_RIGHT | TA_BOTTOM);
    dc.TextOut(90, 40, texts[i]);
    pictures[i] = device.Image().copy();
    const QRect touched = inked(device);
    EXPECT_LE(touched.right(), 90);
    EXPECT_GE(touched.right(), 86);
    EXPECT_LT(touched.bottom(), 40);
    EXPECT_GE(touched.top(), 25);
  }
  EXPECT_EQ(pictures[0], pictures[1]);
}

}  // namespace
}  // namespace sparlow::qt
