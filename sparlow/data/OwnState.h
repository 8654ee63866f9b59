#pragma once

#include <mutex>

#include "sparlow/platform/base/CopyableAtomic.h"

namespace sparlow {

/// A mutex that a copy of its owner doesn't share and an assignment leaves alone.
/// Threads: any.
class OwnMutex {
 public:
  OwnMutex() = default;
  OwnMutex(const OwnMutex&) {}
  OwnMutex& operator=(const OwnMutex&) { return *this; }
  void lock() { mutex_.lock(); }
  void unlock() { mutex_.unlock(); }

 private:
  std::mutex mutex_;
};

/// A request that belongs to one object: a copy has none, and an assignment leaves it alone.
/// Threads: any.
class OwnRequest : public CopyableAtomic<bool> {
 public:
  OwnRequest() = default;
  OwnRequest(const OwnRequest&) : CopyableAtomic<bool>() {}
  OwnRequest& operator=(const OwnRequest&) { return *this; }
  using CopyableAtomic<bool>::operator=;
};

}  // namespace sparlow
