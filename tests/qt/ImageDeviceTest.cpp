#include "sparlow/platform/qt/ImageDevice.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace sparlow::qt {
namespace {

constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF ink = RGB(200, 30, 10);
constexpr CSize size{60, 50};

class ImageDeviceTest : public testing::TestWithParam<double> {
 protected:
  int edge(int c) const { return PixelScale(GetParam()).Edge(c); }

  /// The surface differs from white exactly in these client pixels, and is ink there.
  void expectInk(const CRect& area) const { expectDeviceInk(PixelScale(GetParam()).Area(area)); }
  /// The same in device pixels.
  void expectDeviceInk(const QRect& inside) const {
    const QImage& image = device.Image();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const COLORREF expected = inside.contains(x, y) ? ink : white;
        ASSERT_EQ(FromQt(image.pixel(x, y)), expected) << x << ", " << y;
      }
    }
  }
  void clear() { device.Remake(size, GetParam(), white); }
  int inkedPixels() const {
    const QImage& image = device.Image();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x)
        count += FromQt(image.pixel(x, y)) == ink;
    }
    return count;
  }
  void makeNoise() {
    std::mt19937 random(7);
    for (int y = 0; y < size.cy; y += 3) {
      for (int x = 0; x < size.cx; x += 2)
        device.FillRect({x, y, x + 2, y + 3}, random() & 0xFFFFFFu, {});
    }
  }

  ImageDevice device{size, GetParam(), white};
};

INSTANTIATE_TEST_SUITE_P(Scales, ImageDeviceTest, testing::Values(1.0, 1.25, 1.5, 2.0));

TEST_P(ImageDeviceTest, StraightLinesAreCrispAndTheSameInBothDirections) {
  for (const int w : {1, 2, 3, 4}) {
    const Stroke stroke{PS_SOLID, w, ink};
    const int low = -(w / 2);
    // At a broken scale all lines of a pen have one thickness, wherever they lie.
    const int thickness = edge(w);
    const CPoint a{11, 13};
    for (const CPoint b : {CPoint{31, 13}, CPoint{11, 40}, CPoint{12, 13}, a}) {
      const QPoint begin(edge(a.x + low), edge(a.y + low));
      const QPoint end(edge(b.x + low) + thickness, edge(b.y + low) + thickness);
      const QRect expected(begin, QSize(end.x() - begin.x(), end.y() - begin.y()));
      clear();
      device.Line(a, b, stroke, {});
      expectDeviceInk(expected);
      clear();
      device.Line(b, a, stroke, {});
      expectDeviceInk(expected);
      clear();
      device.Line(a, b, stroke, CRect{12, 0, 30, 15});
      expectDeviceInk(expected.intersected(PixelScale(GetParam()).Area({12, 0, 30, 15})));
    }
  }
}

TEST_P(ImageDeviceTest, PatternsScaleWithTheWidthAndGapsAreTransparent) {
  for (const int w : {1, 2}) {
    clear();
    device.Line({0, 20}, {59, 20}, {PS_DOT, w, ink}, {});
    const int dot = 3 * std::max(1, edge(w));
    // A row of device pixels that every such line covers.
    const QRgb* const row = reinterpret_cast<const QRgb*>(device.Image().constScanLine(edge(20)));
    const int begin = edge(-(w / 2));
    for (int x = 0; x < device.Image().width() - 1; ++x) {
      const COLORREF expected = (x - begin) / dot % 2 == 0 ? ink : white;
      ASSERT_EQ(FromQt(row[x]), expected) << "width " << w << ", pixel " << x;
    }
  }
  for (const int w : {1, 2}) {
    int former = 0;
    for (const int style : {PS_DOT, PS_DASH, PS_SOLID}) {
      for (const CPoint to : {CPoint{3, 47}, CPoint{55, 47}, CPoint{55, 10}}) {
        clear();
        device.Line({3, 3}, to, {style, w, ink}, {});
        const int now = inkedPixels();
        EXPECT_GT(now, 0);
        if (to.x == 3) {
          EXPECT_GT(now, former) << "style " << style << ", width " << w;
          former = now;
        } else if (style != PS_SOLID) {
          clear();
          device.Line({3, 3}, to, {PS_SOLID, w, ink}, {});
          EXPECT_LT(now, inkedPixels() * 9 / 10) << "style " << style << ", width " << w;
        }
      }
    }
  }
}

TEST_P(ImageDeviceTest, ASecondNotXorDrawingRestoresEverything) {
  makeNoise();
  const QImage before = device.Image().copy();
  std::mt19937 random(11);
  const auto coordinate = [&random](int far) {
    return static_cast<int>(random() % static_cast<unsigned>(2 * far)) - far;
  };
  for (int i = 0; i < 400; ++i) {
    const int far = i % 10 == 0 ? 30000 : 70;
    const CPoint a{coordinate(70), coordinate(70)};
    const CPoint b{i % 3 == 0 ? a.x : coordinate(far), i % 5 == 0 ? a.y : coordinate(far)};
    const Stroke stroke{i % 5, 1 + i % 7, ink, R2_NOTXORPEN};
    Device::Clip clip;
    if (i % 2)
      clip = CRect{5, 7, 41, 39};
    device.Line(a, b, stroke, clip);
    device.Rectangle({a.x, a.y, b.x, b.y}, stroke, white, clip);
    device.Line(b, a, stroke, clip);
    device.Rectangle({b.x, b.y, a.x, a.y}, stroke, white, clip);
    ASSERT_EQ(device.Image(), before) << i;
  }
  device.Line({5, 20}, {50, 31}, {PS_DASHDOTDOT, 1, 0, R2_NOTXORPEN}, {});
  EXPECT_NE(device.Image(), before);
}

