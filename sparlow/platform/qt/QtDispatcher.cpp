#include "sparlow/platform/qt/QtDispatcher.h"

#include <QCoreApplication>
#include <QEvent>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/qt/QtWindowSystem.h"
#include "sparlow/platform/window/MessageQueue.h"

namespace sparlow::qt {

namespace {

constexpr auto wakeEvent = QEvent::User;
constexpr auto quitEvent = static_cast<QEvent::Type>(QEvent::User + 1);

}  // namespace

void QtDispatcher::Wake() {
  if (!posted_.exchange(true))
    QCoreApplication::postEvent(this, new QEvent(wakeEvent));
}

void QtDispatcher::Quit() {
  QCoreApplication::postEvent(this, new QEvent(quitEvent));
}

bool QtDispatcher::event(QEvent* event) {
  if (event->type() == wakeEvent) {
    posted_ = false;
    arm(0);
    return true;
  }
  if (event->type() == quitEvent) {
    QCoreApplication::exit(0);
    return true;
  }
  return QObject::event(event);
}

void QtDispatcher::arm(int milliseconds) {
  timer_.start(milliseconds, this);
  ++armings_;
}

void QtDispatcher::timerEvent(QTimerEvent*) {
  if (UiThread::InWait()) {
    // The end of the wait brings a wake.
    timer_.stop();
    return;
  }
  // Armed before the handlers run, since one of them may open a loop of its own; stopped after them
  // unless somebody has armed it meanwhile.
  arm(0);
  const unsigned mine = armings_;
  QtWindowSystem::CatchUp();
  if (!MessageQueue::Serve() && mine == armings_)
    timer_.stop();
}

}  // namespace sparlow::qt
