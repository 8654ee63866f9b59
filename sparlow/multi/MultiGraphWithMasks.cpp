#include "sparlow/multi/MultiGraphWithMasks.h"

#include <algorithm>

#include "sparlow/platform/base/ErrorBox.h"
#include "sparlow/platform/base/Text.h"
#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

int characters(const std::string& text) {
  const std::string utf8 = ToUtf8(text);
  return static_cast<int>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

bool MultiGraphWithMasks::AddMaskData(ViewData* data) {
  const auto refuse = [] {
    ShowErrorBox(MB_ICONEXCLAMATION, "Apply mask warning",
                 "Cannot apply more than %d masks simultaneously.", maxMasks);
  };
  if (!add(maskList, data, MaskColorTable, refuse, false))
    return false;
  longestMaskName = std::max(longestMaskName, characters(data->GetName()));
  return true;
}

bool MultiGraphWithMasks::RemoveMaskData(ViewData* data) {
  if (!data)
    return true;
  const WindowHold hold(hWnd);
  const bool wasActive = data == activeViewData;
  if (wasActive)
    SetActive(0);
  if (!maskList.Holds(data))
    return true;
  if (!takeOut(maskList, 0, data))
    return true;
  if (maskList.count == 0)
    longestMaskName = 0;
  if (activeViewData) {
    // The range and the legend still have room for it.
    if (wasActive)
      UpdateGraph();
    return true;
  }
  SetActive(0);
  // Without a series there is nothing to update, but the mask is still on the screen.
  RedrawWindow(hWnd, RDW_INVALIDATE);
  return true;
}

void MultiGraphWithMasks::SetActiveMask(int index) {
  activate(maskList, index);
}

std::vector<ViewData*> MultiGraphWithMasks::AllSeries() const {
  std::vector<ViewData*> all = MultiGraph::AllSeries();
  const ViewData* const primary = all.empty() ? nullptr : all.front();
  for (ViewData* const data : Snapshot(maskList)) {
    if (data != primary)
      all.push_back(data);
  }
  return all;
}

bool MultiGraphWithMasks::AnalyzeEachNewMask() {
  return analyzeList(Snapshot(maskList), &SourceData::ApplyMask, true);
}

bool MultiGraphWithMasks::GetViewDataByPoint(ViewData** data, int* index, bool* isMask,
                                             CPoint point) {
  if (MultiGraph::GetViewDataByPoint(data, index, isMask, point))
    return true;
  if (!findColor(maskList, CurvePixel(point), data, index))
    return false;
  if (isMask)
    *isMask = true;
  return true;
}

CMenu* MultiGraphWithMasks::CreateCustomPopupMenu(CMenu& menu) {
  CMenu* const popup = MultiGraph::CreateCustomPopupMenu(menu);
  const ViewData* const primary = activeViewData;
  if (popup && maskList.count != 0 && primary && !primary->inTransfer) {
    selectMenu.AppendMenu(MF_SEPARATOR);
    appendSelection(maskList, ID_SELECT_MASK, true);
  }
  return popup;
}

}  // namespace sparlow
