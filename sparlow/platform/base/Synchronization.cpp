#include "sparlow/platform/base/Synchronization.h"

#include "sparlow/platform/base/UiThread.h"

namespace sparlow {

void WaitServingBoxes(std::unique_lock<std::mutex>& lock, std::condition_variable_any& changed,
                      const std::function<bool()>& done) {
  if (done())
    return;
  if (!UiThread::IsCurrent()) {
    changed.wait(lock, done);
    return;
  }
  for (;;) {
    {
      const UiThread::BoxAlarm alarm;
      if (changed.wait(lock, alarm.Raised(), done))
        return;
    }
    lock.unlock();
    UiThread::ServeBoxesInWait();
    lock.lock();
  }
}

/// Returns false when the wait ended without the lock.
template <class Wait>
bool CMutex::lock(Wait wait) {
  const std::thread::id self = std::this_thread::get_id();
  const auto isFree = [this, self] { return freeFor(self); };
  std::unique_lock guard(state_);
  if (!isFree()) {
    ++waiting_;
    wait(guard, isFree);
    --waiting_;
    if (!isFree())
      return false;
  }
  owner_ = self;
  ++depth_;
  return true;
}

void CMutex::Lock() {
  lock([this](auto& guard, const auto& isFree) { WaitServingBoxes(guard, freed_, isFree); });
}

bool CMutex::Lock(const std::stop_token& stop) {
  return lock([this, &stop](auto& guard, const auto& isFree) { freed_.wait(guard, stop, isFree); });
}

bool CMutex::TryLock() {
  const std::thread::id self = std::this_thread::get_id();
  const std::lock_guard guard(state_);
  if (!freeFor(self))
    return false;
  owner_ = self;
  ++depth_;
  return true;
}

void CMutex::Unlock() {
  // Notified under the lock: the next owner may destroy this mutex as soon as it has it.
  const std::lock_guard guard(state_);
  if (depth_ == 0 || owner_ != std::this_thread::get_id())
    return;
  if (--depth_ == 0) {
    owner_ = {};
    // To notify costs a lock of the condition's own, and mostly nobody waits. All, because one that
    // is to stop just now would keep the notification from another one.
    if (waiting_ != 0)
      freed_.notify_all();
  }
}

void Event::Set() {
  const std::lock_guard guard(state_);
  signalled_.store(true, std::memory_order_release);
  changed_.notify_all();
}

void Event::Reset() {
  const std::lock_guard guard(state_);
  signalled_.store(false, std::memory_order_release);
  changed_.notify_all();
}

bool Event::WaitForReset(const std::stop_token& stop) {
  std::unique_lock guard(state_);
  return changed_.wait(guard, stop, [this] { return !signalled_.load(); });
}

bool Event::Wait(std::chrono::milliseconds limit) {
  std::unique_lock guard(state_);
  return changed_.wait_for(guard, limit, [this] { return signalled_.load(); });
}

HANDLE CreateEvent(bool signalled) {
  return new Event(signalled);
}

bool SetEvent(HANDLE event) {
  if (event)
    event->Set();
  return event != nullptr;
}

bool ResetEvent(HANDLE event) {
  if (event)
    event->Reset();
  return event != nullptr;
}

bool CloseHandle(HANDLE event) {
  delete event;
  return event != nullptr;
}

std::uint32_t WaitForSingleObject(HANDLE event, std::uint32_t milliseconds) {
  if (!event)
    return WAIT_TIMEOUT;
  if (milliseconds == 0)
    return event->IsSet() ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
  if (milliseconds != INFINITE)
    return event->Wait(std::chrono::milliseconds(milliseconds)) ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
  while (!event->Wait(std::chrono::hours(1))) {
  }
  return WAIT_OBJECT_0;
}

}  // namespace sparlow
