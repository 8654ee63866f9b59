#pragma once

#include <atomic>
#include <type_traits>

namespace sparlow {

/// A plain value that two threads may touch and that a class may still copy: stores publish, loads
/// see what was published before.
/// Threads: any; each operation is atomic on its own, a copy is a load and a store.
template <class T>
class CopyableAtomic {
  static constexpr bool kCounts = std::is_arithmetic_v<T> && !std::is_same_v<T, bool>;

 public:
  constexpr CopyableAtomic(T value = T{}) noexcept : value_(value) {}
  CopyableAtomic(const CopyableAtomic& other) noexcept : value_(other.load()) {}
  CopyableAtomic& operator=(const CopyableAtomic& other) noexcept {
    store(other.load());
    return *this;
  }
  T operator=(T value) noexcept {
    store(value);
    return value;
  }
  operator T() const noexcept { return load(); }
  T operator->() const noexcept requires std::is_pointer_v<T> { return load(); }
  /// As of a plain value, and no other thread's change is lost.
  T operator+=(T by) noexcept requires kCounts { return value_ += by; }
  T operator-=(T by) noexcept requires kCounts { return value_ -= by; }
  T operator++() noexcept requires kCounts { return value_ += T{1}; }
  T operator--() noexcept requires kCounts { return value_ -= T{1}; }
  T operator++(int) noexcept requires kCounts { return value_.fetch_add(T{1}); }
  T operator--(int) noexcept requires kCounts { return value_.fetch_sub(T{1}); }

  T load(std::memory_order order = std::memory_order_acquire) const noexcept {
    return value_.load(order);
  }
  void store(T value, std::memory_order order = std::memory_order_release) noexcept {
    value_.store(value, order);
  }
  /// For values that need to be whole but order nothing else.
  T relaxed() const noexcept { return value_.load(std::memory_order_relaxed); }
  void setRelaxed(T value) noexcept { value_.store(value, std::memory_order_relaxed); }

 private:
  static_assert(std::atomic<T>::is_always_lock_free);
  std::atomic<T> value_;
};

}  // namespace sparlow
