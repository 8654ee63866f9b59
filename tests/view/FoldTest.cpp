#include <gtest/gtest.h>

#include <random>

#include "tests/view/View.h"

namespace sparlow::test {
namespace {

struct Random {
  explicit Random(unsigned seed) : engine(seed) {}
  unsigned operator()() { return static_cast<unsigned>(engine()); }
  std::mt19937 engine;
};

struct Derived : ViewData {};

std::vector<Sample> randomSamples(Random& random, std::size_t count) {
  std::uniform_real_distribution<double> unit(0, 1);
  const unsigned shape = random() % 5;
  std::vector<Sample> samples;
  double x = shape == 4 ? 1e-3 : -5;
  double y = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (shape != 3 || random() % 50 == 0)  // 3: long stretches of equal x
      x += unit(random.engine) * (shape == 4 ? x * 0.01 : 1);
    if (shape == 1 && random() % 100 == 0)
      x -= 20 * unit(random.engine);  // out of order
    y += unit(random.engine) - 0.5;
    const unsigned odd = random() % 200;
    const double odds[] = {0, -1e300, 1e4 * unit(random.engine)};
    samples.push_back({x, odd < 3 ? odds[odd] : y});
  }
  return samples;
}

GraphAxis randomAxis(Random& random, const std::vector<Sample>& samples) {
  GraphAxis axis;
  axis.hor.log = random() % 3 == 0;
  axis.ver.log = random() % 3 == 0;
  const Sample &a = samples[random() % samples.size()], &b = samples[random() % samples.size()];
  axis.SetRange(-10, 10 + a.y, a.x, b.x);
  // Pixels as wide as many samples, and the other way round.
  axis.hor.SetScale(random() % 2 ? 1 + random() % 900 : 40000);
  axis.ver.SetScale(1 + random() % 600);
  return axis;
}

TEST(Fold, GivesWhatThePlainOneGivesOverManyShapes) {
  Random random(2101);
  Live<ViewData> own;
  Live<Derived> derived;
  for (unsigned round = 0; round < 120; ++round) {
    SCOPED_TRACE(round);
    const std::vector<Sample> samples = randomSamples(random, 2 + random() % 20000);
    const GraphAxis axis = randomAxis(random, samples);
    GraphAxis handed = axis;
    const auto from = static_cast<unsigned>(random() % samples.size());
    for (ViewData* view : {static_cast<ViewData*>(&own), static_cast<ViewData*>(&derived)}) {
      // The first part in one go, the rest as it comes in.
      Random pieces(round);
      std::size_t added = 0;
      FoldModel model;
      view->InitDataTransfer(false);
      view->InitBlockTransfer();
      view->SetFrom(from);
      for (bool full = true; added < samples.size(); full = false) {
        const std::size_t until =
            std::min(samples.size(), std::max<std::size_t>(from + 1, added) + pieces() % 9000);
        for (; added < until; ++added)
          view->Add(samples[added].x, samples[added].y);
        model.render(samples, from, added, axis, full);
        ASSERT_TRUE(full || view->CanContinueRender(axis));
        ASSERT_TRUE(view->Render(&handed, full));
        ASSERT_EQ(columnsOf(*view), model.columns);
        ASSERT_EQ(view->nextSample, model.nextSample);
        ASSERT_EQ(view->nextColumn, model.columns.size());
        ASSERT_EQ(view->sparse, model.sparse);
      }
    }
  }
}

// Classes that map samples in their own way, and count how often they are asked.
struct OwnX : Live<ViewData> {
  int xPosGet(unsigned sample, const GraphAxis* axis) const override {
    ++asked;
    return ViewData::xPosGet(sample, axis) / 3;
  }
  mutable unsigned asked = 0;
};
struct OwnXBelow : OwnX {};
struct OwnBoth : OwnX {
  int yPosGet(unsigned sample, const GraphAxis* axis) const override {
    ++asked;
    return ViewData::yPosGet(sample, axis) + 7;
  }
};
struct InRows : OwnBoth {
  void PosGet(unsigned first, unsigned count, const GraphAxis*, int* xs, int* ys) const override {
    for (unsigned i = 0; i < count; ++i) {
      xs[i] = static_cast<int>(first + i) / 3;
      ys[i] = 7;
    }
  }
};
struct KeepsAll : Live<ViewData> {};

TEST(Fold, AsksAClassForWhatItOverridesAndForNothingElse) {
  const auto expect = [](auto&& view, unsigned columns, unsigned asked, int y) {
    GraphAxis axis = unitAxis();
    for (int i = 0; i < 90000; ++i)
      view.Add(i * 0.1, 0);
    view.ResetInterval(nullptr);
    view.Render(&axis, true);
    EXPECT_EQ(view.nColumns, columns);
    EXPECT_EQ(view.yMaxPos[columns - 1], y);
    if constexpr (requires { view.asked; }) {
      EXPECT_EQ(view.asked, asked);
    }
    EXPECT_EQ(view.MapsByAxes(), columns == 9000u);
  };
  expect(KeepsAll(), 9000, 0, 0);
  expect(OwnX(), 3000, 90000, 0);
  expect(OwnXBelow(), 3000, 90000, 0);
  expect(OwnBoth(), 3000, 180000, 7);
  expect(InRows(), 16384, 0, 7);
}

TEST(Fold, TellsTheExactRangeOnShowOfAClassWithoutBoundsOfItsOwn) {
  struct OwnBounds : Live<ViewData> {
    void SetIntervalParams() override {
      ViewData::SetIntervalParams();
      yIntervalMax = 55;
    }
  } ownBounds;
  KeepsAll keepsAll;
  OwnBoth ownMapping;
  for (const auto& [view, yMax] :
       {std::pair<ViewData*, double>{&keepsAll, 9}, {&ownBounds, 55}, {&ownMapping, 1}}) {
    // The highest block has its peak outside, and so hides the one inside.
    for (int i = 0; i < 20000; ++i)
      view->Add(i, i == 10 ? 99 : i == 50 ? 1 : i == 9000 ? 9 : 0);
    view->SetFrom(20);
    view->SetTo(10000);
    view->SetIntervalParams();
    EXPECT_EQ(view->GetBoundsOnShow().yMax, yMax);
    EXPECT_EQ(view->GetBoundsOnShow().xMax, 9999);
  }
}

}  // namespace
}  // namespace sparlow::test
