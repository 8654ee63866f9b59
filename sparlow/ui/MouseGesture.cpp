#include "sparlow/ui/MouseGesture.h"

#include <utility>

#include "sparlow/platform/window/Input.h"

namespace sparlow {

void MouseGesture::Begin(Kind kind, HWND window) {
  kind_ = kind;
  window_ = window;
  SetCapture(window);
}

MouseGesture::Kind MouseGesture::End() {
  const Kind was = std::exchange(kind_, none);
  if (was != none && GetCapture() == window_)
    ReleaseCapture();
  return was;
}

}  // namespace sparlow
