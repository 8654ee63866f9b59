// The zooms: the box that the user draws, and what becomes of the interval and the ranges.

#include <cmath>

#include "sparlow/graph/Graph.h"
#include "sparlow/graph/SelectedPen.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

void drawBox(CDC* dc, CPoint a, CPoint b) {
  dc->MoveTo(a.x, a.y);
  dc->LineTo(b.x, a.y);
  dc->LineTo(b.x, b.y);
  dc->LineTo(a.x, b.y);
  dc->LineTo(a.x, a.y);
}

/// A box lower than this share of all the data's range leaves the vertical range alone.
constexpr double kLeastShare = 0.025;

}  // namespace

bool Graph::canZoom() const {
  return DataAndAxisValid() && axis->hor.autoRange;
}

void Graph::ZoomInByPoint() {
  const WindowHold hold(hWnd);
  bool zoomed = false;
  const bool tried = changeInTurn([&] {
    if (!canZoom())
      return false;
    const double left = axis->xPointValue(zoomStart.x), right = axis->xPointValue(zoomEnd.x);
    zoomed = zoomVertically();
    zoomed = activeViewData.load()->ZoomInByPoint(left, right, &axis->hor) || zoomed;
    if (zoomed)
      axis->preset = false;
    return true;
  });
  if (!tried)
    return;
  if (zoomed)
    UpdateGraph();
  else
    DrawAll();  // takes the box off the window
}

bool Graph::zoomVertically() {
  if (axis->yAutoZoom)
    return false;
  const ViewData* const series = activeViewData;
  const AxisData& ver = axis->ver;
  const double top = ver.GetValueByPosInv(zoomStart.y), bottom = ver.GetValueByPosInv(zoomEnd.y);
  // In decades where the axis counts in them.
  const auto spanOf = [&](double low, double high) {
    const auto place = [&](double y) { return std::log10(y > 0.0 ? y : ver.min); };
    return std::fabs(ver.log ? place(high) - place(low) : high - low);
  };
  const double least = kLeastShare * spanOf(series->yGlobalMinGet(), series->yGlobalMaxGet());
  const double span = spanOf(bottom, top);
  if (!(span > least) || !std::isfinite(span))
    return false;
  axis->SetVer(bottom, top);
  return true;
}

void Graph::ZoomInByCursor() {
  zoomInterval([this] { return activeViewData.load()->ZoomInByCursor(); });
}

// A range that the host has preset holds until the user wants another one.
void Graph::zoomInterval(const std::function<bool()>& zoom) {
  changeAndUpdate([&] {
    if (!canZoom() || !zoom())
      return false;
    axis->preset = false;
    return true;
  });
}

void Graph::ZoomInBySample() {
  zoomBySample(true);
}

void Graph::ZoomOutBySample() {
  zoomBySample(false);
}

void Graph::zoomBySample(bool in) {
  constexpr int factor = 2;
  zoomInterval([&] { return activeViewData.load()->SetIntervalBySample(in, &axis->hor, factor); });
}

void Graph::ZoomOutFull() {
  zoomInterval([this] {
    zoomOutFullPrimary();
    zoomOutFullSecondary();
    return true;
  });
}

void Graph::DrawZoomBox(CDC* dc) {
  if (!axis->hor.autoRange)
    return;
  const CPoint origin = plotOriginIn({});
  dc->SetPixelFactor(pixelFactor);
  dc->SetViewportOrg(origin.x, origin.y);
  const SelectedPen pen(dc, PS_DASHDOTDOT, dc->LogicalToDevice(1), 0x000000);
  dc->SetROP2(R2_NOTXORPEN);
  // Drawn a second time, the old box gives back what it lay on.
  drawBox(dc, zoomStart, zoomPrev);
  drawBox(dc, zoomStart, zoomEnd);
}

}  // namespace sparlow
