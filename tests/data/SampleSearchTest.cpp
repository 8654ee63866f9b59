#include "sparlow/data/SampleSearch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

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

// Told by the neighbours of what is found, so that any of several samples at one x will do.
TEST_F(SampleSearch, FindsTheSampleAtAValueOrBesideIt) {
  for (int round = 0; round < 40; ++round) {
    const unsigned sizes[] = {1, 2, 8192, 8193, 3 * 8192 + 1, 50000};
    fill(sizes[round % 6], true);
    const SampleReader samples = s.Read();
    const auto end = static_cast<int>(samples.size());
    const auto x = [&](int sample) { return samples.x(static_cast<unsigned>(sample)); };
    for (int i = 0; i < 500; ++i) {
      const double value = someX(samples);
      const bool up = i % 2;
      SCOPED_TRACE(testing::Message() << "round " << round << ", " << value << " up " << up);
      const int found = FindSampleInBlocks(samples, value, up);
      if (found < 0) {
        ASSERT_TRUE(value > x(end - 1) || (!up && value < x(0)));
        continue;
      }
      if (std::fabs(x(found) - value) < kSearchTolerance)
        continue;
      const int below = up ? found - 1 : found;
      ASSERT_TRUE(below < 0 || x(below) < value);
      ASSERT_TRUE(below + 1 == end || x(below + 1) > value);
    }
  }
}

}  // namespace
}  // namespace sparlow::test
