#pragma once

#include <QPointer>
#include <QScrollBar>

#include "sparlow/platform/window/Messages.h"

namespace sparlow::qt {

class QtWidget;

/// A window's scroll bar. It shows what was last set and never moves by itself: steps and drags of
/// the thumb are reported to the window, which sets the new position or leaves it.
class QtScrollBar final : public QScrollBar {
 public:
  QtScrollBar(Qt::Orientation orientation, QtWidget& owner);

  const SCROLLINFO& Info() const { return info_; }
  /// Page and position are brought into the range. While the thumb is dragged it stays under the
  /// mouse, and shows this after its release.
  void Set(const SCROLLINFO& info);

 protected:
  bool event(QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void stepped(int action);
  void thumbMoved();
  void thumbReleased();
  void endDrag();
  void show();
  void report(int code);

  QtWidget& owner_;
  SCROLLINFO info_;
  bool dragging_ = false;
};

}  // namespace sparlow::qt
