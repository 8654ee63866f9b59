// Built with fast mathematics, as a host may be: what the compiler may then take for granted of a
// number must not let one through that isn't.

#include <gtest/gtest.h>

#include <bit>
#include <span>

#include "sparlow/data/SourceData.h"

namespace sparlow::test {
namespace {

TEST(FastMath, BadSamplesAreDroppedAllTheSame) {
  SourceData s;
  s.Init("series");
  const double inf = std::bit_cast<double>(0x7FF0'0000'0000'0000),
               nan = std::bit_cast<double>(~0ull);
  for (const double bad : {inf, -inf, nan}) {
    s.Add(bad, 1);
    s.Add(1, bad);
    s.Add(std::span(&bad, 1), std::span(&bad, 1));
  }
  EXPECT_EQ(s.GetSize(), 0u);
  EXPECT_EQ(s.GetDroppedSamples().notFinite, 9u);
  s.Add(1e308, -1e308);
  EXPECT_EQ(s.GetSize(), 1u);
  s.Term();
}

}  // namespace
}  // namespace sparlow::test
