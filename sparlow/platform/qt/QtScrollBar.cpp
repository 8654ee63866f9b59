#include "sparlow/platform/qt/QtScrollBar.h"

#include <QWheelEvent>
#include <algorithm>
#include <cstdint>

#include "sparlow/platform/qt/QtWidget.h"

namespace sparlow::qt {

namespace {

/// Milliseconds from page to page while the trough is held.
constexpr int pagePeriod = 50;

/// The step that an action asks for; -1 for one that is no step.
int codeOf(int action) {
  switch (action) {
    case QAbstractSlider::SliderSingleStepSub:
      return SB_LINELEFT;
    case QAbstractSlider::SliderSingleStepAdd:
      return SB_LINERIGHT;
    case QAbstractSlider::SliderPageStepSub:
      return SB_PAGELEFT;
    case QAbstractSlider::SliderPageStepAdd:
      return SB_PAGERIGHT;
    default:
      return -1;
  }
}

/// The highest position: the one that shows the last page.
int highest(const SCROLLINFO& info) {
  return static_cast<int>(std::int64_t{info.nMax} -
                          std::max(std::int64_t{info.nPage} - 1, std::int64_t{0}));
}

}  // namespace

QtScrollBar::QtScrollBar(Qt::Orientation orientation, QtWidget& owner)
    : QScrollBar(orientation), owner_(owner) {
  setContextMenuPolicy(Qt::PreventContextMenu);
  // A graph isn't mirrored.
  setLayoutDirection(Qt::LeftToRight);
  connect(this, &QAbstractSlider::actionTriggered, this, [this](int action) { stepped(action); });
  connect(this, &QAbstractSlider::sliderPressed, this, [this] {
    dragging_ = true;
    thumbMoved();
  });
  connect(this, &QAbstractSlider::sliderMoved, this, [this](int) { thumbMoved(); });
  connect(this, &QAbstractSlider::sliderReleased, this, [this] { thumbReleased(); });
}

void QtScrollBar::Set(const SCROLLINFO& info) {
  const int track = info_.nTrackPos;
  info_ = info;
  info_.nMax = std::max(info.nMin, info.nMax);
  const std::int64_t length = std::int64_t{info_.nMax} - info_.nMin + 1;
  info_.nPage = static_cast<unsigned>(std::min(std::int64_t{info.nPage}, length));
  info_.nPos = std::clamp(info.nPos, info_.nMin, highest(info_));
  info_.nTrackPos = dragging_ ? track : info_.nPos;
  if (!dragging_)
    show();
}

void QtScrollBar::show() {
  constexpr unsigned most = 0x7FFFFFFF;
  setRange(info_.nMin, highest(info_));
  setPageStep(static_cast<int>(std::min(info_.nPage, most)));
  setValue(info_.nPos);
}

void QtScrollBar::stepped(int action) {
  // Qt takes as the new value where the slider stands after this.
  setSliderPosition(value());
  if (const int code = codeOf(action); code >= 0)
    report(code);
}

void QtScrollBar::thumbMoved() {
  if (!dragging_)
    return;
  info_.nTrackPos = sliderPosition();
  report(SB_THUMBTRACK);
}

void QtScrollBar::thumbReleased() {
  if (!dragging_)
    return;
  // Still dragged while this is reported: the track position holds.
  const QPointer<QtScrollBar> keep(this);
  report(SB_THUMBPOSITION);
  if (keep)
    endDrag();
}

void QtScrollBar::endDrag() {
  dragging_ = false;
  info_.nTrackPos = info_.nPos;
  show();
}

void QtScrollBar::report(int code) {
  owner_.Scrolled(orientation() == Qt::Horizontal ? SB_HORZ : SB_VERT, code, info_.nTrackPos);
}

bool QtScrollBar::event(QEvent* event) {
  // A drag whose release goes elsewhere comes to nothing.
  const QEvent::Type type = event->type();
  if (dragging_ && (type == QEvent::Hide || type == QEvent::WindowDeactivate)) {
    dragging_ = false;
    setSliderDown(false);
    endDrag();
  }
  return QScrollBar::event(event);
}

void QtScrollBar::timerEvent(QTimerEvent* event) {
  const QPointer<QtScrollBar> keep(this);
  const SliderAction action = repeatAction();
  QScrollBar::timerEvent(event);
  const bool page = action == SliderPageStepAdd || action == SliderPageStepSub;
  if (!keep || dragging_ || !page || repeatAction() != SliderNoAction)
    return;
  // A trough that is held: near the mouse Qt ends the repeats, and the slider jumps to it. Here it
  // goes on by pages, until it is under the mouse.
  const int underMouse = sliderPosition();
  setSliderPosition(value());
  const double distance =
      action == SliderPageStepAdd ? 1.0 * underMouse - value() : 1.0 * value() - underMouse;
  if (distance <= pageStep() / 2.0)
    return;
  setRepeatAction(action, pagePeriod, pagePeriod);
  triggerAction(action);
}

void QtScrollBar::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

}  // namespace sparlow::qt
