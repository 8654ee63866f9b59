#include <random>

#include "sparlow/data/BlockTable.h"
#include "sparlow/data/Error.h"
#include "tests/data/Series.h"
#include "tests/support/AllocationFailure.h"

namespace sparlow::test {
namespace {

constexpr std::size_t kTableBytes = BlockTable::kFirstSize * sizeof(BlockEntry);

TEST(SampleStore, GrowsItsTableAndSurvivesNoMemoryForIt) {
  constexpr unsigned kFull = 1024 * 8192;
  Series s;
  {
    const AllocationFailure noLargePiece((std::size_t{2} << 20) - 64);
    s.fillRamp(kFull);  // of single blocks then
  }
  const SampleReader before = s.Read();
  {
    const AllocationFailure noTable(2 * kTableBytes);
    EXPECT_THROW(s.Add(kFull, 1), Error);
  }
  s.Add(kFull, 1);
  const SampleReader after = s.Read();
  for (unsigned i = 0; i < kFull; i += 4099) {
    ASSERT_EQ(after.x(i), i);
    ASSERT_EQ(before.x(i), i);  // through the table that was there then
  }
  EXPECT_EQ(after.x(kFull), kFull);
  EXPECT_NEAR(static_cast<double>(s.Store()->MemoryUse()), 1025.0 * sizeof(SampleBlock), 2e7);
}

TEST(SampleStore, SortingAWaveformKeepsSamplesAndFlagsTogether) {
  std::mt19937 random(21);
  Series s;
  s.InitDataTransfer(true);
  s.InitBlockTransfer();
  for (int i = 0; i < 3000; ++i) {
    const int x = static_cast<int>(random() % 100000);
    s.Add(x, 3.0 * x, x % 3 == 0);
  }
  s.TermBlockTransfer();
  EXPECT_TRUE(s.TermDataTransfer());
  EXPECT_TRUE(s.Store()->Ascending());
  for (unsigned i = 0; i < 3000; ++i) {
    ASSERT_LE(s.xGet(i ? i - 1 : 0), s.xGet(i));
    ASSERT_EQ(s.yGet(i), 3 * s.xGet(i));
    ASSERT_EQ(s.slopeGet(i), static_cast<int>(s.xGet(i)) % 3 == 0);
  }
}

TEST(SampleStore, KnowsWhetherXAscends) {
  Series s;
  const auto ascendsAfterSet = [&s](unsigned sample, double x) {
    s.Set(sample, x, 0);
    return s.Store()->Ascending();
  };
  s.fillRamp(8192);
  s.Add(8191, 0);  // equal to the one before, in the next block
  EXPECT_TRUE(ascendsAfterSet(8192, 9000));
  s.Add(8999, 0);  // below the sample as it was overwritten
  EXPECT_FALSE(s.Store()->Ascending());
  s.fillRamp(9000);
  EXPECT_FALSE(ascendsAfterSet(8192, 8190)) << "below the last one of the block before";
  s.fillRamp(10);
  EXPECT_FALSE(ascendsAfterSet(4, 5.5)) << "above the next one";
}

TEST(SourceData, ACopyIsASecondHandleThatKeepsItsSamples) {
  Series s;
  s.fillRamp(10000);
  SourceData copy(s);
  s.Add(10000, 1e6);
  EXPECT_EQ(copy.GetSize(), 10000u);
  copy.Add(20000, 2e4);  // goes behind the sample that the copy hasn't counted
  EXPECT_EQ(copy.yGlobalMax, 2e4);
  EXPECT_EQ(copy.GetSize(), 10002u);
  EXPECT_EQ(copy.xGet(10000), 10000);
  s.Reset();
  s.Add(-1, -1);
  EXPECT_EQ(copy.xGet(9999), 9999);
}

TEST(SourceData, IsHarmlessBeforeInitAndAfterTerm) {
  SourceData s;
  for (const char* name : {"series", static_cast<const char*>(nullptr)}) {
    EXPECT_FALSE(s.Valid());
    EXPECT_FALSE(s.IsAborted());
    EXPECT_FALSE(s.ZoomInByPoint(0, 1, nullptr));
    EXPECT_FALSE(s.ZoomInByCursor());
    EXPECT_FALSE(s.Scroll(1, nullptr));
    s.ScrollTo(4);
    s.ResetInterval(nullptr);
    s.SetIntervalParams();
    s.Set(0, 1, 1);
    s.Term();
    s.Init(name);
    EXPECT_EQ(s.GetSize(), 0u);
    s.Add(1, 1);
    EXPECT_EQ(s.GetSize(), 1u);
    s.Term();
  }
}

}  // namespace
}  // namespace sparlow::test
