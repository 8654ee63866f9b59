#include "examples/host/PaneView.h"

#include <stdexcept>
#include <type_traits>
#include <utility>

#include "sparlow/platform/window/Windows.h"

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
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    // An update ends the box that a user draws, and while samples come there is always one.
    if (message == WM_UPDATE_GRAPH && drawsBox()) {
      updateDue_ = true;
      return 0;
    }
    const HWND window = this->GetSafeHwnd();
    const LRESULT result = Base::WindowProc(message, wParam, lParam);
    CRect area;
    if (GetClientRect(window, &area) && !drawsBox() && std::exchange(updateDue_, false))
      PostMessage(window, WM_UPDATE_GRAPH, 0, 0);
    return result;
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

 private:
  bool drawsBox() const { return this->gesture.Now() == MouseGesture::box; }

  bool updateDue_ = false;  // and waits for the end of a box
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
