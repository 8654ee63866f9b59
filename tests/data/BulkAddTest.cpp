#include <random>
#include <vector>

#include "tests/data/Series.h"
#include "tests/support/AllocationFailure.h"

namespace sparlow::test {
namespace {

/// x ascends but for a few samples; one sample in `badEvery` is no number, or infinite.
struct Input {
  std::vector<double> xs, ys;

  Input(std::mt19937& random, std::size_t count, unsigned badEvery) {
    std::uniform_real_distribution<double> value(-1, 1);
    double x = 100 * value(random);
    for (std::size_t i = 0; i < count; ++i) {
      x += random() % 3000 == 0 ? value(random) : 0.25 * static_cast<double>(random() % 4);
      xs.push_back(x);
      ys.push_back(random() % 500 == 0 ? 1e9 * value(random) : value(random));
      if (badEvery == 0 || random() % badEvery != 0)
        continue;
      const double bad[] = {kNan, kInf, -kInf};
      (random() % 2 ? xs : ys).back() = bad[random() % 3];
    }
  }
  void addTo(Series& s, std::size_t from, std::size_t count) const {
    s.Add(std::span(xs).subspan(from, count), std::span(ys).subspan(from, count));
  }
};

/// All that a series knows of its samples.
std::vector<double> knownOf(const SourceData& s) {
  const SampleReader samples = s.Read();
  const unsigned size = samples.size();
  const auto dropped = s.GetDroppedSamples();
  std::vector<double> known{s.xGlobalMin, s.xGlobalMax, s.yGlobalMin, s.yGlobalMax};
  for (const auto count : {dropped.notFinite, dropped.beyondLimit})
    known.push_back(static_cast<double>(count));
  for (unsigned i = 0; i < size; ++i) {
    known.insert(known.end(), {samples.x(i), samples.y(i), 1.0 * s.slopeGet(i)});
    if (i % 101 != 0)
      continue;
    const YRange range = samples.RangeOfY(i, std::min(size, i + 1 + i * 7 % 10000));
    known.insert(known.end(), {range.low, range.high});
  }
  if (s.Store())
    known.push_back(s.Store()->Ascending());
  return known;
}

class BulkAdd : public testing::Test {
 protected:
  std::mt19937 random{11};
  Series bulk, single;
};

TEST_F(BulkAdd, IsAsManyCallsOfAdd) {
  for (int round = 0; round < 60; ++round) {
    const unsigned badEvery[] = {0, 1, 2, 70, 3000};
    const Input in(random, random() % 40000, badEvery[round % 5]);
    for (Series* const s : {&bulk, &single}) {
      s->InitDataTransfer(round % 4 == 0);  // a waveform has room for one block only
      s->InitBlockTransfer();
    }
    for (std::size_t i = 0; i < in.xs.size();) {
      const std::size_t most[] = {3, 100, 9000, 30000};
      const std::size_t count = std::min(random() % most[random() % 4], in.xs.size() - i);
      if (random() % 3 == 0) {
        for (std::size_t k = i; k < i + count; ++k)
          bulk.Add(in.xs[k], in.ys[k]);
      } else {
        in.addTo(bulk, i, count);
      }
      i += count;
    }
    for (std::size_t i = 0; i < in.xs.size(); ++i)
      single.Add(in.xs[i], in.ys[i]);
    for (Series* const s : {&bulk, &single})
      s->TermDataTransfer();
    ASSERT_TRUE(knownOf(bulk) == knownOf(single)) << "round " << round;
  }
}

TEST_F(BulkAdd, TakesEvenlySpacedSamplesToo) {
  for (const double step : {1e-3, 0.0, -0.5, 1e305, kNan}) {
    const Input in(random, 20000, 1000);
    bulk.Reset();
    single.Reset();
    bulk.AddUniform(1e6, step, std::span(in.ys).first(9000));
    bulk.AddUniform(2e6, step, std::span(in.ys).subspan(9000));
    for (std::size_t i = 0; i < in.ys.size(); ++i)
      single.Add(i < 9000 ? 1e6 + static_cast<double>(i) * step
                          : 2e6 + static_cast<double>(i - 9000) * step,
                 in.ys[i]);
    ASSERT_TRUE(knownOf(bulk) == knownOf(single)) << step;
  }
}

TEST_F(BulkAdd, TheShorterSpanDecides) {
  const std::vector<double> values{1, 2, 3};
  bulk.Add(values, std::span(values).first(2));
  bulk.Add(std::span(values).first(1), values);
  bulk.Add({}, values);
  EXPECT_EQ(bulk.GetSize(), 3u);
  EXPECT_EQ(bulk.xGet(2), 1);
}

TEST_F(BulkAdd, KeepsWhatCameBeforeAFailedAllocation) {
  const Input in(random, 20000, 0);
  for (const unsigned before : {0u, 8000u}) {
    in.addTo(bulk, 0, before);
    const AllocationFailure noBlock(sizeof(SampleBlock));
    EXPECT_THROW(in.addTo(bulk, before, 20000 - before), std::bad_alloc);
    EXPECT_EQ(bulk.GetSize(), before == 0 ? 0u : 8192u);
    // One by one the same; nothing changes.
    EXPECT_THROW(bulk.Add(1e9, 1e9), std::bad_alloc);
  }
  in.addTo(bulk, 8192, 20000 - 8192);
  for (std::size_t i = 0; i < 20000; ++i)
    single.Add(in.xs[i], in.ys[i]);
  EXPECT_TRUE(knownOf(bulk) == knownOf(single));
}

}  // namespace
}  // namespace sparlow::test
