// The strip under the plot that names the series, each in the colour of its curve.

#include "sparlow/multi/MultiGraph.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

constexpr int linePitch = 15;
constexpr int topMargin = 21;  // the horizontal labels lie in between
constexpr int gap = 5;         // to what lies right of the names

}  // namespace

CRect MultiGraph::GetLegendRect(const SourceDataList& list) const {
  const int top = layout.Height() + Offset::ToDevice(topMargin, pixelFactor);
  return {0, top, layout.Width(), top + Offset::ToDevice(linePitch * list.count + 4, pixelFactor)};
}

int MultiGraph::LegendOffset() const {
  return GetLegendRect(viewDataList).Height();
}

void MultiGraph::DrawLegend(CDC* dc) {
  CRect rect = GetLegendRect(viewDataList);
  rect.right -= dc->LogicalToDevice(gap) + legendMaskWidth;
  DrawSubLegend(dc, rect, viewDataList);
}

void MultiGraph::DrawSubLegend(CDC* dc, CRect rect, const SourceDataList& list) {
  const unsigned alignBefore = dc->SetTextAlign(TA_LEFT | TA_TOP);
  for (const ViewData* const data : list) {
    const COLORREF colorBefore = dc->SetTextColor(data->GetColor());
    dc->DrawText(data->GetName(), rect, DT_SINGLELINE | DT_WORD_ELLIPSIS);
    rect.top += dc->LogicalToDevice(linePitch);
    dc->SetTextColor(colorBefore);
  }
  dc->SetTextAlign(alignBefore);
}

}  // namespace sparlow
