#pragma once

#include <mutex>
#include <optional>

#include "sparlow/platform/base/Synchronization.h"

namespace sparlow {

/// Holds a mutex of a series to its own end. A series without mutexes, before Init and after Term,
/// has nobody to be kept from and is not locked.
/// Threads: the one that made it.
class DataLock {
 public:
  explicit DataLock(CMutex* mutex) : mutex_(mutex) {
    if (mutex_)
      mutex_->Lock();
  }
  /// Takes the mutex only if that needs no wait; it tests false when another thread has it.
  DataLock(CMutex* mutex, std::try_to_lock_t)
      : mutex_(mutex && mutex->TryLock() ? mutex : nullptr), refused_(mutex && !mutex_) {}
  /// The same after a wait, which a stop request ends.
  DataLock(CMutex* mutex, const std::stop_token& stop)
      : mutex_(mutex && mutex->Lock(stop) ? mutex : nullptr), refused_(mutex && !mutex_) {}
  ~DataLock() {
    if (mutex_)
      mutex_->Unlock();
  }
  DataLock(const DataLock&) = delete;
  DataLock& operator=(const DataLock&) = delete;
  explicit operator bool() const { return !refused_; }

 private:
  CMutex* const mutex_;
  const bool refused_ = false;
};

}  // namespace sparlow
