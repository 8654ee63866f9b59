// What a user does with mouse, keyboard and scroll bars, as messages to the window.

#include <QCursor>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QTimer>
#include <cmath>
#include <utility>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/qt/QtScrollBar.h"
#include "sparlow/platform/qt/QtWidget.h"
#include "sparlow/platform/qt/QtWindow.h"
#include "sparlow/platform/qt/QtWindowSystem.h"
#include "sparlow/platform/window/Resources.h"
#include "sparlow/platform/window/WindowSite.h"

namespace sparlow::qt {

namespace {

struct KeyName {
  int qt;
  WPARAM key;
};
constexpr KeyName keyNames[] = {
    {Qt::Key_Left, VK_LEFT}, {Qt::Key_Right, VK_RIGHT}, {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_Up, 0x26},      {Qt::Key_Down, 0x28},      {Qt::Key_Home, 0x24},
    {Qt::Key_End, 0x23},     {Qt::Key_PageUp, 0x21},    {Qt::Key_PageDown, 0x22},
    {Qt::Key_Control, 0x11}, {Qt::Key_Escape, 0x1B},    {Qt::Key_Return, 0x0D},
};

/// VK_* of a key; 0 for one that isn't sent.
WPARAM nameOf(int key) {
  for (const KeyName& name : keyNames) {
    if (name.qt == key)
      return name.key;
  }
  const bool letterOrDigit =
      (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
  return letterOrDigit ? static_cast<WPARAM>(key) : 0;
}

QCursor cursorOf(const PointerShape& shape) {
  if (shape.id == IDC_SIZEALL)
    return QCursor(Qt::SizeAllCursor);
  const int size = static_cast<int>(shape.black.size());
  QImage image(size, size, QImage::Format_ARGB32);
  for (int y = 0; y < size; ++y) {
    const auto row = static_cast<std::size_t>(y);
    for (int x = 0; x < size; ++x) {
      const auto isIn = [&](const auto& rows) { return (rows[row] & 0x80000000u >> x) != 0; };
      image.setPixel(x, y, isIn(shape.black) ? 0xFF000000u : isIn(shape.white) ? 0xFFFFFFFFu : 0u);
    }
  }
  return QCursor(QPixmap::fromImage(image), shape.hotSpot.x, shape.hotSpot.y);
}

/// The pixel that a position lies in.
CPoint pixelAt(const QPointF& position) {
  const auto pixel = [](double c) {
    constexpr double far = 1 << 20;
    return static_cast<int>(std::floor(qBound(-far, c, far)));
  };
  return {pixel(position.x()), pixel(position.y())};
}

}  // namespace

void QtWindow::Mouse(UINT message, const QMouseEvent& event) {
  if (UiThread::InWait())
    return;
  const WindowHold hold(site_);
  buttons_ = event.buttons();
  system_.NoteInput(this, event.modifiers());
  // A window that has the mouse keeps the shape that it has set.
  const bool newShape = message == WM_MOUSEMOVE && GetCapture() != site_.handle();
  if (newShape)
    pointerSet_ = false;
  site_.Send(message, 0, PackPoint(pixelAt(event.position())));
  if (newShape && !pointerSet_)
    setPointer(nullptr);
}

void QtWindow::ShowPointer(HCURSOR shape) {
  pointerSet_ = true;
  setPointer(shape);
}

void QtWindow::setPointer(HCURSOR shape) {
  if (!widget_ || shape == std::exchange(pointer_, shape))
    return;
  if (shape)
    widget_->viewport()->setCursor(cursorOf(*shape));
  else
    widget_->viewport()->unsetCursor();
}

bool QtWindow::Key(bool down, const QKeyEvent& event) {
  const WPARAM key = nameOf(event.key());
  // Between the repeats of a held key Qt reports releases that nobody has made.
  if (key != 0 && (down || !event.isAutoRepeat()))
    keyEvent(down, key, event);
  return key == VK_LEFT || key == VK_RIGHT;
}

void QtWindow::keyEvent(bool down, WPARAM key, const QKeyEvent& event) {
  // What an event of the shift key itself says about it depends on the system.
  Qt::KeyboardModifiers modifiers = event.modifiers();
  if (key == VK_SHIFT)
    modifiers.setFlag(Qt::ShiftModifier, down);
  const KeyStroke now{key, event.timestamp(), modifiers};
  const bool repeats =
      down && heldRelease_ && heldRelease_->key == key && heldRelease_->time == event.timestamp();
  const WindowHold hold(site_);
  if (repeats)
    heldRelease_.reset();
  else
    sendRelease();
  // X repeats a key by a release and a press of one time, which Qt joins only if both are there
  // already. So a release waits a little for its press; one without a time has no such pair.
  if (!down && event.timestamp() != 0 && widget_) {
    heldRelease_ = now;
    constexpr int pairGap = 20;
    // Not called when the widget has gone.
    QTimer::singleShot(pairGap, widget_, [this, time = now.time] {
      if (heldRelease_ && heldRelease_->time == time)
        sendRelease();
    });
    return;
  }
  sendKey(down, now, repeats || event.isAutoRepeat());
}

void QtWindow::sendRelease() {
  if (heldRelease_)
    sendKey(false, *std::exchange(heldRelease_, std::nullopt), true);
}

void QtWindow::sendKey(bool down, const KeyStroke& stroke, bool before) {
  if (UiThread::InWait())
    return;
  system_.NoteInput(nullptr, stroke.modifiers);
  if (down)
    downKey_ = stroke;
  else if (downKey_ && downKey_->key == stroke.key)
    downKey_.reset();
  constexpr LPARAM once = 1;
  constexpr LPARAM wasDown = 1 << 30;
  site_.Send(down ? WM_KEYDOWN : WM_KEYUP, stroke.key, before ? once | wasDown : once);
}

void QtWindow::Scrolled(int bar, int code, int position) {
  if (UiThread::InWait())
    return;
  const bool thumb = code == SB_THUMBPOSITION || code == SB_THUMBTRACK;
  const auto low16 = thumb ? static_cast<WPARAM>(position & 0xFFFF) : WPARAM{0};
  site_.Send(bar == SB_HORZ ? WM_HSCROLL : WM_VSCROLL, static_cast<WPARAM>(code) | low16 << 16);
}

SCROLLINFO QtWindow::GetScrollInfo(int bar) const {
  const QtScrollBar* const shown = widget_ ? widget_->Bar(bar) : nullptr;
  return shown ? shown->Info() : SCROLLINFO{};
}

void QtWindow::SetScrollInfo(int bar, const SCROLLINFO& info) {
  if (QtScrollBar* const shown = widget_ ? widget_->Bar(bar) : nullptr)
    shown->Set(info);
}

void QtWindow::FocusChanged(bool focused) {
  const WindowHold hold(site_);
  sendRelease();
  if (!focused)
    downKey_.reset();
  focused_ = focused;
  sendFocus();
}

void QtWindow::KeysTaken() {
  const WindowHold hold(site_);
  sendRelease();
  if (downKey_)
    sendKey(false, *std::exchange(downKey_, std::nullopt), true);
}

void QtWindow::ActivationChanged(bool active) {
  active_ = active;
  sendFocus();
}

void QtWindow::sendFocus() {
  if (UiThread::InWait()) {
    UiThread::Wake();
    return;
  }
  const WindowHold hold(site_);
  if (std::exchange(sentActive_, active_) != active_)
    site_.Send(WM_ACTIVATE, active_ ? 1 : 0);
  if (std::exchange(sentFocused_, focused_) != focused_)
    site_.Send(focused_ ? WM_SETFOCUS : WM_KILLFOCUS);
}

void QtWindow::SetCapture(bool capture) {
  system_.CaptureWatch().Watch(capture ? this : nullptr);
  if (!widget_)
    return;
  // Until the last button is up Qt sends everything here anyway.
  if (capture && buttons_ == Qt::NoButton) {
    grabbed_ = true;
    widget_->viewport()->grabMouse();
  } else if (!capture && std::exchange(grabbed_, false)) {
    widget_->viewport()->releaseMouse();
  }
  mouseTaken_ = false;
}

void QtWindow::MouseTaken() {
  // Reported later: the event that took it is on its way to a widget, which must outlive it.
  mouseTaken_ = true;
  UiThread::Wake();
}

CPoint QtWindow::ToScreen(CPoint client) const {
  if (!widget_)
    return client;
  const QPoint point = widget_->viewport()->mapToGlobal(QPoint(client.x, client.y));
  return {point.x(), point.y()};
}

CPoint QtWindow::FromScreen(CPoint screen) const {
  if (!widget_)
    return screen;
  const QPoint point = widget_->viewport()->mapFromGlobal(QPoint(screen.x, screen.y));
  return {point.x(), point.y()};
}

void QtWindow::CatchUp() {
  if (UiThread::InWait())
    return;
  const WindowHold hold(site_);
  SyncSize();
  if (std::exchange(mouseTaken_, false))
    CaptureLost(site_.handle());
  sendFocus();
}

}  // namespace sparlow::qt
