#pragma once

#include <QAbstractScrollArea>
#include <QPointer>

#include "sparlow/platform/window/Messages.h"

namespace sparlow::qt {

class QtScrollBar;
class QtWindow;

/// The widget of a window: its viewport is the client area and shows the window's surface. Whatever
/// it gets from Qt it hands to its QtWindow.
class QtWidget final : public QAbstractScrollArea {
 public:
  explicit QtWidget(QtWindow& window);
  /// When Qt deletes it by itself, the window ends with it.
  ~QtWidget() override;

  /// While it lives, the widget isn't deleted by Discard: one of its events is being handled.
  class Hold {
   public:
    explicit Hold(QtWidget* widget);
    ~Hold();
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    const QPointer<QtWidget> widget_;  // Qt may delete it by itself
  };

  /// Deletes it, at once or, inside one of its own events, after that. Its window is gone already.
  void Discard();
  /// SB_HORZ or SB_VERT.
  QtScrollBar* Bar(int bar) const { return bars_[bar == SB_VERT ? 1 : 0]; }
  /// From a bar: what its user did.
  void Scrolled(int bar, int code, int position);
  /// Lays the viewport out now, also while the widget is hidden.
  void LayOut() { setViewportMargins(0, 0, 0, 0); }

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  void mouse(QMouseEvent* event, UINT message);

  QtWindow* window_;
  QtScrollBar* const bars_[2];
  int eventDepth_ = 0;
  bool discarded_ = false;
};

}  // namespace sparlow::qt
