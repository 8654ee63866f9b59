#pragma once

#include <mutex>

#include "sparlow/graph/Graph.h"
#include "sparlow/multi/SourceDataList.h"
#include "sparlow/platform/window/CMenu.h"

namespace sparlow {

/// Commands of the popup menu: one for each series, one for each mask, and the removal.
inline constexpr UINT ID_SELECT_GRAPH = 101;
inline constexpr UINT ID_SELECT_MASK = 107;
inline constexpr UINT ID_REMOVE_SELECTED = 113;

/// Colours of overlaid series, in the order in which they are given, each as GraphColors::Visible
/// makes it of the scheme in use. After SetColors, which gives the active series the trace colour,
/// a host does the same for all: series.SetColor(scheme.Visible(the colour that it had before)).
inline constexpr COLORREF GraphColorTable[] = {0x000000, 0x0000C0, 0x008000,
                                               0xFF0000, 0x20C0FF, 0xFF00FF};

/// A graph that shows up to 6 series on one pair of axes. One of them is active: units, interval,
/// cursors and statistics are its own. The others follow its horizontal axis and lie beneath it.
/// Each has a colour of its own, by which the legend names it and a click finds it.
///
/// The series stay the host's and live as long as they are in the graph; removing one waits until
/// nobody works at it.
class MultiGraph : public Graph {
 public:
  /// In one list; each table of colours has as many.
  static constexpr int maxSeries = 6;

  explicit MultiGraph(GraphAxis* sharedAxis) : Graph(sharedAxis) {}

  /// Adds a series, gives it the first free colour and makes it the active one; one that
  /// SetViewData has made active before, too. Paints nothing: UpdateGraph is due. Returns false,
  /// and changes nothing, for null, for one that a list of the graph has, for the 7th after a box,
  /// and when the graph is closed.
  bool AddViewData(ViewData* data) override;
  /// Takes a series out, after its analysis, if one runs, has been stopped and has ended. The first
  /// series becomes active in place of an active one, with everything on show; otherwise
  /// UpdateGraph is due. Returns false, and changes nothing, for the last one and for one that
  /// isn't here.
  bool RemoveViewData(ViewData* data) override;
  void RemoveActiveGraph() override;
  /// Makes the series at that position active and shows all data; an index that isn't there only
  /// shows all data.
  void SetActive(int index) override;
  bool IsMultiple() const override { return viewDataList.count > 1; }
  bool GetViewDataByPoint(ViewData** data, int* index, bool* isMask, CPoint point) override;
  /// Runs Analyze of every series. What one throws is thrown on when all have run. Any thread.
  bool AnalyzeEach() override;
  /// The menu of the active series, with a submenu of all and an item that removes the active one.
  CMenu* CreateCustomPopupMenu(CMenu& menu) override;
  /// The series, in the order in which they were added, as they are now. Any thread.
  SourceDataList GetViewDataList() const { return Snapshot(viewDataList); }

  void defineMinMax() override;

 protected:
  /// The first of n colours that no series of the list has; 0 when all are taken.
  static COLORREF GetFirstUnusedColor(const SourceDataList& list, const COLORREF* colors, int n);

  void DrawSecondaryGraphs(CDC* dc) override;
  void DrawPrimaryGraph(CDC* dc) override;
  int LegendOffset() const override;
  void DrawLegend(CDC* dc) override;
  bool RenderSecondaryGraphs() override;
  std::vector<ViewData*> AllSeries() const override;
  void ResetInterval() override;
  void zoomOutFullSecondary() override;

  /// The strip below the horizontal labels for a list, in plot coordinates.
  CRect GetLegendRect(const SourceDataList& list) const;
  /// The names of a list, each in its colour, from the top of rect downwards.
  void DrawSubLegend(CDC* dc, CRect rect, const SourceDataList& list);
  void DrawList(CDC* dc, const SourceDataList& list);

  /// One of the graph's lists has the series.
  virtual bool IsListed(const ViewData* data) const { return viewDataList.Holds(data); }
  /// A list as it stands. Any thread.
  SourceDataList Snapshot(const SourceDataList& list) const;
  /// Adds a series to a list of at most 6, which have the colours of a table in turn. Calls refuse
  /// for the 7th. Returns false when nothing was added.
  bool add(SourceDataList& list, ViewData* data, const COLORREF* colorTable, void (*refuse)(),
           bool makeActive);
  /// Stops whoever works at a series and takes it out. Returns false when the graph was closed
  /// meanwhile, or the list doesn't have it or would have fewer than least.
  bool takeOut(SourceDataList& list, int least, ViewData* data);
  /// Makes the series at that position active, if there is one, and shows all data.
  void activate(const SourceDataList& list, int index);
  /// Runs an analysis of each; what one throws is thrown on when all have run. Any thread.
  bool analyzeList(const SourceDataList& list, bool (SourceData::*how)(), bool onlyEmpty);
  /// Renders those of a list that have samples, but for the active one. Any thread that renders.
  bool renderList(const SourceDataList& list, bool followAxis);
  /// Widens the range of the axes to a series.
  void include(const ViewData& data, bool horizontally);
  struct XRange {
    double from, to;
  };
  /// What the horizontal axis is going to show.
  XRange windowOnShow() const;
  /// A sample of the series' interval lies there.
  static bool hasSampleIn(const ViewData& data, XRange window);
  bool findColor(const SourceDataList& list, COLORREF color, ViewData** data, int* index) const;
  /// One item for each series of a list; the active one has the mark. One without samples is gray
  /// where onlyFilled is true.
  void appendSelection(const SourceDataList& list, UINT firstId, bool onlyFilled);

  /// Changed by the window's thread, under listLock; other threads read a Snapshot.
  SourceDataList viewDataList;
  /// Pixels at the right end of the legend strip that are somebody else's.
  int legendMaskWidth = 0;
  /// The submenu of the popup menu.
  CMenu selectMenu;

 private:
  bool append(SourceDataList& list, ViewData* data, bool makeActive);

  mutable std::mutex listLock;
};

}  // namespace sparlow
