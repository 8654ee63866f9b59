#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "sparlow/axis/GraphAxis.h"
#include "sparlow/graph/CursorMarkers.h"
#include "sparlow/graph/GraphColors.h"
#include "sparlow/graph/Offset.h"
#include "sparlow/graph/PlotLayout.h"
#include "sparlow/platform/base/Synchronization.h"
#include "sparlow/platform/paint/CDC.h"
#include "sparlow/platform/window/Messages.h"

namespace sparlow {

class CMenu;
class SourceData;
class ViewData;

/// Posted by a graph's analysis workers to its own window: the data have changed, UpdateGraph is
/// due.
inline constexpr UINT WM_UPDATE_GRAPH = WM_USER + 104;

/// One graph: binds a series, a pair of axes and a window, keeps the finished frame, and brings the
/// window up to date after each change.
///
/// Every change of data, interval or axes ends in UpdateGraph, every change of window size in
/// ResizeGraph. A full render of few samples runs there and then, and so does one that only adds
/// new samples; a larger one goes to a worker, and the window shows "Rendering graph" until it is
/// done. docs/road-of-an-update.md has the whole road.
///
/// A graph that is closed is inert: each operation returns as on one without series. Its window may
/// close at any moment, in a host's own code that an operation runs too; the graph of a view lives
/// as long as an operation runs.
///
/// What keeps threads apart, in the order in which it is taken: a turn of the pipeline,
/// threadsMutex of a series, dataMutex of a series.
class Graph {
 public:
  /// Samples of a full render that an update does on the caller's thread; one more is a worker's.
  static constexpr unsigned updateRenderLimit = 10000;
  /// Samples from which a resize goes to a worker.
  static constexpr unsigned resizeWorkerLimit = 10000;

  /// axis is shared with the host and must outlive the graph.
  explicit Graph(GraphAxis* axis);
  Graph(const Graph&) = delete;
  Graph& operator=(const Graph&) = delete;
  /// Destroy must have run.
  virtual ~Graph();

  /// @name Life
  ///@{

  /// Binds the graph to its window.
  void Create(HWND window);
  /// Closes the graph: stops the workers, waits for them and frees the device objects. A second
  /// call does nothing. Every series must live until it has returned, and until the operation of
  /// the graph has in which it was called.
  void Destroy();
  ///@}

  /// @name Series
  ///@{

  /// The series stays the host's. Returns false, and changes nothing, when the graph has one
  /// already.
  virtual bool AddViewData(ViewData* series);
  virtual bool RemoveViewData(ViewData* series);
  virtual bool AddMaskData(ViewData* series);
  virtual bool RemoveMaskData(ViewData* series);
  /// Makes a series the active one, in place of any other, and gives it the trace colour. Null is
  /// ignored. Stops a render that runs; an analysis of the former series goes on, so that series
  /// too must live until that has ended or Destroy has returned.
  void SetViewData(ViewData* series);
  /// Null without one, and when the graph is closed.
  ViewData* GetActiveViewData() const { return Closed() ? nullptr : activeViewData.load(); }
  /// Its name; null without one.
  const char* GetName() const;
  virtual bool IsMultiple() const { return false; }
  virtual void SetActive(int index);
  virtual void SetActiveMask(int index);
  virtual void RemoveActiveGraph();
  virtual bool IsDependent() const { return false; }
  /// Destroy has begun. Any thread.
  bool Closed() const;
  /// True when there is a series with samples and both axes can be painted.
  bool DataAndAxisValid() const;
  /// Empties the active series, its units and the axes, after renders and the series' analysis have
  /// been stopped and have ended. Nothing changes while another thread feeds the series.
  void Clear();
  ///@}

  /// @name From a change to the screen
  ///@{

