#pragma once

#include <QWidget>

namespace sparlow::host {

/// The place of a widget in a layout: a thin frame around it shows that it has the keyboard focus.
/// Threads: the window's.
class FocusFrame : public QWidget {
 public:
  /// Takes the widget, which gets the focus in place of the frame.
  explicit FocusFrame(QWidget* widget);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace sparlow::host
