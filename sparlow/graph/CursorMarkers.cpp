#include "sparlow/graph/CursorMarkers.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "sparlow/axis/GraphAxis.h"
#include "sparlow/data/SampleSearch.h"
#include "sparlow/graph/GraphColors.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void CursorMarkers::SetColors(const GraphColors& colors) {
  left_.SetColor(colors.cursorLeft);
  right_.SetColor(colors.cursorRight);
}

void CursorMarkers::Draw(HDC dc, HDC painted, const ViewData& series, const GraphAxis* axis,
                         int height) {
  // Both before either is drawn: where one stood the other may come to stand.
  if (painted) {
    left_.Erase(dc, painted);
    right_.Erase(dc, painted);
  }
  left_.Draw(dc, painted, series.xLCursorPosGet(axis), series.yLCursorPosGet(axis), height);
  right_.Draw(dc, painted, series.xRCursorPosGet(axis), series.yRCursorPosGet(axis), height);
}

bool CursorMarkers::InReach(const CPoint& point, int x, int y, int height) {
  constexpr std::int64_t reach = 5;
  // Where the arrow of a point above or below the plot is taken hold of.
  if (y < 0)
    y = 5;
  else if (y >= height)
    y = height - 6;
  // In 64 bits: a host may pass any point.
  return std::abs(std::int64_t{point.x} - x) < reach && std::abs(std::int64_t{point.y} - y) < reach;
}

void CursorMarkers::HoldLeft() {
  left_.drag = true;
  right_.drag = false;
}

void CursorMarkers::HoldRight() {
  left_.drag = false;
  right_.drag = true;
}

void CursorMarkers::LetGo() {
  left_.drag = right_.drag = false;
}

void CursorMarkers::DragTo(int x, int width, ViewData& series, const GraphAxis& axis) {
  const SampleReader samples = series.Read();
  if (samples.empty())
    return;
  const AxisData& hor = axis.hor;
  const unsigned last = samples.size() - 1;
  // The value of the last pixel is a rounding away from the last sample on show.
  const double value = axis.xPointValue(x);
  unsigned i =
      std::min(series.SampleAtOrBefore(x < width ? value : std::max(value, hor.max)), last);
  // Whichever is held: one that crosses the other gives the other its own sample.
  if (!hor.autoRange)
    i = FirstNotBelow(samples, i, last, hor.fixedMin);
  if (left_.drag) {
    right_.drag = series.SetLCursor(i);
    left_.drag = !right_.drag;
  }
  if (right_.drag) {
    if (!hor.autoRange)
      i = LastNotAbove(samples, 0, i, hor.fixedMax);
    left_.drag = series.SetRCursor(i);
    right_.drag = !left_.drag;
  }
}

}  // namespace sparlow
