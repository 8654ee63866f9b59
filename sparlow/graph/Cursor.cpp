#include "sparlow/graph/Cursor.h"

#include <algorithm>

#include "sparlow/axis/PixelMapping.h"
#include "sparlow/graph/SelectedPen.h"

namespace sparlow {

namespace {

/// A pen of no width is a pixel wide all the same, and has to be erased.
int penPixels() {
  return std::clamp<int>(Cursor::PenWidth, 1, 1000);
}

}  // namespace

void Cursor::SetStyle(int style) {
  if (style == 0)
    SetStyleRect();
  else if (style == 1)
    SetStyleCircle();
  else
    SetStyleCross();
}

void Cursor::SetStyleRect() {
  Style = 0;
  PenWidth = 3;
}

void Cursor::SetStyleCircle() {
  Style = 1;
  PenWidth = 5;
}

void Cursor::SetStyleCross() {
  Style = 2;
  PenWidth = 5;
}

void Cursor::Clear(HDC dc, HDC memDC) const {
  CRect area = rect;
  area.NormalizeRect();
  if (area.IsRectEmpty())
    return;
  // The last pixel of a thin pen lies on the edge that a rectangle leaves out, and a broken screen
  // scale adds a pixel to a pen.
  constexpr int overhang = 2;
  CDC(dc).BitBlt(area.left - overhang, area.top - overhang, area.Width() + 2 * overhang,
                 area.Height() + 2 * overhang, memDC, area.left - overhang, area.top - overhang,
                 SRCCOPY);
}

void Cursor::Erase(HDC dc, HDC memDC) {
  Clear(dc, memDC);
  rect = {};
}

void Cursor::Draw(HDC dc, HDC memDC, int x, int y, int height) {
  if (memDC)
    Clear(dc, memDC);
  CDC target(dc);
  const int pen = target.LogicalToDevice(penPixels());
  const SelectedPen selected(&target, PS_SOLID, pen, color);
  target.SetROP2(R2_COPYPEN);
  // A host may give any int, and so may its mapping.
  height = std::clamp(height, -kFarPixel, kFarPixel);
  const CPoint at{std::clamp(x, -kFarPixel, kFarPixel), std::clamp(y, -kFarPixel, kFarPixel)};
  const bool above = y < 0;
  const CRect covered = !above && y <= height
                            ? drawShape(dc, at, pen)
                            : drawArrow(dc, at.x, above ? 0 : height, above ? 1 : -1, pen);
  if (memDC)
    rect = covered;
}

CRect Cursor::drawShape(HDC dc, CPoint at, int pen) const {
  CDC target(dc);
  const auto around = [at](int reach) {
    return CRect{at.x - reach, at.y - reach, at.x + reach, at.y + reach};
  };
  const int half = (penPixels() + 1) / 2;
  if (Style == 0) {
    target.Rectangle(around(half));
  } else if (Style == 1) {
    target.Ellipse(around(half));
  } else {
    target.MoveTo(at.x - pen, at.y - pen);
    target.LineTo(at.x + pen, at.y + pen);
    target.MoveTo(at.x + pen, at.y - pen);
    target.LineTo(at.x - pen, at.y + pen);
  }
  return around(pen * 8 / 5);
}

CRect Cursor::drawArrow(HDC dc, int x, int edge, int dir, int pen) const {
  CDC target(dc);
  const int a = Style == 0 ? 2 * pen : pen;
  target.MoveTo(x - a, edge + dir * a);
  target.LineTo(x, edge);
  target.LineTo(x + a, edge + dir * a);
  target.MoveTo(x, edge);
  target.LineTo(x, edge + 2 * dir * a);
  // The head lies inside the plot, the tip on its edge.
  return {x - 2 * a, edge - dir * a, x + 2 * a, edge + dir * 3 * a};
}

}  // namespace sparlow
