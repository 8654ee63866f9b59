#pragma once

// SPARLOW_PLAIN_VECTORS leaves out the processor's instructions, so that the code for a processor
// without them is built and tested on one that has them. Both give the same bits.
#if defined(__SSE2__) && !defined(SPARLOW_PLAIN_VECTORS)
#define SPARLOW_SSE2
#include <emmintrin.h>
#endif

namespace sparlow {

/// Two numbers worked on at once, in one instruction where the processor has it: compilers don't
/// make these of loops over samples that are read atomically.
class DoublePair {
 public:
#if defined(SPARLOW_SSE2)
  DoublePair(double first, double second) noexcept : values_(_mm_set_pd(second, first)) {}
  explicit DoublePair(double both) noexcept : values_(_mm_set1_pd(both)) {}

  friend DoublePair operator-(DoublePair a, DoublePair b) noexcept {
    return _mm_sub_pd(a.values_, b.values_);
  }
  friend DoublePair operator+(DoublePair a, DoublePair b) noexcept {
    return _mm_add_pd(a.values_, b.values_);
  }
  friend DoublePair operator*(DoublePair a, DoublePair b) noexcept {
    return _mm_mul_pd(a.values_, b.values_);
  }
  friend DoublePair operator/(DoublePair a, DoublePair b) noexcept {
    return _mm_div_pd(a.values_, b.values_);
  }
  double First() const noexcept {
    return _mm_cvtsd_f64(values_);
  }
  double Second() const noexcept {
    return _mm_cvtsd_f64(_mm_unpackhi_pd(values_, values_));
  }
  /// 0 in place of what isn't a number.
  DoublePair NumberOrZero() const noexcept {
    return _mm_and_pd(values_, _mm_cmpord_pd(values_, values_));
  }
  DoublePair AtMost(double limit) const noexcept {
    return _mm_min_pd(values_, _mm_set1_pd(limit));
  }
  DoublePair AtLeast(double limit) const noexcept {
    return _mm_max_pd(values_, _mm_set1_pd(limit));
  }
  /// Truncated toward zero; within the range of an int.
  void ToInts(int* first) const noexcept {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(first), _mm_cvttpd_epi32(values_));
  }

 private:
  DoublePair(__m128d values) noexcept : values_(values) {}

  __m128d values_;
#else
  DoublePair(double first, double second) noexcept : a_(first), b_(second) {}
  explicit DoublePair(double both) noexcept : a_(both), b_(both) {}

  friend DoublePair operator-(DoublePair a, DoublePair b) noexcept {
    return {a.a_ - b.a_, a.b_ - b.b_};
  }
  friend DoublePair operator+(DoublePair a, DoublePair b) noexcept {
    return {a.a_ + b.a_, a.b_ + b.b_};
  }
  friend DoublePair operator*(DoublePair a, DoublePair b) noexcept {
    return {a.a_ * b.a_, a.b_ * b.b_};
  }
  friend DoublePair operator/(DoublePair a, DoublePair b) noexcept {
    return {a.a_ / b.a_, a.b_ / b.b_};
  }
  double First() const noexcept {
    return a_;
  }
  double Second() const noexcept {
    return b_;
  }
  DoublePair NumberOrZero() const noexcept {
    return {a_ == a_ ? a_ : 0.0, b_ == b_ ? b_ : 0.0};
  }
  DoublePair AtMost(double limit) const noexcept {
    return {a_ < limit ? a_ : limit, b_ < limit ? b_ : limit};
  }
  DoublePair AtLeast(double limit) const noexcept {
    return {a_ > limit ? a_ : limit, b_ > limit ? b_ : limit};
  }
  void ToInts(int* first) const noexcept {
    first[0] = static_cast<int>(a_);
    first[1] = static_cast<int>(b_);
  }

 private:
  double a_, b_;
#endif
};

}  // namespace sparlow

#undef SPARLOW_SSE2
