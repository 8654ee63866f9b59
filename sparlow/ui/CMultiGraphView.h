#pragma once

#include "sparlow/ui/CSingleGraphView.h"

namespace sparlow {

/// The window that shows a MultiGraph: up to 6 series on one pair of axes. A click on a curve, or
/// an item of the popup menu, makes that series active.
class CMultiGraphView : public CSingleGraphView {
 public:
  static CObject* CreateObject();

  /// Takes the active series out of the graph. The document's title stays as it is.
  void RemoveActiveGraph() override;

  static const CRuntimeClass classCMultiGraphView;
  const CRuntimeClass* GetRuntimeClass() const override { return &classCMultiGraphView; }

 protected:
  CMultiGraphView() = default;
  ~CMultiGraphView() override = default;

  std::unique_ptr<Graph> NewGraph(GraphAxis* axis) override;
  const MessageMap* GetMessageMap() const override { return &messageMap; }

  static const MessageMap messageMap;

 private:
  void OnSetActiveGraph(UINT id);
  void OnRemoveSelected() { RemoveActiveGraph(); }

  static const MessageEntry messageEntries[];
};

}  // namespace sparlow
