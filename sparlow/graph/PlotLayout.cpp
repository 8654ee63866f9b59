#include "sparlow/graph/PlotLayout.h"

#include <algorithm>
#include <cstdint>

#include "sparlow/axis/GraphAxis.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void PlotLayout::LayOut(const CRect& area, GraphAxis& axis, const ViewData* series, int legend,
                        double factor) {
  constexpr int columns = static_cast<int>(ViewData::kMaxColumns);
  tooLarge_ = area.Width() >= columns || area.Height() >= columns;
  const int left = Offset::Left(axis.ver.maxLabelLength, factor);
  const int top = TopOffset(series, factor);
  const int height = std::max(area.Height(), Offset::hMin(factor)) - top - Offset::Bottom(factor);
  const int width = std::max(area.Width(), Offset::wMin(factor)) - left - Offset::Right(factor);
  const std::lock_guard whole(lock_);
  origin_ = {left, top};
  height_ = std::max(height - legend, 1);
  width_ = std::max(width, 1);
  axis.ver.CalculateScale(static_cast<unsigned>(height_.load()));
  axis.hor.CalculateScale(static_cast<unsigned>(width_.load()));
}

CPoint PlotLayout::Origin(const CRect& area) const {
  const std::lock_guard whole(lock_);
  return {area.left + origin_.x, area.top + origin_.y};
}

CPoint PlotLayout::Clip(CPoint point) const {
  const std::lock_guard whole(lock_);
  // In 64 bits: a host may pass any point.
  const std::int64_t x = static_cast<std::int64_t>(point.x) - origin_.x;
  const std::int64_t y = static_cast<std::int64_t>(point.y) - origin_.y;
  return {static_cast<int>(std::clamp<std::int64_t>(x, 0, width_)),
          static_cast<int>(std::clamp<std::int64_t>(y, 0, height_))};
}

}  // namespace sparlow
