// The curves of several series: how they are rendered and drawn.

#include <algorithm>

#include "sparlow/multi/MultiGraph.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

bool MultiGraph::RenderSecondaryGraphs() {
  return renderList(Snapshot(viewDataList), true);
}

bool MultiGraph::renderList(const SourceDataList& list, bool followAxis) {
  const ViewData* const primary = activeViewData;
  return std::all_of(list.begin(), list.end(), [&](ViewData* data) {
    return data == primary || !data->Valid() || renderBeside(*data, followAxis);
  });
}

void MultiGraph::DrawSecondaryGraphs(CDC* dc) {
  DrawList(dc, viewDataList);
}

void MultiGraph::DrawList(CDC* dc, const SourceDataList& list) {
  for (const ViewData* const data : list) {
    if (data != activeViewData)
      data->Draw(dc, layout.Height(), false);
  }
}

void MultiGraph::DrawPrimaryGraph(CDC* dc) {
  activeViewData.load()->Draw(dc, layout.Height(), IsMultiple());
}

}  // namespace sparlow
