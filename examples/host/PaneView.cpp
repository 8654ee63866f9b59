#include "examples/host/PaneView.h"

#include <stdexcept>
#include <type_traits>

#include "sparlow/platform/Windows.h"

namespace sparlow::host {

namespace {

/// A view of the library with an eye on what it shows.
template <class Base>
class WatchedView final : public Base, public PaneView {
 public:
  CSingleGraphView& View() override { return *this; }
  CMultiGraphViewWithMasks* Masks() override {
    if constexpr (std::is_same_v<Base, CMultiGraphViewWithMasks>)
      return this;
    return nullptr;
  }
  ViewData* Active() const override {
    return this->graph ? this->graph->GetActiveViewData() : nullptr;
  }
  bool TakeOut(ViewData* series) override {
    return this->graph && this->graph->RemoveViewData(series);
  }
  void RemoveActiveGraph() override {
    const HWND window = this->GetSafeHwnd();
    ViewData* const before = Active();
    Base::RemoveActiveGraph();
    // A box that was open meanwhile may have ended the view.
    CRect area;
    if (GetClientRect(window, &area) && Active() != before && removed)
      removed(before);
  }
};

PaneView* make(ViewKind kind) {
  switch (kind) {
    case ViewKind::multi:
      return new WatchedView<CMultiGraphView>;
    case ViewKind::masks:
      return new WatchedView<CMultiGraphViewWithMasks>;
    default:
      return new WatchedView<CSingleGraphView>;
  }
}

}  // namespace

PaneView* PaneView::Make(ViewKind kind) {
  PaneView* const view = make(kind);
  if (!view->View().Create())
    throw std::runtime_error("the window system makes no window");
  return view;
}

}  // namespace sparlow::host
