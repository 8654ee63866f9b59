#include <gtest/gtest.h>

#include "sparlow/platform/CDC.h"
#include "tests/qt/Pixels.h"

namespace sparlow::qt {
namespace {

class ImageCopyTest : public testing::TestWithParam<double> {
 protected:
  ImageCopyTest() {
    test::MakeNoise(window);
    first = window.Image().copy();
  }
  QRect area(const CRect& rect) const { return PixelScale(GetParam()).Area(rect); }

  ImageDevice window{{40, 30}, GetParam(), RGB(255, 255, 255)};
  QImage first;
  DeviceContext windowContext{&window};
  CDC dc{&windowContext};
};

INSTANTIATE_TEST_SUITE_P(Scales, ImageCopyTest, testing::Values(1.0, 1.5, 2.0));

TEST_P(ImageCopyTest, ASavedAreaComesBackExactly) {
  const HDC memory = CreateCompatibleDC(&windowContext);
  const HBITMAP bitmap = CreateCompatibleBitmap(&windowContext, 40, 30);
  CDC memoryDC(memory);
  memoryDC.SelectObject(bitmap);
  memoryDC.BitBlt(0, 0, 40, 30, &windowContext, 0, 0, SRCCOPY);
  EXPECT_EQ(dynamic_cast<ImageDevice&>(*bitmap->surface).Image(), first);

  dc.FillSolidRect({7, 5, 24, 22}, RGB(1, 2, 3));
  EXPECT_EQ(dc.GetPixel({7, 5}), RGB(1, 2, 3));
  dc.BitBlt(7, 5, 17, 17, memory, 7, 5, SRCCOPY);
  EXPECT_EQ(window.Image(), first);

  // Beyond the edges of both, and clipped to nothing.
  dc.BitBlt(-100, -100, 1000, 1000, memory, -100, -100, SRCCOPY);
  EXPECT_EQ(window.Image(), first);
  CRgn nowhere;
  nowhere.CreateRectRgn(50, 50, 60, 60);
  dc.SelectClipRgn(&nowhere);
  dc.BitBlt(0, 0, 40, 30, memory, 9, 9, SRCCOPY);
  EXPECT_EQ(window.Image(), first);
  DeleteDC(memory);
  DeleteObject(bitmap);
}

TEST_P(ImageCopyTest, CopiesOntoItselfInEveryDirection) {
  for (const CPoint shift : {CPoint{4, 6}, CPoint{-4, 6}, CPoint{4, -6}, CPoint{-4, -6}}) {
    ImageDevice device({40, 30}, GetParam(), 0);
    device.Copy({0, 0, 40, 30}, window, {0, 0}, {});
    const CRect to{10 + shift.x, 8 + shift.y, 26 + shift.x, 20 + shift.y};
    device.Copy(to, device, {10, 8}, {});
    const QPoint source = area({10, 8, 11, 9}).topLeft();
    EXPECT_EQ(device.Image().copy(area(to)), first.copy(QRect(source, area(to).size())));
    EXPECT_EQ(device.Image().copy(area({0, 0, 40, 2})), first.copy(area({0, 0, 40, 2})));
  }
}

TEST_P(ImageCopyTest, PixelsAreReadInTheMiddleAndOnlyInside) {
  const int middle = static_cast<int>(5.5 * GetParam());
  EXPECT_EQ(dc.GetPixel({5, 5}), FromQt(first.pixel(middle, middle)));
  EXPECT_NE(dc.GetPixel({39, 29}), 0xFFFFFFFFu);
  for (const CPoint outside : {CPoint{-1, 0}, CPoint{0, -1}, CPoint{40, 0}, CPoint{0, 30}})
    EXPECT_EQ(dc.GetPixel(outside), 0xFFFFFFFFu);
}

TEST(ImageCopy, BitmapsOfAnotherScaleAreScaled) {
  ImageDevice fine({20, 20}, 2.0, RGB(5, 6, 7));
  ImageDevice coarse({20, 20}, 1.0, RGB(255, 255, 255));
  coarse.Copy({2, 2, 10, 10}, fine, {4, 4}, CRect{0, 0, 8, 8});
  EXPECT_EQ(coarse.PixelAt({2, 2}), RGB(5, 6, 7));
  EXPECT_EQ(coarse.PixelAt({7, 7}), RGB(5, 6, 7));
  EXPECT_EQ(coarse.PixelAt({8, 8}), RGB(255, 255, 255));
}

}  // namespace
}  // namespace sparlow::qt
