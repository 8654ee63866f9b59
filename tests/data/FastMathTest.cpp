// Built with fast mathematics, as a host may be: what the compiler may then take for granted of a
// number must not let one through that isn't.

#include <bit>
#include <span>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

TEST(FastMath, BadSamplesAreDroppedAndBoundsNeverNarrow) {
  Series s;
  s.Add(1, 2);
  const double inf = std::bit_cast<double>(0x7FF0'0000'0000'0000),
               nan = std::bit_cast<double>(~0ull);
  for (const double bad : {inf, -inf, nan}) {
    s.Add(bad, 5);
    s.Add(5, bad);
    s.Add(std::span(&bad, 1), std::span(&bad, 1));
    s.Set(0, bad, 5);
    s.Set(0, 5, bad);
  }
  EXPECT_EQ(s.GetSize(), 1u);
  EXPECT_EQ(s.GetDroppedSamples().notFinite, 9u);
  EXPECT_EQ(s.xGlobalIntervalGet(), 0);
  EXPECT_EQ(s.yGlobalIntervalGet(), 0);
  s.Set(0, -1e308, 1e308);
  EXPECT_EQ(s.xGlobalMin, -1e308);
  EXPECT_EQ(s.yGlobalMin, 2) << "bounds never narrow";
}

}  // namespace
}  // namespace sparlow::test
