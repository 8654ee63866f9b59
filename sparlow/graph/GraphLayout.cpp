// Where the plot lies in the window, and how large it is.

#include <algorithm>

#include "sparlow/graph/Graph.h"
#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void Graph::SetGraphArea(const CRect& area) {
  constexpr int columns = static_cast<int>(ViewData::kMaxColumns);
  tooLarge = area.Width() >= columns || area.Height() >= columns;
  const double factor = pixelFactor;
  const int left = Offset::Left(axis->ver.maxLabelLength, factor);
  const int top = TopOffset(activeViewData, factor);
  int plotHeight = std::max(area.Height(), Offset::hMin(factor)) - top - Offset::Bottom(factor);
  const int plotWidth = std::max(area.Width(), Offset::wMin(factor)) - left - Offset::Right(factor);
  if (IsLegend())
    plotHeight -= LegendOffset();
  const std::lock_guard whole(layoutLock);
  plotOrigin = {left, top};
  height = std::max(plotHeight, 1);
  width = std::max(plotWidth, 1);
  axis->ver.CalculateScale(static_cast<unsigned>(height.load()));
  axis->hor.CalculateScale(static_cast<unsigned>(width.load()));
}

CPoint Graph::plotOriginIn(const CRect& area) const {
  const std::lock_guard whole(layoutLock);
  return {area.left + plotOrigin.x, area.top + plotOrigin.y};
}

void Graph::layOut() {
  CRect client;
  GetClientRect(hWnd, &client);
  SetGraphArea(client);
}

void Graph::tellTooLarge(bool isTooLarge) {
  // Messages that are handled while it is open would open another.
  if (!isTooLarge || pipeline.Closed() || boxOpen.exchange(true))
    return;
  AfxMessageBox("Screen or printer resolution is too high.\nThe graph will be truncated.", 0, 0);
  boxOpen = false;
}

void Graph::Clip(CPoint& point) const {
  const std::lock_guard whole(layoutLock);
  // In 64 bits: a host may pass any point.
  const std::int64_t x = static_cast<std::int64_t>(point.x) - plotOrigin.x;
  const std::int64_t y = static_cast<std::int64_t>(point.y) - plotOrigin.y;
  point.x = static_cast<int>(std::clamp<std::int64_t>(x, 0, width));
  point.y = static_cast<int>(std::clamp<std::int64_t>(y, 0, height));
}

void Graph::CreateTextFont(CFont* font, CDC* dc) {
  constexpr int points = 11;
  font->CreateFont(MulDiv(points, dc->GetDeviceCaps(LOGPIXELSY), 72), FW_NORMAL, "Arial");
}

}  // namespace sparlow