TEST_P(ImageDeviceTest, AreasExcludeRightAndBottomAndTakeEdgesInAnyOrder) {
  device.FillRect({7, 5, 20, 30}, ink, CRect{0, 10, 15, 100});
  expectInk({7, 10, 15, 30});
  for (const int w : {1, 3}) {
    for (const CRect& rect : {CRect{10, 8, 30, 25}, CRect{30, 8, 10, 25}, CRect{30, 25, 10, 8}}) {
      clear();
      device.Rectangle(rect, {PS_SOLID, w, ink}, ink, {});
      expectInk({10 - w / 2, 8 - w / 2, 29 - w / 2 + w, 24 - w / 2 + w});
      device.Rectangle(rect, {PS_SOLID, w, ink}, RGB(1, 2, 3), {});
      EXPECT_EQ(device.PixelAt({10, 8}), ink);
      EXPECT_EQ(device.PixelAt({29, 24}), ink);
      EXPECT_EQ(device.PixelAt({20, 15}), RGB(1, 2, 3));
    }
  }
  clear();
  device.FillRect({7, 5, 7, 30}, ink, {});
  device.FillRect({20, 5, 7, 30}, ink, {});
  device.Rectangle({7, 5, 7, 30}, {PS_SOLID, 1, ink}, ink, {});
  device.Ellipse({7, 5, 20, 5}, {PS_SOLID, 1, ink}, ink, {});
  EXPECT_EQ(inkedPixels(), 0);
}

TEST_P(ImageDeviceTest, EllipsesFillTheirRectangleAndNothingBeyond) {
  for (const int extent : {1, 2, 3, 4, 6, 21}) {
    for (const bool reversed : {false, true}) {
      clear();
      const CRect rect{12, 10, 12 + extent, 10 + extent};
      const CRect given = reversed ? CRect{rect.right, rect.bottom, rect.left, rect.top} : rect;
      device.Ellipse(given, {PS_SOLID, 1, ink}, ink, {});
      QRect touched;
      const QImage& image = device.Image();
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
          if (FromQt(image.pixel(x, y)) == ink)
            touched |= QRect(x, y, 1, 1);
        }
      }
      // At a broken scale the outline may be a device pixel thicker than the pixel that it lies on.
      const QRect area = PixelScale(GetParam()).Area(rect);
      const int broken = edge(2) == 2 * edge(1) ? 0 : 1;
      EXPECT_TRUE(touched.contains(area) && area.adjusted(0, 0, broken, broken).contains(touched))
          << extent;
      device.Ellipse(given, {PS_SOLID, 1, ink}, RGB(9, 8, 7), {});
      if (extent > 4) {
        EXPECT_EQ(device.PixelAt({12 + extent / 2, 10 + extent / 2}), RGB(9, 8, 7));
        EXPECT_EQ(device.PixelAt({12, 10}), white) << "a corner";
      }
    }
  }
}

TEST(ImageDeviceLines, DiagonalsOfWidthOneTakeOnePixelAStep) {
  constexpr int middle = 30;
  for (int dx = -9; dx <= 9; ++dx) {
    for (int dy = -9; dy <= 9; ++dy) {
      ImageDevice device({61, 61}, 1.0, white);
      device.Line({middle, middle}, {middle + dx, middle + dy}, {PS_SOLID, 1, ink}, {});
      const int n = std::max(std::abs(dx), std::abs(dy));
      EXPECT_EQ(device.PixelAt({middle, middle}), ink);
      EXPECT_EQ(device.PixelAt({middle + dx, middle + dy}), ink);
      int count = 0;
      for (int y = 0; y < 61; ++y) {
        for (int x = 0; x < 61; ++x) {
          if (device.PixelAt({x, y}) != ink)
            continue;
          ++count;
          // On the exact line, to half a pixel across.
          EXPECT_LE(2 * std::abs((x - middle) * dy - (y - middle) * dx), n) << dx << ", " << dy;
        }
      }
      EXPECT_EQ(count, n + 1) << dx << ", " << dy;
    }
  }
}

TEST(ImageDeviceLines, WhatLiesFarOutsideKeepsItsCourse) {
  for (const int w : {1, 3}) {
    ImageDevice device({100, 100}, 2.0, white);
    device.Line({-29950, -29950}, {30000, 30000}, {PS_SOLID, w, ink}, {});
    for (const int c : {0, 50, 99})
      EXPECT_EQ(device.PixelAt({c, c}), ink);
    EXPECT_EQ(device.PixelAt({20, 60}), white);
    device.Line({-30000, 30000}, {30000, 30001}, {PS_DOT, w, RGB(1, 1, 1)}, {});
    EXPECT_EQ(device.PixelAt({20, 60}), white);
  }
}

}  // namespace
}  // namespace sparlow::qt
