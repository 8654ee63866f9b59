#pragma once

#include <cstddef>
#include <cstring>

namespace sparlow {

/// The table of an object's virtual functions, to ask which of them its class has replaced. The
/// standard has no such question; the tables are those of the Itanium C++ ABI (2.3 member function
/// pointers, 2.5 virtual table layout), which GCC and Clang follow. Of other compilers, and of
/// processors that sign the entries, nothing is known: every function then counts as replaced.
class VirtualTable {
 public:
  VirtualTable() = default;
  /// Of a class whose virtual functions begin with it, as it is with single inheritance.
  template <class Class>
  explicit VirtualTable(const Class& object) {
    std::memcpy(&entries_, static_cast<const void*>(&object), sizeof(entries_));
  }

  /// A call of the function comes to the same code by both tables.
  template <class Class, class Function>
  static bool Same(VirtualTable a, VirtualTable b, Function Class::*function) {
    const void* const entry = a.entry(function);
    return entry && entry == b.entry(function);
  }

 private:
  template <class Class, class Function>
  const void* entry(Function Class::*function) const {
#if defined(__GXX_ABI_VERSION) && !defined(__arm64e__) && !defined(__Fuchsia__) &&           \
    (defined(__x86_64__) || defined(__i386__) || defined(__aarch64__) || defined(__arm__) || \
     defined(__riscv))
    struct {
      std::ptrdiff_t code, adjustment;
    } parts;
    static_assert(sizeof(parts) == sizeof(function));
    std::memcpy(&parts, &function, sizeof(parts));
#if defined(__arm__) || defined(__aarch64__)
    const std::ptrdiff_t offset = parts.code;
#else
    const std::ptrdiff_t offset = parts.code - 1;
#endif
    if (!entries_)
      return nullptr;
    const void* code;
    std::memcpy(&code, entries_ + offset, sizeof(code));
    return code;
#else
    static_cast<void>(function);
    return nullptr;
#endif
  }

  const char* entries_ = nullptr;
};

}  // namespace sparlow
