#include "sparlow/platform/qt/QtWidget.h"

#include <QCloseEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <utility>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/qt/QtScrollBar.h"
#include "sparlow/platform/qt/QtWindow.h"

namespace sparlow::qt {

QtWidget::Hold::Hold(QtWidget* widget) : widget_(widget) {
  ++widget->eventDepth_;
}

QtWidget::Hold::~Hold() {
  if (widget_ && --widget_->eventDepth_ == 0 && widget_->discarded_)
    widget_->deleteLater();
}

QtWidget::QtWidget(QtWindow& window)
    : window_(&window),
      bars_{new QtScrollBar(Qt::Horizontal, *this), new QtScrollBar(Qt::Vertical, *this)} {
  setHorizontalScrollBar(bars_[0]);
  setVerticalScrollBar(bars_[1]);
  // Qt has given each the properties of the bar that was there. Its value is to change only by Set.
  for (QtScrollBar* const bar : bars_)
    bar->setTracking(false);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::StrongFocus);
  // Every pixel comes from the surface, so that nobody need erase before a paint.
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  viewport()->setMouseTracking(true);
  // A right press is the window's; no widget around is to open its own menu for it.
  viewport()->setContextMenuPolicy(Qt::PreventContextMenu);
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
  discarded_ = true;
  hide();
}

bool QtWidget::event(QEvent* event) {
  // This one deletes the widget.
  if (event->type() == QEvent::DeferredDelete)
    return QAbstractScrollArea::event(event);
  const QEvent::Type type = event->type();
  const QPointer<QtWidget> alive(this);
  const Hold hold(this);
  const bool handled = QAbstractScrollArea::event(event);
  if (alive && window_ && type == QEvent::ScreenChangeInternal)
    window_->SyncSize();
  if (alive && window_ && (type == QEvent::WindowActivate || type == QEvent::WindowDeactivate))
    window_->ActivationChanged(type == QEvent::WindowActivate);
  return handled;
}

bool QtWidget::viewportEvent(QEvent* event) {
  const Hold hold(this);
  return QAbstractScrollArea::viewportEvent(event);
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

namespace {

constexpr UINT noMessage = 0;

/// The message of a button that has one.
UINT messageOf(const QMouseEvent& event, UINT left, UINT right) {
  if (event.button() == Qt::LeftButton)
    return left;
  return event.button() == Qt::RightButton ? right : noMessage;
}

}  // namespace

void QtWidget::mouse(QMouseEvent* event, UINT message) {
  event->setAccepted(message != noMessage);
  if (window_ && message != noMessage)
    window_->Mouse(message, *event);
}

void QtWidget::mousePressEvent(QMouseEvent* event) {
  mouse(event, messageOf(*event, WM_LBUTTONDOWN, WM_RBUTTONDOWN));
}

void QtWidget::mouseReleaseEvent(QMouseEvent* event) {
  mouse(event, messageOf(*event, WM_LBUTTONUP, noMessage));
}

void QtWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  mouse(event, messageOf(*event, WM_LBUTTONDBLCLK, noMessage));
}

void QtWidget::mouseMoveEvent(QMouseEvent* event) {
  mouse(event, WM_MOUSEMOVE);
}

void QtWidget::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void QtWidget::keyPressEvent(QKeyEvent* event) {
  event->setAccepted(window_ && window_->Key(true, *event));
}

void QtWidget::keyReleaseEvent(QKeyEvent* event) {
  event->setAccepted(window_ && window_->Key(false, *event));
}

void QtWidget::focusInEvent(QFocusEvent* event) {
  if (window_ && event->reason() != Qt::PopupFocusReason)
    window_->FocusChanged(true);
}

void QtWidget::focusOutEvent(QFocusEvent* event) {
  // A menu that opens leaves the focus where it is.
  if (!window_)
    return;
  if (event->reason() == Qt::PopupFocusReason)
    window_->KeysTaken();
  else
    window_->FocusChanged(false);
}

void QtWidget::Scrolled(int bar, int code, int position) {
  // The bar that reports it is in the middle of an event of its own.
  const Hold hold(this);
  if (window_)
    window_->Scrolled(bar, code, position);
}

void QtWidget::scrollContentsBy(int, int) {}

}  // namespace sparlow::qt
