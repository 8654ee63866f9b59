#include "sparlow/platform/qt/ImageDevice.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <vector>

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

TEST_P(ImageDeviceTest, PiecesOfACurveCoverBothEndsAndAllRowsBetween) {
  const CPoint a{20, 25};
  for (const int w : {1, 2, 3}) {
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
  const std::pair<int, std::vector<int>> patterns[] = {{PS_DASH, {18, 6}},
                                                       {PS_DOT, {3, 3}},
                                                       {PS_DASHDOT, {9, 6, 3, 6}},
                                                       {PS_DASHDOTDOT, {9, 3, 3, 3, 3, 3}}};
  for (const auto& [style, lengths] : patterns) {
    for (const int w : {1, 2}) {
      SCOPED_TRACE(testing::Message() << style << ", width " << w);
      std::vector<COLORREF> expected;
      for (std::size_t i = 0; expected.size() < 130; ++i)
        expected.insert(expected.end(), lengths[i % lengths.size()] * std::max(1, edge(w)),
                        i % 2 == 0 ? ink : white);
      inkedBy({0, 20}, {59, 20}, {style, w, ink});
      // On a row of device pixels that every such line covers.
      for (int x = 0; x < device.Image().width() - 1; ++x)
        ASSERT_EQ(FromQt(device.Image().pixel(x, edge(20))),
                  expected[static_cast<std::size_t>(x - edge(-(w / 2)))])
            << x;
    }
  }
  const int solid = inkedBy({5, 5}, {50, 40}, {PS_SOLID, 3, ink});
  EXPECT_NEAR(inkedBy({5, 5}, {50, 40}, {PS_DOT, 3, ink}), solid / 2, solid / 8);
}

TEST_P(ImageDeviceTest, ASecondNotXorDrawingRestoresEverything) {
  test::MakeNoise(device);
  const QImage before = device.Image().copy();
  std::mt19937 random(11);
  const auto coordinate = [&random](int far) {
    return static_cast<int>(random() % static_cast<unsigned>(2 * far)) - far;
  };
  for (int i = 0; i < 400; ++i) {
    const CPoint a{coordinate(70), coordinate(70)};
    const int far = i % 10 == 0 ? 30000 : 70;
    const CPoint b{i % 3 == 0 ? a.x : coordinate(far), i % 5 == 0 ? a.y : coordinate(far)};
    const Stroke stroke{i % 5, 1 + i % 7, ink, R2_NOTXORPEN};
    const auto clip = i % 2 ? Device::Clip(CRect{5, 7, 41, 39}) : Device::Clip();
    for (const auto& [from, to] : {std::pair{a, b}, {b, a}}) {
      device.Line(from, to, stroke, clip);
      device.Rectangle({from.x, from.y, to.x, to.y}, stroke, white, clip);
    }
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

TEST_P(ImageDeviceTest, ASavedAreaComesBackExactly) {
  test::MakeNoise(device);
  const QImage before = device.Image().copy();
  DeviceContext context{&device};
  CDC dc{&context};
  const HDC memory = CreateCompatibleDC(&context);
  const HBITMAP bitmap = CreateCompatibleBitmap(&context, size.cx, size.cy);
  CDC(memory).SelectObject(bitmap);
  CDC(memory).BitBlt(0, 0, size.cx, size.cy, &context, 0, 0, SRCCOPY);
  dc.FillSolidRect({7, 5, 24, 22}, filling);
  EXPECT_EQ(dc.GetPixel({7, 5}), filling);
  dc.BitBlt(7, 5, 17, 17, memory, 7, 5, SRCCOPY);
  EXPECT_EQ(device.Image(), before);
  // Onto itself, down and up again, by whole pixels.
  const QRect kept = area({0, 0, size.cx, size.cy - 4});
  dc.BitBlt(0, 4, size.cx, size.cy, &context, 0, 0, SRCCOPY);
  dc.BitBlt(0, 0, size.cx, size.cy, &context, 0, 4, SRCCOPY);
  EXPECT_EQ(device.Image().copy(kept), before.copy(kept));
  dc.BitBlt(0, 0, size.cx, size.cy, memory, 0, 0, SRCCOPY);
  // Beyond the edges of both.
  dc.BitBlt(-100, -100, 1000, 1000, memory, -100, -100, SRCCOPY);
  EXPECT_EQ(device.Image(), before);
  DeleteDC(memory);
  DeleteObject(bitmap);
  EXPECT_EQ(dc.GetPixel({size.cx, 0}), 0xFFFFFFFFu) << "outside";
  // One from a screen of another scale has its place too, and each keeps to the clip.
  clear();
  for (const double scale : {GetParam(), 3.0}) {
    device.Copy({5, 5, 50, 40}, ImageDevice(size, scale, ink), {0, 0}, CRect{12, 0, 30, 15});
    expectInk(area({12, 5, 30, 15}));
  }
}

TEST_P(ImageDeviceTest, TextFillsItsCellAndTakesTheSameRoomAtEveryScale) {
  const FontRequest font{"Arial", 15};
  const CSize extent = device.TextExtent("Hgjy|", font);
  EXPECT_EQ(extent, ImageDevice({1, 1}, 1.0, white).TextExtent("Hgjy|", font));
  EXPECT_NEAR(extent.cy, 14, 1);
  device.Text({10, 10}, "Hgjy|", font, ink, {});
  const QRect touched = Find(device.Image(), white, true).area;
  const QRect cell = area({10, 10, 10 + extent.cx, 10 + extent.cy});
  EXPECT_TRUE(cell.adjusted(-2, -1, 2, 1).contains(touched));
  EXPECT_GT(touched.height(), cell.height() * 2 / 3);
  EXPECT_GT(touched.width(), cell.width() * 3 / 4);
  // Its clip is not that of what comes after it.
  clear();
  device.Text({0, 0}, "Hgjy|", font, white, CRect{0, 0, 5, 5});
  device.FillRect({20, 20, 30, 30}, ink, {});
  expectInk(area({20, 20, 30, 30}));
}

}  // namespace
}  // namespace sparlow::qt
