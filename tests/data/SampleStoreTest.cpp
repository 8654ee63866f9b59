#include <gtest/gtest.h>

#include <random>

#include "sparlow/data/Error.h"
#include "tests/data/Series.h"
#include "tests/support/AllocationFailure.h"

namespace sparlow::test {
namespace {

constexpr std::size_t kBlockBytes = sizeof(SampleBlock);
constexpr std::size_t kTableBytes = SampleStore::kFirstTableSize * sizeof(BlockEntry);

void expectExactRuns(const SourceData& series) {
  const SampleReader samples = series.Read();
  constexpr unsigned kRun = SampleBlock::kRunSamples;
  for (unsigned begin = 0; begin + kRun <= samples.size(); begin += kRun) {
    double low = INFINITY, high = -INFINITY;
    for (unsigned i = begin; i < begin + kRun; ++i) {
      low = std::min(low, samples.y(i));
      high = std::max(high, samples.y(i));
    }
    const SampleBlock& block = samples.block(begin / SampleBlock::kSamples);
    ASSERT_EQ(block.runMin[begin % SampleBlock::kSamples / kRun], low) << begin;
    ASSERT_EQ(block.runMax[begin % SampleBlock::kSamples / kRun], high) << begin;
  }
}

TEST(SampleStore, GrowsItsTableAndSurvivesNoMemoryForIt) {
  constexpr unsigned kFull = 1024 * 8192;
  Series s;
  s.fillRamp(kFull);
  const SampleReader before = s.Read();
  {
    const AllocationFailure noTable(2 * kTableBytes, 2 * kTableBytes);
    EXPECT_THROW(s.Add(kFull, 1), Error);
  }
  s.Add(kFull, 1);
  const SampleReader after = s.Read();
  for (unsigned i = 0; i < kFull; i += 4099) {
    ASSERT_EQ(after.x(i), i);
    ASSERT_EQ(before.x(i), i);  // through the table that was there then
  }
  EXPECT_EQ(after.x(kFull), kFull);
}

TEST(SampleStore, TakesSingleBlocksWhereThereIsNoMemoryForMany) {
  Series s;
  constexpr unsigned n = 150 * SampleBlock::kSamples;
  {
    const AllocationFailure noPieces(2 * kBlockBytes, 1000 * kBlockBytes);
    s.fillRamp(n / 2);
  }
  for (unsigned i = n / 2; i < n; ++i)
    s.Add(i, i);
  ASSERT_EQ(s.GetSize(), n);
  for (unsigned i = 0; i < n; i += 100)
    ASSERT_EQ(s.yGet(i), i);
  EXPECT_LT(s.Store()->MemoryUse(), 2 * 150 * kBlockBytes) << "no piece beyond what is there";
}

TEST(SampleStore, AFailedAllocationChangesNothingAndMayBeTriedAgain) {
  Series s;
  for (const unsigned size : {0u, 8192u}) {
    s.fillRamp(size);
    const double highest = s.yGlobalMax;
    {
      const AllocationFailure noBlock(kBlockBytes, kBlockBytes);
      EXPECT_THROW(s.Add(size, 9e9), std::bad_alloc);
    }
    EXPECT_EQ(s.GetSize(), size);
    EXPECT_EQ(s.yGlobalMax, highest);
    s.Add(size, size);
    EXPECT_EQ(s.xGet(size), size);
  }
}

TEST(SampleStore, SummariesOfRunsFollowEveryChange) {
  std::mt19937 random(20);
  std::uniform_real_distribution<double> value(-1000, 1000);
  Series s;
  for (unsigned i = 0; i < 20000; ++i)
    s.Add(i, value(random));
  s.Add(20000, std::numeric_limits<double>::max());
  s.Add(20001, std::numeric_limits<double>::lowest());
  expectExactRuns(s);
  for (int i = 0; i < 3000; ++i) {
    const unsigned sample = static_cast<unsigned>(random() % 20002);
    s.Set(sample, sample, 5 * value(random));
  }
  expectExactRuns(s);
}

TEST(SampleStore, SortingAWaveformKeepsSamplesFlagsAndSummariesTogether) {
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
  expectExactRuns(s);
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

}  // namespace
}  // namespace sparlow::test
