#pragma once

#include "sparlow/ui/CMultiGraphView.h"

namespace sparlow {

/// The window that shows a MultiGraphWithMasks: overlaid series, and up to 6 masks over them.
class CMultiGraphViewWithMasks : public CMultiGraphView {
 public:
  static CObject* CreateObject();

  /// Adds a mask, which stays the host's and must live as long as it is in the graph. Post
  /// WM_RECALC_MASK after it. Returns false when there is no graph, or its AddMaskData declines.
  bool AddMaskData(ViewData* data);
  /// Takes a mask out.
  void RemoveMaskData(ViewData* data);

  static const CRuntimeClass classCMultiGraphViewWithMasks;
  const CRuntimeClass* GetRuntimeClass() const override { return &classCMultiGraphViewWithMasks; }

 protected:
  CMultiGraphViewWithMasks() = default;
  ~CMultiGraphViewWithMasks() override = default;

  std::unique_ptr<Graph> NewGraph(GraphAxis* axis) override;
  const MessageMap* GetMessageMap() const override { return &messageMap; }

  static const MessageMap messageMap;

 private:
  void OnSetActiveMask(UINT id);

  static const MessageEntry messageEntries[];
};

}  // namespace sparlow
