// Zooms, scrolls and ranges that the user fixes: what becomes of the interval and the axes.

#include <cmath>

#include "sparlow/graph/AxisRangeEditor.h"
#include "sparlow/graph/GraphParts.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

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

void Graph::Scroll(int samples) {
  changeAndUpdate([&] {
    if (!axis || !DataValid())
      return false;
    activeViewData.load()->Scroll(samples, &axis->hor);
    return true;
  });
}

void Graph::ScrollTo(unsigned first) {
  changeAndUpdate([&] {
    if (!DataValid())
      return false;
    activeViewData.load()->ScrollTo(first);
    return true;
  });
}

void Graph::yScroll(bool up) {
  changeAndUpdate([&] {
    if (!DataAndAxisValid() || !CanYScroll())
      return false;
    const AxisData& ver = axis->ver;
    const double step = up ? IntervalBars::VerticalStep(*axis) : -IntervalBars::VerticalStep(*axis);
    axis->SetVer(ver.min + step, ver.max + step);
    return true;
  });
}

void Graph::yScrollDo() {
  const std::optional<int> steps = parts->bars.DraggedTo();
  if (!steps)
    return;
  changeAndUpdate([&] {
    if (!DataAndAxisValid() || !CanYScroll())
      return false;
    const double top =
        activeViewData.load()->yGlobalMaxGet() - *steps * IntervalBars::VerticalStep(*axis);
    axis->SetVer(top - axis->ver.range, top);
    return true;
  });
}

void Graph::OnYAutoZoom() {
  ChangeAxes([](GraphAxis& axes) { axes.yAutoZoom = !axes.yAutoZoom; });
}

void Graph::OnXRange() {
  editRange(&GraphAxis::hor);
}

void Graph::OnYRange() {
  editRange(&GraphAxis::ver);
}

void Graph::editRange(AxisData GraphAxis::*which) {
  AxisRangeEditor* const editor = AxisRangeEditor::Current();
  if (!editor || !axis || Closed())
    return;
  const WindowHold hold(hWnd);
  const AxisData& before = axis->*which;
  const bool wasAutomatic = before.autoRange;
  AxisRange range{before.fixedMin, before.fixedMax, wasAutomatic, before.funcName, before.log};
  editor->Edit(range);
  changeAndUpdate([&] {
    AxisData& edited = axis->*which;
    range.ApplyTo(edited);
    if (range.autoRange && (range.confirmed || !wasAutomatic))
      axis->preset = false;
    if (!DataValid())
      return false;
    if (which == &GraphAxis::hor)
      ResetInterval();
    return true;
  });
}

}  // namespace sparlow
