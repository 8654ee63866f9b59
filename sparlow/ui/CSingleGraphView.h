#pragma once

#include <cstdint>
#include <memory>

#include "sparlow/graph/Graph.h"
#include "sparlow/platform/window/CView.h"
#include "sparlow/ui/MouseGesture.h"

namespace sparlow {

/// From the host: recalculate the analysis series, or the masks, of the view's graph.
inline constexpr UINT WM_RECALC_ANALYSIS = WM_USER + 105;
inline constexpr UINT WM_RECALC_MASK = WM_USER + 113;
/// From the host: what an item of the popup menu does, by a code in wParam, also while the menu is
/// locked. 0 zoom in, 1 zoom out, 2 zoom to the cursors, 3 show everything, 4 and 5 set the range
/// of the horizontal and of the vertical axis. Other codes do nothing; the result is 0.
inline constexpr UINT WM_SPARLOW_COMMAND = WM_USER + 126;

/// To the application's main window, wParam the view, lParam 0: a double click (posted), and the
/// keyboard focus while the view's graph isn't the active one (sent; the host answers it by
/// SetActive).
inline constexpr UINT WM_VIEW_DOUBLE_CLICK = WM_USER + 101;
inline constexpr UINT WM_VIEW_FOCUSED = WM_USER + 102;

/// The window that shows one Graph. A host makes it, gives it axes and a series, fills the series
/// and calls UpdateGraph, or posts WM_UPDATE_GRAPH from any thread.
/// It deletes itself with its window, also when a user closes that, but never while it handles a
/// message or one of its operations runs. Term of the series comes after.
class CSingleGraphView : public CView {
 public:
  /// A new view without a graph; its window is made with Create.
  static CObject* CreateObject();

  /// Called while the window is being made. A host view overrides it to call CreateGraph.
  virtual void _CreateGraph() {}
  /// Makes the graph with axes that the host keeps alive as long as the view. Needs the window;
  /// does nothing when there is a graph already.
  virtual void CreateGraph(GraphAxis* axis);
  /// Gives the graph a series, which stays the host's and must outlive the view's window. Returns
  /// false when there is no graph, or it has as many as it shows.
  bool AddViewData(ViewData* data);
  /// True when the graph has samples and axes that can be painted.
  bool DataValid() const;
  /// True when the horizontal axis follows the data; false without a graph.
  bool GetXAutoRange() const { return graph && graph->GetXAutoRange(); }
  /// Brings the window up to date after any change of data or settings.
  void UpdateGraph();
  /// Changes the axes while no worker reads them, then updates. Once a graph has been updated, a
  /// host changes them in this way only.
  void ChangeAxes(const std::function<void(GraphAxis&)>& change);
  /// True while a worker has columns to make and the window shows "Rendering graph".
  bool RenderDue() const { return graph && graph->RenderDue(); }
  /// Makes the graph the active one of its frame, or one of the others.
  void SetActive(bool active);
  /// Takes a scheme, which the host keeps alive, and repaints at once.
  void SetColors(GraphColors& colors);
  /// Empties the series, its units and the axes.
  void Clear();
  /// The window that receives the readouts of all graphs. Nothing without a graph.
  void SetInfoBar(HWND bar);
  /// Draws the graph inside rect of a page, whose context the host made; the window is as before
  /// afterwards. Nothing without data.
  void Print(CDC* dc, const CRect& rect);
  /// In a view of several series: takes the active one out.
  virtual void RemoveActiveGraph() {}

  static const CRuntimeClass classCSingleGraphView;
  const CRuntimeClass* GetRuntimeClass() const override { return &classCSingleGraphView; }

 protected:
  CSingleGraphView();
  ~CSingleGraphView() override;

  /// A series was picked: makes it active and the document's title its name.
  virtual void OnGraphActivated(int index);
  /// The same by SetActive or SetActiveMask.
  void activate(void (Graph::*which)(int), int index);
  /// Makes the kind of graph that this view shows.
  virtual std::unique_ptr<Graph> NewGraph(GraphAxis* axis);

  bool PreCreateWindow(CREATESTRUCT& create) override;
  void OnDraw(CDC* dc) override;
  const MessageMap* GetMessageMap() const override { return &messageMap; }

  /// Shows the popup menu at a point of the client area, until it is closed.
  void CreatePopupMenu(CPoint point);
  /// Bring the menu itself, and the submenu of an axis, up to date before they are shown.
  void UpdatePopupMenu(CMenu* menu);
  void UpdateSubPopupMenuHorAxis(CMenu* menu);
  void UpdateSubPopupMenuVerAxis(CMenu* menu);

  static const MessageMap messageMap;

  std::unique_ptr<Graph> graph;
  MouseGesture gesture;
  /// How often an arrow key has been pressed or has repeated since one was let go, or could have
  /// been without a message to this window: in a menu, in another window.
  int keyRepeat = 0;
  /// Where the thumb of a horizontal bar was dragged last; a user drags one at a time.
  static inline std::uint32_t thumbTrackPos = 0;

 private:
  LRESULT OnCreate(WPARAM, LPARAM);
  LRESULT OnDestroy(WPARAM, LPARAM);
  LRESULT OnSize(WPARAM, LPARAM);
  LRESULT OnEraseBkgnd(WPARAM, LPARAM);
  LRESULT OnUpdateGraph(WPARAM, LPARAM);
  LRESULT OnRecalcAnalysis(WPARAM, LPARAM);
  LRESULT OnRecalcMask(WPARAM, LPARAM);

  LRESULT OnInitMenuPopup(WPARAM popup, LPARAM);
  LRESULT OnSparlowCommand(WPARAM code, LPARAM);
  void OnGraphCommand(UINT id);

  LRESULT OnLButtonDown(WPARAM, LPARAM lParam);
  LRESULT OnLButtonUp(WPARAM, LPARAM lParam);
  LRESULT OnLButtonDblClk(WPARAM, LPARAM);
  LRESULT OnRButtonDown(WPARAM, LPARAM lParam);
  LRESULT OnMouseMove(WPARAM, LPARAM lParam);
  LRESULT OnCaptureChanged(WPARAM, LPARAM);
  LRESULT OnKeyDown(WPARAM key, LPARAM);
  LRESULT OnKeyUp(WPARAM key, LPARAM);
  LRESULT OnHScroll(WPARAM wParam, LPARAM);
  LRESULT OnVScroll(WPARAM wParam, LPARAM);
  LRESULT OnSetFocus(WPARAM, LPARAM);
  LRESULT OnKillFocus(WPARAM, LPARAM);
  LRESULT OnActivate(WPARAM, LPARAM);

  bool inTransfer() const;
  // True while data stream in, so that input is refused.
  bool transferLock() const;
  bool takesInput() const;
  void finishGesture(CPoint point);
  // Ends a zoom box in progress as a release of the mouse does.
  void endZoomBox();
  // Ends a gesture that comes to nothing.
  void dropGesture();
  void click(CPoint point);
  void showPointer(CPoint point);
  void drawAll();
  void drawZoomBox();
  void scrollBy(int code, const SCROLLINFO& bar);
  void yScrollBy(int code, const SCROLLINFO& bar);

  static const MessageEntry messageEntries[];
};

}  // namespace sparlow
