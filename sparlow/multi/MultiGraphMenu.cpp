// The popup menu of several series: one to choose, one to remove.

#include "sparlow/multi/MultiGraph.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

/// A name as a menu shows it: what follows a single ampersand would be the key of the item.
std::string menuText(const std::string& name) {
  std::string text;
  for (const char c : name)
    text += c == '&' ? std::string("&&") : std::string(1, c);
  return text;
}

}  // namespace

CMenu* MultiGraph::CreateCustomPopupMenu(CMenu& menu) {
  CMenu* const popup = Graph::CreateCustomPopupMenu(menu);
  selectMenu.DestroyMenu();
  const ViewData* const primary = activeViewData;
  if (!popup || !IsMultiple() || primary->inTransfer)
    return popup;
  selectMenu.CreatePopupMenu();
  appendSelection(viewDataList, ID_SELECT_GRAPH, false);
  popup->AppendMenu(MF_SEPARATOR);
  popup->AppendMenu(MF_POPUP, selectMenu, "&Select");
  if (viewDataList.Holds(primary) && viewDataList.count >= 2) {
    popup->AppendMenu(MF_SEPARATOR);
    popup->AppendMenu(MF_STRING, ID_REMOVE_SELECTED, "&Remove Selected Graph");
  }
  return popup;
}

void MultiGraph::appendSelection(const SourceDataList& list, UINT firstId, bool onlyFilled) {
  UINT id = firstId;
  for (const ViewData* const data : list)
    selectMenu.AppendMenu(onlyFilled && !data->Valid() ? MF_GRAYED : MF_STRING, id++,
                          menuText(data->GetName()).c_str());
  if (const int position = list.Find(activeViewData); position >= 0) {
    id = firstId + static_cast<UINT>(position);
    selectMenu.CheckMenuRadioItem(id, id, id, MF_BYCOMMAND);
  }
}

}  // namespace sparlow
