// Makes a series, an interval and axes of the bytes, and stops the program when a full render gives
// other columns than the plain fold.

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tests/support/RenderShapes.h"

namespace {

/// Numbers from bytes; when they are used up, from a generator that goes on where they ended.
class Numbers {
 public:
  Numbers(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
  std::uint32_t operator()() {
    if (size_ >= sizeof state_) {
      std::memcpy(&state_, data_, sizeof state_);
      data_ += sizeof state_;
      size_ -= sizeof state_;
      return state_;
    }
    state_ = state_ * 1664525u + 1013904223u;
    return state_ ^ state_ >> 15;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
  std::uint32_t state_ = 1;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static sparlow::ViewData& view = *[] {
    auto* const made = new sparlow::ViewData;
    made->Init("fuzzed");
    return made;
  }();
  Numbers numbers(data, size);
  const auto shape = sparlow::test::RenderShapes(numbers)(20000);
  const std::string difference = sparlow::test::DifferenceOfRender(view, shape);
  if (difference.empty())
    return 0;
  std::fprintf(stderr, "render_fuzz: %s\n", difference.c_str());
  std::abort();
}
