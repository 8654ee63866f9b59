#include "sparlow/ui/CMultiGraphViewWithMasks.h"

#include "sparlow/multi/MultiGraphWithMasks.h"

namespace sparlow {

using View = CMultiGraphViewWithMasks;

const CRuntimeClass View::classCMultiGraphViewWithMasks{
    "CMultiGraphViewWithMasks", View::CreateObject, &CMultiGraphView::classCMultiGraphView};
const MessageEntry View::messageEntries[] = {
    {WM_COMMAND, HandleCommand<View, &View::OnSetActiveMask>, ID_SELECT_MASK,
     ID_SELECT_MASK + MultiGraphWithMasks::maxMasks - 1},
};
const MessageMap View::messageMap{&CMultiGraphView::messageMap, messageEntries};

CObject* View::CreateObject() {
  return new CMultiGraphViewWithMasks;
}

std::unique_ptr<Graph> View::NewGraph(GraphAxis* axis) {
  return std::make_unique<MultiGraphWithMasks>(axis);
}

bool View::AddMaskData(ViewData* data) {
  return graph && graph->AddMaskData(data);
}

void View::RemoveMaskData(ViewData* data) {
  if (graph)
    graph->RemoveMaskData(data);
}

void View::OnSetActiveMask(UINT id) {
  activate(&Graph::SetActiveMask, static_cast<int>(id - ID_SELECT_MASK));
}

}  // namespace sparlow
