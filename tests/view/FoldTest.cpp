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

struct Undeclared : ViewData {};

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
  Live<Undeclared> declared;
  Undeclared undeclared;
  undeclared.Init("undeclared");
  for (unsigned round = 0; round < 120; ++round) {
    SCOPED_TRACE(round);
    const std::vector<Sample> samples = randomSamples(random, 2 + random() % 20000);
    const GraphAxis axis = randomAxis(random, samples);
    GraphAxis handed = axis;
    const auto from = static_cast<unsigned>(random() % samples.size());
    for (ViewData* view : {static_cast<ViewData*>(&own), static_cast<ViewData*>(&declared),
                           static_cast<ViewData*>(&undeclared)}) {
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
  undeclared.Term();
}

TEST(Fold, LeavesADerivedClassItsOwnMapping) {
  // Declared further up, but with a way of its own.
  struct : Live<ViewData> {
    int xPosGet(unsigned sample, const GraphAxis* axis) const override {
      return ViewData::xPosGet(sample, axis) / 3;
    }
  } view;
  GraphAxis axis = unitAxis();
  for (int i = 0; i < 9000; ++i)
    view.Add(i, 0);
  view.ResetInterval(nullptr);
  view.Render(&axis, true);
  EXPECT_EQ(view.nColumns, 3000u);
  EXPECT_EQ(view.xPos[2999], 2999);
}

}  // namespace
}  // namespace sparlow::test
