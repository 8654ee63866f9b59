// Moves of the interval and of the vertical range that keep their size.

#include "sparlow/graph/Graph.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void Graph::Scroll(int samples) {
  changeAndUpdate([&] {
    if (!axis || !DataValid())
      return false;
    activeViewData.load()->Scroll(samples, &axis->hor);
    return true;
  });
}

void Graph::ScrollTo(unsigned first) {
  changeAndUpdate([&] {
    if (!DataValid())
      return false;
    activeViewData.load()->ScrollTo(first);
    return true;
  });
}

void Graph::yScroll(bool up) {
  changeAndUpdate([&] {
    if (!DataAndAxisValid() || !CanYScroll())
      return false;
    const AxisData& ver = axis->ver;
    const double step = up ? verticalStep() : -verticalStep();
    axis->SetVer(ver.min + step, ver.max + step);
    return true;
  });
}

void Graph::yScrollDo() {
  SCROLLINFO bar;
  if (!GetScrollInfo(hWnd, SB_VERT, &bar))
    return;
  changeAndUpdate([&] {
    if (!DataAndAxisValid() || !CanYScroll())
      return false;
    const double top = activeViewData.load()->yGlobalMaxGet() - bar.nTrackPos * verticalStep();
    axis->SetVer(top - axis->ver.range, top);
    return true;
  });
}

void Graph::OnYAutoZoom() {
  ChangeAxes([](GraphAxis& axes) { axes.yAutoZoom = !axes.yAutoZoom; });
}

}  // namespace sparlow
