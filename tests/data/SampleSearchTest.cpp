#include "sparlow/data/SampleSearch.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

/// What a search through the blocks is to find, by asking each in turn.
int findInTurn(const SampleReader& samples, unsigned& b, unsigned last, double value,
               bool roundUp) {
  for (unsigned block = b; block <= last; ++block) {
    const int place = FindSample(samples.block(block), 0, samples.countIn(block), value, roundUp);
    if (place < 0)
      continue;
    b = block;
    return static_cast<int>(block << SampleBlock::kShift) + place;
  }
  return -1;
}

unsigned blockInTurn(const SampleReader& samples, unsigned last, double value) {
  unsigned b = 0;
  while (b < last &&
         (value < samples.block(b).xAt(0) || value > samples.block(b).xAt(samples.countIn(b) - 1)))
    ++b;
  return b;
}

class SampleSearch : public testing::Test {
 protected:
  /// Equal x, gaps and steps within the tolerance, all of them across the ends of blocks too.
  void fill(unsigned size, bool ascending) {
    s.Reset();
    double x = 0.0;
    for (unsigned i = 0; i < size; ++i) {
      const double steps[] = {0.0, 4e-16, 1.0, 0.25};
      x += steps[random() % 4];
      if (random() % 5000 == 0 || (i % SampleBlock::kSamples == 0 && random() % 2))
        x += static_cast<double>(random() % 3) * 10.0;
      if (!ascending && random() % 3000 == 0)
        x -= 20.0;
      s.Add(x, 0);
    }
  }
  double someX(const SampleReader& samples) {
    const unsigned b = static_cast<unsigned>(random()) % samples.blockCount();
    const unsigned first = b << SampleBlock::kShift;
    const unsigned near[] = {first, first + samples.countIn(b) - 1,
                             first + static_cast<unsigned>(random()) % samples.countIn(b)};
    const double off[] = {0.0, 6e-16, -6e-16, 3e-15, -3e-15, 0.1, -0.1, 5.0, -5.0, 1e9, -1e9};
    return samples.x(near[random() % 3]) + off[random() % 11];
  }

  std::mt19937 random{17};
  Series s;
};

TEST_F(SampleSearch, FindsWhatEachBlockInTurnWouldFind) {
  for (int round = 0; round < 40; ++round) {
    const unsigned sizes[] = {1, 2, 8192, 8193, 3 * 8192 + 1, 50000};
    fill(sizes[round % 6], round % 4 != 0);
    const SampleReader samples = s.Read();
    for (int i = 0; i < 500; ++i) {
      const double x = someX(samples);
      const unsigned last = static_cast<unsigned>(random()) % samples.blockCount();
      const unsigned from = static_cast<unsigned>(random()) % (last + 2);
      unsigned b = from, expected = from;
      const bool up = i % 2;
      const int sample = findInTurn(samples, expected, last, x, up);
      ASSERT_EQ(FindSampleInBlocks(samples, b, last, x, up), sample)
          << "round " << round << ", " << x;
      if (sample >= 0) {
        ASSERT_EQ(b, expected);
      }
      ASSERT_EQ(BlockAround(samples, last, x), blockInTurn(samples, last, x)) << x;
    }
  }
}

}  // namespace
}  // namespace sparlow::test