  /// Brings the graph up to date after a change of data, interval, axes or settings.
  void UpdateGraph();
  /// Changes the axes while no worker reads them, then updates. Stops a render that runs. A host
  /// that sets ranges or modes of its axes does it here, or before the first update.
  void ChangeAxes(const std::function<void(GraphAxis&)>& change);
  /// Brings the graph up to date after a change of window size. Does nothing while resizing is
  /// locked, also not later.
  void ResizeGraph();
  /// Paints the frame and copies it to the window. Never waits for a render.
  void DrawAll();
  /// True while the window shows "Rendering graph", because columns are still to be made.
  bool RenderDue() const;
  /// True when no render is due and no worker of the graph is at work. Any thread.
  bool Settled() const;
  /// Recalculates analysis series, or new masks, on a worker, which posts WM_UPDATE_GRAPH when
  /// something was calculated.
  void AnalyzeAll();
  void AnalyzeMask();
  /// What those workers run, there. Returns true when something was calculated.
  virtual bool AnalyzeEach();
  virtual bool AnalyzeEachNewMask();
  /// Sends the cursor readings and the drift rates to the info bar, if the graph is active and its
  /// cursors are set. Any thread.
  void UpdateCursorsReadout();
  /// Sends the two drift rates alone. Any thread.
  void UpdateDriftRate();
  /// Sends the statistics of the active series. Any thread.
  void UpdateStaParams();
  /// Sends the statistics of a series in the unit given. Any thread.
  static void UpdateStaParams(const ViewData* series, const char* unit);
  ///@}

  /// @name On paper
  ///@{

  /// Draws the graph inside rect of a page: in the colours of scheme 0, at the resolution of dc,
  /// with text of 11 points and margins and pens of seven pixels for one, which hooks of a host
  /// find in CDC::GetPixelFactor. Renders on the caller's thread, whatever the interval; stops a
  /// render for the window, which begins anew afterwards, and waits for analyses of the series on
  /// show, whose boxes are answered meanwhile. Without data nothing is drawn. An area of 16384
  /// pixels or more is cut, and a box warns of that.
  void Print(CDC* dc, const CRect& rect);
  ///@}

  /// @name Zoom and scroll
  /// Each brings the graph up to date. Without data they do nothing; the five zooms also do nothing
  /// on a fixed horizontal axis.
  ///@{

  /// To the box between zoomStart, its left upper corner, and zoomEnd.
  void ZoomInByPoint();
  /// To the samples between the cursors.
  void ZoomInByCursor();
  /// To half or twice as many samples about the middle.
  void ZoomInBySample();
  void ZoomOutBySample();
  /// To all samples.
  void ZoomOutFull();
  /// Moves the interval by samples, toward higher ones if positive, or to a first sample.
  void Scroll(int samples);
  void ScrollTo(unsigned first);
  /// If CanYScroll, move the vertical range by a twentieth of its span, or to where the thumb of
  /// the vertical scroll bar is dragged.
  void yScroll(bool up);
  void yScrollDo();
  /// Lets the vertical range follow the samples on show, or not any more; without data too.
  void OnYAutoZoom();
  /// A logarithmic axis has no steps of one size to scroll by.
  bool CanYScroll() const { return axis && !axis->ver.log; }
  bool GetYAutoZoom() const { return axis && axis->yAutoZoom; }
  bool GetYAutoRange() const { return axis && axis->ver.autoRange; }
  bool GetXAutoRange() const { return axis && axis->hor.autoRange; }
  /// Has the user fix the range of an axis, or give it back to automatic ranging, through the
  /// AxisRangeEditor that is installed. OnXRange then shows all samples, or those in the range.
  /// Automatic ranging, as any zoom, ends a range that was set by GraphAxis::Preset.
  void OnXRange();
  void OnYRange();
  ///@}

  /// @name Cursors
  /// Points are plot pixels, as Clip returns them, unless stated otherwise.
  ///@{

