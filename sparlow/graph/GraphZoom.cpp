// What a user sees of a zoom under way.

#include "sparlow/graph/Graph.h"
#include "sparlow/graph/SelectedPen.h"
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

}  // namespace

void Graph::DrawZoomBox(CDC* dc) {
  if (!axis->hor.autoRange)
    return;
  dc->SetViewportOrg(Offset::Left(axis->ver.maxLabelLength), TopOffset(activeViewData));
  const SelectedPen pen(dc, PS_DASHDOTDOT, Offset::ToDevice(1), 0x000000);
  dc->SetROP2(R2_NOTXORPEN);
  // Drawn a second time, the old box gives back what it lay on.
  drawBox(dc, zoomStart, zoomPrev);
  drawBox(dc, zoomStart, zoomEnd);
}

}  // namespace sparlow
