#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>

namespace sparlow {

/// A recursive lock that belongs to the thread that took it; whoever waits owns it when the wait
/// ends. A wait on the window's thread keeps serving message boxes that workers ask for, so that a
/// worker which holds the lock can't deadlock with its own box.
/// Threads: any. Unlock only on the thread that locked.
class CMutex {
 public:
  CMutex() = default;
  CMutex(const CMutex&) = delete;
  CMutex& operator=(const CMutex&) = delete;

  /// Waits without limit.
  void Lock();
  /// Waits until a stop is requested, without serving message boxes. Returns false when that came
  /// first.
  bool Lock(const std::stop_token& stop);
  /// Takes the lock if that needs no wait. Returns false when another thread has it.
  bool TryLock();
  void Unlock();

 private:
  bool freeFor(std::thread::id thread) const { return depth_ == 0 || owner_ == thread; }
  template <class Wait>
  bool lock(Wait wait);

  std::mutex state_;
  std::condition_variable_any freed_;
  std::thread::id owner_;  // guarded by state_
  unsigned depth_ = 0;     // guarded by state_
  unsigned waiting_ = 0;   // threads that wait for freed_; guarded by state_
};

/// Holds a CMutex from its construction to its end, or to Unlock.
/// Threads: the one that made it.
class CSingleLock {
 public:
  explicit CSingleLock(CMutex* mutex) : mutex_(mutex) { mutex_->Lock(); }
  ~CSingleLock() { Unlock(); }
  CSingleLock(const CSingleLock&) = delete;
  CSingleLock& operator=(const CSingleLock&) = delete;

  /// Releases the lock before the object ends. A second call does nothing.
  void Unlock() {
    if (mutex_)
      mutex_->Unlock();
    mutex_ = nullptr;
  }

 private:
  CMutex* mutex_;
};

/// A manual-reset event: once signalled it stays so until it is reset.
/// Threads: any.
class Event {
 public:
  explicit Event(bool signalled = false) : signalled_(signalled) {}
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  void Set();
  void Reset();
  /// Without a lock and without ordering anything else: cheap enough to be asked once a sample.
  bool IsSet() const noexcept { return signalled_.load(std::memory_order_relaxed); }
  /// Returns true when the event is signalled before the time is over.
  bool Wait(std::chrono::milliseconds limit);
  /// Waits until the event isn't signalled. Returns false when a stop is requested before.
  bool WaitForReset(const std::stop_token& stop);

 private:
  std::atomic<bool> signalled_;
  std::mutex state_;
  std::condition_variable_any changed_;
};

/// The platform's name for a reference to an event. Null is no event.
using HANDLE = Event*;

inline constexpr std::uint32_t INFINITE = 0xFFFFFFFFu;
inline constexpr std::uint32_t WAIT_OBJECT_0 = 0;
inline constexpr std::uint32_t WAIT_TIMEOUT = 258;

/// Makes an event, to be closed with CloseHandle. Only manual-reset events exist here.
HANDLE CreateEvent(bool signalled);
/// The next three do nothing on null, and return false.
bool SetEvent(HANDLE event);
bool ResetEvent(HANDLE event);
bool CloseHandle(HANDLE event);
/// WAIT_OBJECT_0 or WAIT_TIMEOUT; a null event times out at once. milliseconds may be 0 or
/// INFINITE.
std::uint32_t WaitForSingleObject(HANDLE event, std::uint32_t milliseconds);

/// Waits on a condition until done() holds, serving message boxes meanwhile when the caller is the
/// window's thread. lock guards what done() reads, and is released while a box is open.
void WaitServingBoxes(std::unique_lock<std::mutex>& lock, std::condition_variable_any& changed,
                      const std::function<bool()>& done);

}  // namespace sparlow
