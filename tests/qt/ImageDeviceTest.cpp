#include "sparlow/platform/qt/ImageDevice.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "sparlow/graph/Cursor.h"
#include "sparlow/platform/paint/CDC.h"
#include "tests/qt/Pixels.h"

namespace sparlow::qt {
namespace {

using test::Find;
using test::Found;

constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF ink = RGB(200, 30, 10);
constexpr COLORREF filling = RGB(1, 2, 3);
constexpr CSize size{60, 50};

class ImageDeviceTest : public testing::TestWithParam<double> {
 protected:
  int edge(int c) const { return PixelScale(GetParam()).Edge(c); }
  QRect area(const CRect& rect) const { return PixelScale(GetParam()).Area(rect); }
  void clear() { device.Remake(size, GetParam(), white); }

  /// The surface is ink in exactly these device pixels, and white elsewhere. Then it is cleared.
  void expectInk(const QRect& inside) {
    const QImage& image = device.Image();
    const Found inked = Find(image, ink);
    EXPECT_EQ(inked.area, inside);
    EXPECT_EQ(inked.count, inside.width() * inside.height());
    EXPECT_EQ(Find(image, white).count, image.width() * image.height() - inked.count);
    clear();
  }
  int inkedBy(CPoint from, CPoint to, const Stroke& stroke) {
    clear();
    device.Line(from, to, stroke, {});
    return Find(device.Image(), ink).count;
  }

