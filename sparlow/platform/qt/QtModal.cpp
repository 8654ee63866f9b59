#include "sparlow/platform/qt/QtModal.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/qt/QtFonts.h"
#include "sparlow/platform/qt/QtWidget.h"
#include "sparlow/platform/qt/QtWindow.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/platform/window/WindowSite.h"

namespace sparlow::qt {

namespace {

/// The one that was opened last; the others hang from it.
QtModal* innermost = nullptr;

/// The widget on the screen that a window is, or is part of.
QWidget* topLevelOf(HWND window) {
  const auto site = WindowSite::Find(window);
  const auto* const peer = site ? dynamic_cast<QtWindow*>(site->peer()) : nullptr;
  return peer && peer->Widget() ? peer->Widget()->window() : nullptr;
}

/// The window that is a widget on the screen by itself; null for a widget of the host.
HWND windowOf(const QWidget* topLevel) {
  for (const auto& site : WindowSite::All()) {
    const auto* const peer = dynamic_cast<QtWindow*>(site->peer());
    if (peer && topLevel && peer->Widget() == topLevel)
      return site->handle();
  }
  return nullptr;
}

/// The main window, or what passes for it: one titled with the application's name, the active one,
/// or any that can be seen.
QWidget* mainTopLevel() {
  if (QWidget* const main = topLevelOf(AfxGetMainWnd()))
    return main;
  const QString name = FromUtf8(ToUtf8(GetApplicationName()));
  QWidget* seen = nullptr;
  for (QWidget* const widget : QApplication::topLevelWidgets()) {
    if (!widget->isVisible() || widget->windowType() == Qt::Popup)
      continue;
    if (!name.isEmpty() && widget->windowTitle() == name)
      return widget;
    seen = widget;
  }
  QWidget* const active = QApplication::activeWindow();
  return active ? active : seen;
}

}  // namespace

QtModal::QtModal(QWidget& shown, HWND owner, std::function<void()> close)
    : shown_(shown), owner_(owner), close_(std::move(close)), outer_(innermost) {
  if (owner_)
    over_ = topLevelOf(owner_);
  else if (outer_)
    over_ = outer_->shown_.windowType() == Qt::Popup ? outer_->over_ : &outer_->shown_;
  else
    over_ = mainTopLevel();
  if (!owner_)
    owner_ = outer_ ? outer_->owner_ : windowOf(over_);
  if (over_) {
    // Not a parent: Qt would delete with it what is open.
    shown_.winId();
    shown_.windowHandle()->setTransientParent(over_->windowHandle());
    overGone_ = QObject::connect(over_, &QObject::destroyed, [this] {
      over_ = nullptr;
      closeLater();
    });
  }
  innermost = this;
}

QtModal::~QtModal() {
  QObject::disconnect(overGone_);
  innermost = outer_;
}

void QtModal::Place() {
  const QPoint middle = over_ ? over_->frameGeometry().center() : QCursor::pos();
  const QScreen* screen = QApplication::screenAt(middle);
  if (!screen)
    screen = QApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  const QSize size = shown_.frameGeometry().size();
  const QPoint at = middle - QPoint(size.width() / 2, size.height() / 2);
  shown_.move(std::max(room.left(), std::min(at.x(), room.right() + 1 - size.width())),
              std::max(room.top(), std::min(at.y(), room.bottom() + 1 - size.height())));
}

void QtModal::closeLater() {
  QMetaObject::invokeMethod(&shown_, close_, Qt::QueuedConnection);
}

void QtModal::WindowGone(HWND window) {
  for (QtModal* modal = innermost; modal; modal = modal->outer_) {
    if (modal->owner_ == window)
      modal->closeLater();
  }
}

}  // namespace sparlow::qt
