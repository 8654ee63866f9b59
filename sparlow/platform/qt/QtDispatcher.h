#pragma once

#include <QBasicTimer>
#include <QObject>
#include <atomic>

namespace sparlow::qt {

/// Brings the message queue to Qt's event loop. It serves from a timer without interval, so that
/// Qt's own events go first, and from a new one each time, so that loops inside a handler (menus,
/// dialogs, message boxes) serve too.
/// Threads: the window's, but for Wake and Quit.
class QtDispatcher final : public QObject {
 public:
  /// Asks for a Serve. Any thread; it runs nothing.
  void Wake();
  /// Ends the event loop. Any thread.
  void Quit();
  /// True while a Serve is due.
  bool IsDue() const { return posted_.load() || timer_.isActive(); }

 protected:
  bool event(QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void arm(int milliseconds);

  std::atomic<bool> posted_{false};
  QBasicTimer timer_;
  unsigned armings_ = 0;
};

}  // namespace sparlow::qt
