#pragma once

#include <QWidget>
#include <functional>

#include "sparlow/platform/window/Messages.h"

namespace sparlow::qt {

/// A menu, dialog or box while it is open. It belongs to a window, and is asked to close when that
/// ends; what it closes with runs later, in the event loop.
class QtModal {
 public:
  /// shown is not open yet. owner may be null: what is open already determines the window, or the
  /// main window does.
  QtModal(QWidget& shown, HWND owner, std::function<void()> close);
  ~QtModal();
  QtModal(const QtModal&) = delete;
  QtModal& operator=(const QtModal&) = delete;

  /// Puts what is shown over the middle of its window, or at the pointer without one, inside the
  /// screen.
  void Place();

  static void WindowGone(HWND window);

 private:
  void closeLater();

  QWidget& shown_;
  HWND owner_;
  QWidget* over_;  // what it goes over; null without one
  QMetaObject::Connection overGone_;
  const std::function<void()> close_;
  QtModal* const outer_;  // was open already
};

}  // namespace sparlow::qt
