#pragma once

#include <QAbstractScrollArea>

namespace sparlow::qt {

class QtWindow;

/// The widget of a window: its viewport is the client area and shows the window's surface. Whatever
/// it is told by Qt it hands to its QtWindow.
/// Threads: the window's.
class QtWidget final : public QAbstractScrollArea {
 public:
  explicit QtWidget(QtWindow& window);
  /// When Qt deletes it by itself, the window ends with it.
  ~QtWidget() override;

  /// Deletes it, at once or, inside one of its own events, after that. Its window is gone already.
  void Discard();
  /// Lays the viewport out now, also while the widget is hidden.
  void LayOut() { setViewportMargins(0, 0, 0, 0); }

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  QtWindow* window_;
  int eventDepth_ = 0;
};

}  // namespace sparlow::qt
