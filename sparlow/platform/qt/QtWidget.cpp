#include "sparlow/platform/qt/QtWidget.h"

#include <QCloseEvent>
#include <QPainter>
#include <utility>

#include "sparlow/platform/UiThread.h"
#include "sparlow/platform/qt/QtWindow.h"

namespace sparlow::qt {

QtWidget::QtWidget(QtWindow& window) : window_(&window) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::StrongFocus);
  // Every pixel comes from the surface, so that nobody need erase before a paint.
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

QtWidget::~QtWidget() {
  if (QtWindow* const window = std::exchange(window_, nullptr))
    window->WidgetGone();
}

void QtWidget::Discard() {
  window_ = nullptr;
  if (eventDepth_ == 0) {
    delete this;
    return;
  }
  hide();
  deleteLater();
}

bool QtWidget::event(QEvent* event) {
  // This one deletes the widget.
  if (event->type() == QEvent::DeferredDelete)
    return QAbstractScrollArea::event(event);
  const QEvent::Type type = event->type();
  ++eventDepth_;
  const bool handled = QAbstractScrollArea::event(event);
  if (window_ && type == QEvent::ScreenChangeInternal)
    window_->SyncSize();
  --eventDepth_;
  return handled;
}

bool QtWidget::viewportEvent(QEvent* event) {
  ++eventDepth_;
  const bool handled = QAbstractScrollArea::viewportEvent(event);
  --eventDepth_;
  return handled;
}

void QtWidget::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  if (!window_)
    return;
  const ImageDevice& surface = window_->Pixels();
  const QImage& image = surface.Image();
  const double scale = viewport()->devicePixelRatioF();
  const QSize size = viewport()->size();
  // While the surface is behind, or where a broken scale leaves part of a pixel.
  if (image.width() < size.width() * scale || image.height() < size.height() * scale)
    painter.fillRect(viewport()->rect(), Qt::white);
  painter.scale(1.0 / surface.Scale(), 1.0 / surface.Scale());
  painter.drawImage(QPoint(0, 0), image);
  // The screen's scale has changed; the paint goes first, the window learns it after that.
  if (scale != surface.Scale())
    UiThread::Wake();
}

void QtWidget::resizeEvent(QResizeEvent*) {
  if (window_)
    window_->SyncSize();
}

void QtWidget::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  if (window_)
    window_->SyncSize();
  // Paints that were due while nobody could see them.
  UiThread::Wake();
}

void QtWidget::closeEvent(QCloseEvent* event) {
  if (!window_ || !isWindow())
    QAbstractScrollArea::closeEvent(event);
  else if (UiThread::InWait())
    event->ignore();
  else
    window_->Closed();
}

void QtWidget::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void QtWidget::keyPressEvent(QKeyEvent* event) {
  event->ignore();
}

void QtWidget::scrollContentsBy(int, int) {}

}  // namespace sparlow::qt
