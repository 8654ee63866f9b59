// The scroll bars: whether they show, how far they reach, where they stand.

#include <algorithm>

#include "sparlow/axis/PixelMapping.h"
#include "sparlow/graph/Graph.h"
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

}  // namespace

/// Nobody resizes while it lives. It leaves resizing free at its end, also where a host had locked
/// it.
class Graph::ResizingLocked {
 public:
  ResizingLocked() { LockResize = true; }
  ~ResizingLocked() { LockResize = false; }
  ResizingLocked(const ResizingLocked&) = delete;
  ResizingLocked& operator=(const ResizingLocked&) = delete;
};

double Graph::verticalStep() const {
  return axis->ver.range * verticalShare;
}

bool Graph::hsbValid() const {
  const ViewData* const series = activeViewData;
  return series && series->adjusted && series->Valid() && !series->IntervalWhole() &&
         axis->hor.autoRange;
}

bool Graph::vsbValid() const {
  return hsbValid() && CanYScroll() && !axis->yAutoZoom &&
         activeViewData.load()->yGlobalIntervalGet() > axis->ver.range;
}

void Graph::sbRender() {
  // A bar that comes or goes changes the size of the window. The update that this is part of lays the
  // window out anyway.
  const ResizingLocked locked;
  sbEnable();
  sbSetRange();
  sbSetThumbPos();
}

void Graph::sbEnable() {
  ShowScrollBar(hWnd, SB_HORZ, hsbValid());
  ShowScrollBar(hWnd, SB_VERT, vsbValid());
}

void Graph::sbSetRange() {
  const ViewData* const series = activeViewData;
  SCROLLINFO bar;
  if (hsbValid() && GetScrollInfo(hWnd, SB_HORZ, &bar)) {
    bar.nMin = 0;
    bar.nMax = std::max(static_cast<int>(series->GetSize()) - 1, 0);
    bar.nPage = series->GetIntervalSize();
    SetScrollInfo(hWnd, SB_HORZ, bar);
  }
  if (vsbValid() && GetScrollInfo(hWnd, SB_VERT, &bar)) {
    bar.nMin = 0;
    bar.nMax = wholeSteps(series->yGlobalIntervalGet() / verticalStep());
    bar.nPage = verticalPage;
    SetScrollInfo(hWnd, SB_VERT, bar);
  }
}

void Graph::sbSetThumbPos() {
  const ViewData* const series = activeViewData;
  if (hsbValid())
    SetScrollPos(hWnd, SB_HORZ, static_cast<int>(series->GetFrom()));
  if (vsbValid()) {
    const double below = series->yGlobalMaxGet() - axis->ver.max;
    SetScrollPos(hWnd, SB_VERT, wholeSteps(below / verticalStep() + 0.5));
  }
}

}  // namespace sparlow
