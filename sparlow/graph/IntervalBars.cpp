#include "sparlow/graph/IntervalBars.h"

#include <algorithm>

#include "sparlow/axis/PixelMapping.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

// The vertical bar counts in twentieths of the range on show, so a page is all of it.
constexpr unsigned verticalPage = 20;
constexpr double verticalShare = 0.05;

/// Whole steps, truncated, within what a bar can count.
int wholeSteps(double steps) {
  return SaturatePixel(steps);
}

bool isPartShown(const ViewData& series, const GraphAxis& axis) {
  return series.adjusted && series.Valid() && !series.IntervalWhole() && axis.hor.autoRange;
}

bool isRangePartShown(const ViewData& series, const GraphAxis& axis) {
  return isPartShown(series, axis) && !axis.ver.log && !axis.yAutoZoom &&
         series.yGlobalIntervalGet() > axis.ver.range;
}

}  // namespace

double IntervalBars::VerticalStep(const GraphAxis& axis) {
  return axis.ver.range * verticalShare;
}

void IntervalBars::Hide() const {
  ShowScrollBar(window_, SB_BOTH, false);
}

void IntervalBars::Show(const ViewData& series, const GraphAxis& axis) const {
  ShowScrollBar(window_, SB_HORZ, isPartShown(series, axis));
  ShowScrollBar(window_, SB_VERT, isRangePartShown(series, axis));
  SCROLLINFO bar;
  if (isPartShown(series, axis) && GetScrollInfo(window_, SB_HORZ, &bar)) {
    bar.nMin = 0;
    bar.nMax = std::max(static_cast<int>(series.GetSize()) - 1, 0);
    bar.nPage = series.GetIntervalSize();
    bar.nPos = static_cast<int>(series.GetFrom());
    SetScrollInfo(window_, SB_HORZ, bar);
  }
  if (isRangePartShown(series, axis) && GetScrollInfo(window_, SB_VERT, &bar)) {
    const double step = VerticalStep(axis);
    bar.nMin = 0;
    bar.nMax = wholeSteps(series.yGlobalIntervalGet() / step);
    bar.nPage = verticalPage;
    bar.nPos = wholeSteps((series.yGlobalMaxGet() - axis.ver.max) / step + 0.5);
    SetScrollInfo(window_, SB_VERT, bar);
  }
}

std::optional<int> IntervalBars::DraggedTo() const {
  SCROLLINFO bar;
  if (!GetScrollInfo(window_, SB_VERT, &bar))
    return std::nullopt;
  return bar.nTrackPos;
}

}  // namespace sparlow
