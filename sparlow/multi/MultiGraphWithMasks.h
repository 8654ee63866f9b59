#pragma once

#include "sparlow/multi/MultiGraph.h"

namespace sparlow {

/// Colours of masks, in the order in which they are given; no series of a graph has one of them.
inline constexpr COLORREF MaskColorTable[] = {0xFFC000, 0x00C6C6, 0xC600C6,
                                              0x004F9D, 0x0080FF, 0xA8A800};

/// Overlaid series with up to 6 masks over them: series of their own, which ApplyMask fills on a
/// worker while they are empty, named in a column of their own that takes half of the legend at
/// most. A mask can be picked and made active as a series can; the menu offers those that have
/// samples. It keeps its interval when the graph is zoomed, and the vertical axis holds all of
/// that; a fixed horizontal axis gives it its range.
class MultiGraphWithMasks : public MultiGraph {
 public:
  static constexpr int maxMasks = maxSeries;

  explicit MultiGraphWithMasks(GraphAxis* sharedAxis) : MultiGraph(sharedAxis) {}

  /// Adds a mask and gives it the first free colour; the active series stays. Paints nothing:
  /// AnalyzeMask, or WM_RECALC_MASK to the view, has it calculated, and brings an update. Returns
  /// false, and changes nothing, for null, for a series that one of the lists has, for the 7th
  /// after a box, and when the graph is closed.
  bool AddMaskData(ViewData* data) override;
  /// Takes a mask out, after its calculation, if one runs, has been stopped and has ended. The
  /// first series becomes active in place of an active mask, with everything on show; otherwise
  /// UpdateGraph is due. Returns true, also for one that isn't here.
  bool RemoveMaskData(ViewData* data) override;
  /// Makes the mask at that position active and shows all data; an index that isn't there only
  /// shows all data.
  void SetActiveMask(int index) override;
  bool IsMultiple() const override { return maskList.count > 0 || MultiGraph::IsMultiple(); }
  bool GetViewDataByPoint(ViewData** data, int* index, bool* isMask, CPoint point) override;
  /// Runs ApplyMask of every mask without samples. Returns true when one of them had a result. What
  /// one throws is thrown on when all have run. Any thread.
  bool AnalyzeEachNewMask() override;
  CMenu* CreateCustomPopupMenu(CMenu& menu) override;
  /// The masks, as GetViewDataList.
  SourceDataList GetMaskList() const { return Snapshot(maskList); }

  void defineMinMax() override;

 protected:
  void DrawSecondaryGraphs(CDC* dc) override;
  int LegendOffset() const override;
  void DrawLegend(CDC* dc) override;
  bool RenderSecondaryGraphs() override;
  std::vector<ViewData*> AllSeries() const override;
  void ResetInterval() override;
  void zoomOutFullSecondary() override;
  bool IsListed(const ViewData* data) const override {
    return maskList.Holds(data) || MultiGraph::IsListed(data);
  }

  /// As viewDataList.
  SourceDataList maskList;
  /// Characters of the longest name that was added since the list was empty.
  int longestMaskName = 0;
};

}  // namespace sparlow
