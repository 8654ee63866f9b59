#pragma once

#include <QObject>

namespace sparlow::qt {

class QtWindow;

/// Watches the events of the program while a window has the mouse, for those that take it away.
class QtCaptureWatch final : public QObject {
 public:
  /// Null ends it.
  void Watch(QtWindow* window);
  /// A window ends; if it was watched, that ends too.
  void Forget(const QtWindow* window) {
    if (window == window_)
      Watch(nullptr);
  }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QtWindow* window_ = nullptr;
};

}  // namespace sparlow::qt