  /// Draws both markers on the window, in place of where they were.
  void DrawCursors();
  /// Moves a cursor by samples. Returns true when the interval scrolled with it, so that
  /// UpdateGraph is due.
  bool MoveLCursor(int samples);
  bool MoveRCursor(int samples);
  /// Is the point within reach of a marker at (x, y)?
  bool inCursorArea(const CPoint& point, int x, int y) const;
  bool InLeftCursorArea(const CPoint& point) const;
  bool InRightCursorArea(const CPoint& point) const;
  bool IsCursorDrag() const { return markers.Held(); }
  /// A cursor follows DragCursor until EndDragCursor. Whose mouse it is, is the view's matter.
  void BeginDragLeftCursor();
  void BeginDragRightCursor();
  /// What both do: shows the pointer of a drag.
  void beginDragCursor();
  /// One step of a drag, to a point of the client area, which is clipped. A cursor that crosses the
  /// other hands the mouse over to it.
  void DragCursor(CPoint& point);
  void EndDragCursor();
  ///@}

  /// @name Looks
  ///@{

  /// The scheme stays the host's and must live as long as the graph uses it. Null is ignored.
  /// Paints nothing.
  void SetColors(GraphColors* scheme);
  /// Turns a point of the client area into one of the plot, clamped to it.
  void Clip(CPoint& point) const;
  /// The series whose colour the last frame has at a point of the client area; a curve that has the
  /// colour of the background isn't found (GraphColors::Visible). Null out-arguments are skipped.
  /// Returns false, and stores nothing, when there is none.
  virtual bool GetViewDataByPoint(ViewData** series, int* index, bool* isMask, CPoint point);
  /// Loads the popup menu of the active series into menu and returns its first sub-menu, which menu
  /// owns. Null without a series or a menu resource.
  virtual CMenu* CreateCustomPopupMenu(CMenu& menu);
  ///@}

  /// @name Process-wide
  ///@{

  /// The window that receives the readouts of all graphs.
  static void SetInfoBar(HWND window);
  /// For hosts that rearrange their windows: ResizeGraph does nothing in between.
  static void LockResizing() { LockResize = true; }
  static void UnlockResizing() { LockResize = false; }
  /// While true, a graph whose active series is in a data transfer takes no input and sends no
  /// cursor readouts.
  static inline CopyableAtomic<bool> RestrictGraphOperationInRealTime{true};
  ///@}

  /// @name Zoom box
  ///@{

  /// Moves the rubber-band box on a context of the window: takes the one from zoomStart to zoomPrev
  /// away and draws one from zoomStart to zoomEnd. The origin of dc stays that of the plot. Nothing
  /// on a fixed horizontal axis, which can't be zoomed.
  void DrawZoomBox(CDC* dc);
  /// First corner, the one that follows the mouse, and where that was before; plot pixels.
  CPoint zoomStart;
  CPoint zoomEnd;
  CPoint zoomPrev;
  ///@}

  /// The active one of its frame: shows its cursors and has the active background.
  CopyableAtomic<bool> active{false};

 protected:
  /// @name For classes that show more than one series
  ///@{
  virtual void DrawSecondaryGraphs(CDC*) {}
  virtual void DrawPrimaryGraph(CDC* dc);
  virtual int LegendOffset() const { return 0; }
  virtual void DrawLegend(CDC*) {}
  /// For hosts: draws over the curves, in plot coordinates, clipped to the plot.
  virtual void DrawCustomOverlay(CDC*) {}
  /// Renders what lies beside the active series. Returns false when it was stopped. Any thread that
  /// renders.
  virtual bool RenderSecondaryGraphs() { return true; }
  /// All series of the graph, with samples or without, the active one first. Also
  /// called on workers.
  virtual std::vector<ViewData*> AllSeries() const;
  /// Signals the terminator of every series of the graph, and remembers which.
  virtual void SetThreadsTerminator();
  /// Clears what SetThreadsTerminator signalled, and nothing else.
  virtual void ClearThreadsTerminator();
  /// For derived classes: waits until nobody renders or analyses the series of the graph, one after
  /// the other.
  virtual void WaitForThreadsEnd();
  /// Sets xMin to yMax to the range of the data that the axes are to show.
  virtual void defineMinMax();
  virtual void ResetInterval();
  virtual void zoomOutFullPrimary();
  virtual void zoomOutFullSecondary() {}
  ///@}

