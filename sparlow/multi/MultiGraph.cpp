#include "sparlow/multi/MultiGraph.h"

#include <algorithm>
#include <exception>

#include "sparlow/platform/base/ErrorBox.h"
#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

COLORREF MultiGraph::GetFirstUnusedColor(const SourceDataList& list, const COLORREF* colors,
                                         int n) {
  for (int i = 0; i < n; ++i) {
    const bool taken = std::any_of(list.begin(), list.end(), [&](const ViewData* data) {
      return data->GetColor() == colors[i];
    });
    if (!taken)
      return colors[i];
  }
  return 0;
}

SourceDataList MultiGraph::Snapshot(const SourceDataList& list) const {
  const std::lock_guard guard(listLock);
  return list;
}

std::vector<ViewData*> MultiGraph::AllSeries() const {
  std::vector<ViewData*> all = Graph::AllSeries();
  const ViewData* const primary = all.empty() ? nullptr : all.front();
  for (ViewData* const data : Snapshot(viewDataList)) {
    if (data != primary)
      all.push_back(data);
  }
  return all;
}

bool MultiGraph::AddViewData(ViewData* data) {
  const auto refuse = [] {
    ShowErrorBox(MB_ICONEXCLAMATION, "Add graph warning",
                 "Cannot view more than %d graphs simultaneously.", maxSeries);
  };
  return add(viewDataList, data, GraphColorTable, refuse, true);
}

bool MultiGraph::add(SourceDataList& list, ViewData* data, const COLORREF* colorTable,
                     void (*refuse)(), bool makeActive) {
  if (!data || IsListed(data))
    return false;
  if (list.count == maxSeries) {
    refuse();
    return false;
  }
  COLORREF visible[maxSeries];
  std::transform(colorTable, colorTable + maxSeries, visible,
                 [this](COLORREF color) { return colors->Visible(color); });
  const COLORREF color = GetFirstUnusedColor(list, visible, maxSeries);
  if (!append(list, data, makeActive))
    return false;
  data->SetColor(color);
  return true;
}

// What is asked before a lock is waited for may have changed after it: a box of a worker's may be
// answered meanwhile, by a host's code.
bool MultiGraph::append(SourceDataList& list, ViewData* data, bool makeActive) {
  return changeInTurn([&] {
    if (list.count >= maxSeries || IsListed(data))
      return false;
    readmit(data);
    {
      const std::lock_guard guard(listLock);
      list.Add(data);
    }
    if (makeActive)
      activeViewData = data;
    return true;
  });
}

bool MultiGraph::RemoveViewData(ViewData* data) {
  const WindowHold hold(hWnd);
  if (viewDataList.count < 2 || !viewDataList.Holds(data))
    return false;
  if (!takeOut(viewDataList, 1, data))
    return false;
  if (!activeViewData)
    SetActive(0);
  return true;
}

bool MultiGraph::takeOut(SourceDataList& list, int least, ViewData* data) {
  const WindowHold hold(hWnd);
  stopSeries(data);
  const bool taken = changeInTurn([&] {
    if (!list.Holds(data) || list.count <= least)
      return false;
    if (activeViewData == data)
      activeViewData = nullptr;
    const std::lock_guard guard(listLock);
    list.RemoveAt(list.Find(data));
    return true;
  });
  if (taken)
    withdraw(data);
  return releaseSeries(data) && taken;
}

void MultiGraph::RemoveActiveGraph() {
  RemoveViewData(activeViewData);
}

void MultiGraph::SetActive(int index) {
  activate(viewDataList, index);
}

void MultiGraph::activate(const SourceDataList& list, int index) {
  changeAndUpdate([&] {
    if (ViewData* const data = list.GetAt(index))
      activeViewData = data;
    if (!activeViewData || !axis)
      return false;
    zoomOutFullPrimary();
    zoomOutFullSecondary();
    return true;
  });
}

bool MultiGraph::AnalyzeEach() {
  return analyzeList(Snapshot(viewDataList), &SourceData::Analyze, false);
}

bool MultiGraph::analyzeList(const SourceDataList& list, bool (SourceData::*how)(),
                             bool onlyEmpty) {
  bool any = false;
  std::exception_ptr failure;
  for (ViewData* const data : list) {
    try {
      any = analyze(data, how, onlyEmpty) || any;
    } catch (...) {
      failure = std::current_exception();
    }
  }
  if (failure)
    std::rethrow_exception(failure);
  return any;
}

bool MultiGraph::GetViewDataByPoint(ViewData** data, int* index, bool* isMask, CPoint point) {
  if (!findColor(viewDataList, CurvePixel(point), data, index))
    return false;
  if (isMask)
    *isMask = false;
  return true;
}

bool MultiGraph::findColor(const SourceDataList& list, COLORREF color, ViewData** data,
                           int* index) const {
  if (color == CLR_INVALID)
    return false;
  for (int i = 0; i < list.count; ++i) {
    if (list.items[i]->GetColor() != color)
      continue;
    if (data)
      *data = list.items[i];
    if (index)
      *index = i;
    return true;
  }
  return false;
}

}  // namespace sparlow
