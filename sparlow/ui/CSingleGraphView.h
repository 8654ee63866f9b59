#pragma once

#include <memory>

#include "sparlow/graph/Graph.h"
#include "sparlow/platform/CView.h"

namespace sparlow {

/// From the host: recalculate the analysis series, or the masks, of the view's graph.
inline constexpr UINT WM_RECALC_ANALYSIS = WM_USER + 105;
inline constexpr UINT WM_RECALC_MASK = WM_USER + 113;

/// The window that shows one Graph. A host makes it, gives it axes and a series, fills the series
/// and calls UpdateGraph, or posts WM_UPDATE_GRAPH from any thread.
/// It deletes itself with its window, also when a user closes that: Term of the series comes after.
/// Threads: the window's.
class CSingleGraphView : public CView {
 public:
  /// A new view without a graph; its window is made with Create.
  static CObject* CreateObject();

  /// Called while the window is being made. A host view overrides it to call CreateGraph.
  virtual void _CreateGraph() {}
  /// Makes the graph with axes that the host keeps alive as long as the view. Needs the window;
  /// does nothing when there is a graph already.
  virtual void CreateGraph(GraphAxis* axis);
  /// Gives the graph its series, which stays the host's and must outlive the view's window. False
  /// when there is no graph or it has a series already.
  bool AddViewData(ViewData* data);
  /// True when the graph has samples and axes that can be painted.
  bool DataValid() const;
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
  virtual void RemoveActiveGraph() {}

  static const CRuntimeClass classCSingleGraphView;
  const CRuntimeClass* GetRuntimeClass() const override { return &classCSingleGraphView; }

 protected:
  CSingleGraphView() = default;
  ~CSingleGraphView() override;

  /// A series was picked: makes it active and the document's title its name.
  virtual void OnGraphActivated(int index);
  /// Makes the kind of graph that this view shows.
  virtual std::unique_ptr<Graph> NewGraph(GraphAxis* axis);

  bool PreCreateWindow(CREATESTRUCT& create) override;
  void OnDraw(CDC* dc) override;
  const MessageMap* GetMessageMap() const override { return &messageMap; }

  std::unique_ptr<Graph> graph;

 private:
  LRESULT OnCreate(WPARAM, LPARAM);
  LRESULT OnDestroy(WPARAM, LPARAM);
  LRESULT OnSize(WPARAM, LPARAM);
  LRESULT OnEraseBkgnd(WPARAM, LPARAM);
  LRESULT OnUpdateGraph(WPARAM, LPARAM);
  LRESULT OnRecalcAnalysis(WPARAM, LPARAM);
  LRESULT OnRecalcMask(WPARAM, LPARAM);

  static const MessageEntry messageEntries[];
  static const MessageMap messageMap;
};

}  // namespace sparlow
