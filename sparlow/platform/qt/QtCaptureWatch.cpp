#include "sparlow/platform/qt/QtCaptureWatch.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

#include "sparlow/platform/qt/QtWidget.h"
#include "sparlow/platform/qt/QtWindow.h"

namespace sparlow::qt {

namespace {

bool isPopup(const QObject* object) {
  const auto* const widget = qobject_cast<const QWidget*>(object);
  return widget && widget->windowType() == Qt::Popup;
}

/// Does the widget lose the mouse by an event that something of the program gets?
bool takesMouse(const QWidget& from, const QObject* object, QEvent::Type type) {
  switch (type) {
    case QEvent::Show:
      return isPopup(object);
    case QEvent::WindowBlocked:
    case QEvent::WindowDeactivate:
      return object == from.window();
    case QEvent::Hide:
    case QEvent::UngrabMouse:
      return object == &from;
    case QEvent::EnabledChange:
      return object == &from && !from.isEnabled();
    default:
      return false;
  }
}

}  // namespace

void QtCaptureWatch::Watch(QtWindow* window) {
  const QtWindow* const before = std::exchange(window_, window);
  if (window && !before)
    QCoreApplication::instance()->installEventFilter(this);
  else if (before && !window)
    QCoreApplication::instance()->removeEventFilter(this);
}

bool QtCaptureWatch::eventFilter(QObject* object, QEvent* event) {
  if (window_ && window_->Widget() &&
      takesMouse(*window_->Widget()->viewport(), object, event->type()))
    window_->MouseTaken();
  return false;
}

}  // namespace sparlow::qt
