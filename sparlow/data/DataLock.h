#pragma once

#include <optional>

#include "sparlow/platform/Synchronization.h"

namespace sparlow {

/// Holds a mutex of a series to its own end. A series without mutexes, before Init and after Term,
/// has nobody to be kept from and is not locked.
/// Threads: the one that made it.
class DataLock {
 public:
  explicit DataLock(CMutex* mutex) {
    if (mutex)
      held_.emplace(mutex);
  }

 private:
  std::optional<CSingleLock> held_;
};

}  // namespace sparlow