  /// Changes what renders read, while none runs; one that did begins anew. Returns what change
  /// returns; false when the graph is closed, before or by it.
  bool changeInTurn(const std::function<bool()>& change);
  /// The same, and an update when it returns true.
  void changeAndUpdate(const std::function<bool()>& change);
  /// Renders a series beside the active one. Returns false when it was stopped. One that is being
  /// analysed is left without columns, and the analysis brings an update when it ends.
  bool renderBeside(ViewData& series, bool followAxis);
  /// Signals whoever works at a series to stop, until it is released. releaseSeries returns false
  /// when the end of the graph has done so already, and the series may be gone.
  void stopSeries(ViewData* series);
  bool releaseSeries(ViewData* series);
  /// Gives a series away, and waits until no worker uses it; takes it back.
  void withdraw(ViewData* series);
  void readmit(ViewData* series);
  /// Runs an analysis of a series, unless the graph has given it away, or the series has samples
  /// and onlyEmpty is true.
  bool analyze(ViewData* series, bool (SourceData::*how)(), bool onlyEmpty = false);
  /// The colour of the last frame at a point of the client area; CLR_INVALID outside the plot.
  COLORREF GetPixel(CPoint point);
  /// The same of a curve: CLR_INVALID for the background too.
  COLORREF CurvePixel(CPoint point);

  /// Paints the frame of the graph inside area: caption, grid, axes, labels, legend, curves.
  void GraphToDC(CDC* dc, const CRect& area);

  GraphAxis* const axis;
  CopyableAtomic<ViewData*> activeViewData{nullptr};
  GraphColors* colors;
  CursorMarkers markers;
  HWND hWnd = nullptr;
  PlotLayout layout;
  /// The range of the data that the axes are to show.
  double xMin = 0.0;
  double xMax = 0.0;
  double yMin = 0.0;
  double yMax = 0.0;
  /// What this graph's margins, pens and marks are multiplied by besides Offset::LogPixelSize: 7
  /// while it is printed. A context that it paints on has it as its CDC::GetPixelFactor.
  CopyableAtomic<double> pixelFactor{1.0};

 private:
  // Updating. The first three return false when the render is left to a worker.
  bool update();
  bool fitAndRender();
  bool resize();
  bool SetAxisAutoRange();
  bool muchToRenderBeside() const;
  bool RenderGraph(bool reset);
  void sbRender();
  void layOut();
  void SetGraphArea(const CRect& area);
  // The box for a window or a page that has more pixels than a series has columns.
  void warnTooLarge(bool tooLarge);
  // The largest interval of all series: what decides who renders.
  unsigned largestInterval() const;
  bool DataValid() const;
  bool IsLegend() const { return IsMultiple(); }

  // Zoom and scroll.
  bool canZoom() const;
  void zoomInterval(const std::function<bool()>& zoom);
  bool zoomVertically();
  void zoomBySample(bool in);
  void editRange(AxisData GraphAxis::*which);

  // Workers.
  void sendDueReadouts();
  void noteUnits();
  void AnalyzeThread(bool (Graph::*analyzeEach)(), bool onWorker);
  bool emptyActiveSeries();

  // painted: holds what the markers lie on; null on paper.
  void drawMarkers(HDC dc, HDC painted, const CRect& area);
  class PaperLooks;
  // Returns false when a series was being analysed. tooLarge: the page is.
  bool tryPrint(CDC* dc, const CRect& area, bool* tooLarge);
  bool printFrame(CDC* dc, const CRect& area);

  static inline CopyableAtomic<bool> LockResize{false};

  struct Parts;
  const std::unique_ptr<Parts> parts;
};

}  // namespace sparlow
