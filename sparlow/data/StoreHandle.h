#pragma once

#include <memory>
#include <mutex>
#include <utility>

#include "sparlow/data/SampleStore.h"

namespace sparlow {

/// A series' share in the store of its data set; null while there is no data set. A copy shares the
/// same store.
/// Threads: any.
class StoreHandle {
 public:
  StoreHandle() = default;
  StoreHandle(const StoreHandle& other) : StoreHandle(other.Get()) {}
  StoreHandle& operator=(const StoreHandle& other) {
    Exchange(other.Get());
    return *this;
  }

  std::shared_ptr<SampleStore> Get() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return store_;
  }
  /// Takes another store and returns the old one, for the caller to drop where that may take time.
  std::shared_ptr<SampleStore> Exchange(std::shared_ptr<SampleStore> store) {
    const std::lock_guard<std::mutex> lock(mutex_);
    raw_.store(store.get());
    return std::exchange(store_, std::move(store));
  }
  /// Without a lock and without a share: for the thread that feeds, and for one that knows that no
  /// new data set begins.
  SampleStore* Raw() const { return raw_.load(); }

 private:
  explicit StoreHandle(std::shared_ptr<SampleStore> store)
      : store_(std::move(store)), raw_(store_.get()) {}

  mutable std::mutex mutex_;
  std::shared_ptr<SampleStore> store_;  // guarded by mutex_
  CopyableAtomic<SampleStore*> raw_ = nullptr;
};

}  // namespace sparlow
