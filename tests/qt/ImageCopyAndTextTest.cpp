#include <gtest/gtest.h>

#include "sparlow/platform/CDC.h"
#include "tests/qt/Pixels.h"

namespace sparlow::qt {
namespace {

constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF black = RGB(0, 0, 0);

class ImageCopy : public testing::TestWithParam<double> {
 protected:
  ImageCopy() {
    test::MakeNoise(window);
    first = window.Image().copy();
  }
  QRect area(const CRect& rect) const { return PixelScale(GetParam()).Area(rect); }

  ImageDevice window{{40, 30}, GetParam(), white};
  QImage first;
  DeviceContext windowContext{&window};
  CDC dc{&windowContext};
};

INSTANTIATE_TEST_SUITE_P(Scales, ImageCopy, testing::Values(1.0, 1.5, 2.0));

TEST_P(ImageCopy, ASavedAreaComesBackExactly) {
  const HDC memory = CreateCompatibleDC(&windowContext);
  const HBITMAP bitmap = CreateCompatibleBitmap(&windowContext, 40, 30);
  CDC memoryDC(memory);
  memoryDC.SelectObject(bitmap);
  memoryDC.BitBlt(0, 0, 40, 30, &windowContext, 0, 0, SRCCOPY);
  dc.FillSolidRect({7, 5, 24, 22}, RGB(1, 2, 3));
  EXPECT_EQ(dc.GetPixel({7, 5}), RGB(1, 2, 3));
  dc.BitBlt(7, 5, 17, 17, memory, 7, 5, SRCCOPY);
  EXPECT_EQ(window.Image(), first);

  // Beyond the edges of both.
  dc.BitBlt(-100, -100, 1000, 1000, memory, -100, -100, SRCCOPY);
  EXPECT_EQ(window.Image(), first);
  DeleteDC(memory);
  DeleteObject(bitmap);
  EXPECT_EQ(dc.GetPixel({40, 0}), 0xFFFFFFFFu) << "outside";
}

TEST_P(ImageCopy, CopiesOntoItselfInEveryDirection) {
  for (const CPoint shift : {CPoint{4, 6}, {-4, 6}, {4, -6}, {-4, -6}}) {
    ImageDevice device({40, 30}, GetParam(), 0);
    device.Copy({0, 0, 40, 30}, window, {0, 0}, {});
    const CRect to{10 + shift.x, 8 + shift.y, 26 + shift.x, 20 + shift.y};
    device.Copy(to, device, {10, 8}, {});
    const QPoint source = area({10, 8, 11, 9}).topLeft();
    EXPECT_EQ(device.Image().copy(area(to)), first.copy(QRect(source, area(to).size())));
    EXPECT_EQ(device.Image().copy(area({0, 0, 40, 2})), first.copy(area({0, 0, 40, 2})));
  }
}

TEST(ImageText, FillsItsCellAtEveryScaleAndTakesTheSameRoom) {
  for (const int height : {15, 30}) {
    const FontRequest font{"Arial", height};
    const CSize extent = ImageDevice({1, 1}, 1.0, white).TextExtent("Hgjy|", font);
    EXPECT_LE(extent.cy, height);
    EXPECT_GE(extent.cy, height - 2);
    for (const double scale : {1.0, 1.5, 2.0}) {
      SCOPED_TRACE(testing::Message() << height << " at " << scale);
      ImageDevice device({500, 200}, scale, white);
      EXPECT_EQ(device.TextExtent("Hgjy|", font), extent);
      device.Text({20, 10}, "Hgjy|", font, black, {});
      const QRect touched = test::Find(device.Image(), white, true).area;
      const QRect cell = PixelScale(scale).Area({20, 10, 20 + extent.cx, 10 + extent.cy});
      EXPECT_TRUE(cell.adjusted(-2, 0, 2, 0).contains(touched));
      EXPECT_GT(touched.height(), cell.height() * 2 / 3);
      EXPECT_GT(touched.width(), cell.width() * 3 / 4);
    }
  }
}

TEST(ImageText, StaysInItsClipAndLeavesNoTransform) {
  ImageDevice device({160, 80}, 1.5, white);
  device.Text({20, 10}, "Hgjy|", {"Arial", 30}, black, CRect{30, 10, 60, 20});
  const QRect touched = test::Find(device.Image(), white, true).area;
  EXPECT_FALSE(touched.isEmpty());
  EXPECT_TRUE(PixelScale(1.5).Area({30, 10, 60, 20}).contains(touched));
  device.FillRect({5, 5, 6, 6}, black, {});
  EXPECT_EQ(device.PixelAt({5, 5}), black);
}

}  // namespace
}  // namespace sparlow::qt