  ImageDevice device{size, GetParam(), white};
};

INSTANTIATE_TEST_SUITE_P(Scales, ImageDeviceTest, testing::Values(1.0, 1.25, 1.5, 2.0));

TEST_P(ImageDeviceTest, StraightLinesAreCrispAndTheSameInBothDirections) {
  const CPoint a{11, 13};
  const CRect clip{12, 0, 30, 15};
  for (const int w : {1, 2, 3, 4}) {
    const Stroke stroke{PS_SOLID, w, ink};
    for (const CPoint b : {CPoint{31, 13}, CPoint{11, 40}, a}) {
      SCOPED_TRACE(testing::Message() << "width " << w << ", to " << b.x << ", " << b.y);
      // At a broken scale all lines of a pen have one thickness, wherever they lie.
      const QPoint begin(edge(a.x - w / 2), edge(a.y - w / 2));
      const QPoint end(edge(b.x - w / 2) + edge(w), edge(b.y - w / 2) + edge(w));
      const QRect expected(begin, QSize(end.x() - begin.x(), end.y() - begin.y()));
      device.Line(a, b, stroke, {});
      expectInk(expected);
      device.Line(b, a, stroke, {});
      expectInk(expected);
      device.Line(a, b, stroke, clip);
      expectInk(expected.intersected(area(clip)));
    }
  }
}

TEST_P(ImageDeviceTest, WidePiecesOfACurveCoverBothEndsAndAllRowsBetween) {
  const CPoint a{20, 25};
  for (const int w : {2, 3}) {
    const auto end = [&](CPoint p) {
      return QRect(edge(p.x - w / 2), edge(p.y - w / 2), edge(w), edge(w));
    };
    for (const CPoint step : {CPoint{1, 20}, {2, -17}, {3, 3}, {-1, 14}, {15, 2}}) {
      SCOPED_TRACE(testing::Message() << "width " << w << ", by " << step.x << ", " << step.y);
      const CPoint b{a.x + step.x, a.y + step.y};
      const int count = inkedBy(a, b, {PS_SOLID, w, ink});
      const QImage image = device.Image().copy();
      for (const QRect& square : {end(a), end(b)})
        EXPECT_EQ(Find(image.copy(square & image.rect()), white).count, 0);
      // Each row has the pen's width at least, and no pixel is beyond the two ends.
      const QRect around = (end(a) | end(b)) & image.rect();
      EXPECT_EQ(Find(image, ink).area, around);
      EXPECT_GE(count, around.height() * edge(w));
      EXPECT_EQ(inkedBy(b, a, {PS_SOLID, w, ink}), count);
      EXPECT_EQ(device.Image(), image);
    }
    const int rows = device.Image().height() - end(a).top();
    EXPECT_EQ(inkedBy(a, {a.x + 2, 100000}, {PS_SOLID, w, ink}), rows * edge(w));
  }
}

TEST_P(ImageDeviceTest, PatternsScaleWithTheWidthAndGapsAreTransparent) {
  for (const int w : {1, 2}) {
    SCOPED_TRACE(w);
    inkedBy({0, 20}, {59, 20}, {PS_DOT, w, ink});
    const int dot = 3 * std::max(1, edge(w));
    // On a row of device pixels that every such line covers.
    for (int x = 0; x < device.Image().width() - 1; ++x) {
      const COLORREF expected = (x - edge(-(w / 2))) / dot % 2 == 0 ? ink : white;
      ASSERT_EQ(FromQt(device.Image().pixel(x, edge(20))), expected) << x;
    }
  }
}

TEST_P(ImageDeviceTest, ASecondNotXorDrawingRestoresEverything) {
  test::MakeNoise(device);
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
    const auto clip = i % 2 ? Device::Clip(CRect{5, 7, 41, 39}) : Device::Clip();
    device.Line(a, b, stroke, clip);
    device.Rectangle({a.x, a.y, b.x, b.y}, stroke, white, clip);
    device.Line(b, a, stroke, clip);
    device.Rectangle({b.x, b.y, a.x, a.y}, stroke, white, clip);
    ASSERT_EQ(device.Image(), before) << i;
  }
  device.Line({5, 20}, {50, 31}, {PS_SOLID, 1, 0, R2_NOTXORPEN}, {});
  EXPECT_NE(device.Image(), before);
}

TEST_P(ImageDeviceTest, AreasExcludeRightAndBottomAndTakeEdgesInAnyOrder) {
  device.FillRect({7, 5, 20, 30}, ink, CRect{0, 10, 15, 100});
  expectInk(area({7, 10, 15, 30}));
  for (const int w : {1, 3}) {
    for (const CRect& rect : {CRect{10, 8, 30, 25}, CRect{30, 25, 10, 8}}) {
      device.Rectangle(rect, {PS_SOLID, w, ink}, ink, {});
      expectInk(area({10 - w / 2, 8 - w / 2, 29 - w / 2 + w, 24 - w / 2 + w}));
      device.Rectangle(rect, {PS_SOLID, w, ink}, filling, {});
      EXPECT_EQ(device.PixelAt({10, 8}), ink);
      EXPECT_EQ(device.PixelAt({29, 24}), ink);
      EXPECT_EQ(device.PixelAt({20, 15}), filling);
      clear();
    }
  }
  device.FillRect({20, 5, 7, 30}, ink, {});
  device.Rectangle({7, 5, 7, 30}, {PS_SOLID, 1, ink}, ink, {});
  device.Ellipse({7, 5, 20, 5}, {PS_SOLID, 1, ink}, ink, {});
  expectInk({});
}

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

INSTANTIATE_TEST_SUITE_P(Scales, ImageCopy, testing::Values(1.0, 1.25, 1.5, 2.0));

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

TEST_P(ImageCopy, AMarkerOfAnyShapeIsTakenAwayExactly) {
  constexpr CSize room{100, 100};
  ImageDevice frame(room, GetParam(), white);
  test::MakeNoise(frame);
  ImageDevice shown(room, GetParam(), white);
  shown.Copy({0, 0, 100, 100}, frame, {0, 0}, {});
  const QImage before = shown.Image().copy();
  DeviceContext onFrame{&frame}, onWindow{&shown};
  for (int style = 0; style < 3; ++style) {
    Cursor::SetStyle(style);
    for (int width = 1; width <= 9; ++width) {
      Cursor::PenWidth = width;
      for (const int y : {-1, 43, 100}) {
        Cursor cursor;
        cursor.Draw(&onWindow, &onFrame, 50, y, 90);
        EXPECT_NE(shown.Image(), before);
        cursor.Clear(&onWindow, &onFrame);
        ASSERT_EQ(shown.Image(), before) << style << ' ' << width << ' ' << y;
      }
    }
  }
  Cursor::SetStyleCross();
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
      device.Text({20, 10}, "Hgjy|", font, ink, {});
      const QRect touched = test::Find(device.Image(), white, true).area;
      const QRect cell = PixelScale(scale).Area({20, 10, 20 + extent.cx, 10 + extent.cy});
      EXPECT_TRUE(cell.adjusted(-2, 0, 2, 0).contains(touched));
      EXPECT_GT(touched.height(), cell.height() * 2 / 3);
      EXPECT_GT(touched.width(), cell.width() * 3 / 4);
    }
  }
}

}  // namespace
}  // namespace sparlow::qt
