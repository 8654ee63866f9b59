#include "sparlow/ui/CMultiGraphView.h"

#include "sparlow/multi/MultiGraph.h"

namespace sparlow {

using View = CMultiGraphView;

const CRuntimeClass View::classCMultiGraphView{"CMultiGraphView", View::CreateObject,
                                               &CSingleGraphView::classCSingleGraphView};
const MessageEntry View::messageEntries[] = {
    {WM_COMMAND, HandleCommand<View, &View::OnSetActiveGraph>, ID_SELECT_GRAPH,
     ID_SELECT_GRAPH + MultiGraph::maxSeries - 1},
    {WM_COMMAND, HandleCommand<View, &View::OnRemoveSelected>, ID_REMOVE_SELECTED,
     ID_REMOVE_SELECTED},
};
const MessageMap View::messageMap{&CSingleGraphView::messageMap, messageEntries};

CObject* View::CreateObject() {
  return new CMultiGraphView;
}

std::unique_ptr<Graph> View::NewGraph(GraphAxis* axis) {
  return std::make_unique<MultiGraph>(axis);
}

void View::RemoveActiveGraph() {
  if (graph)
    graph->RemoveActiveGraph();
}

void View::OnSetActiveGraph(UINT id) {
  OnGraphActivated(static_cast<int>(id - ID_SELECT_GRAPH));
}

}  // namespace sparlow
