#include <climits>

#include "tests/view/View.h"

namespace sparlow::test {
namespace {

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
  InRows() { UsePosGet(typeid(InRows)); }
  void PosGet(unsigned first, unsigned count, const GraphAxis*, int* xs, int* ys) const override {
    for (unsigned i = 0; i < count; ++i) {
      xs[i] = static_cast<int>(first + i) / 3;
      ys[i] = INT_MIN;
    }
  }
};
struct BelowRows : InRows {};
struct KeepsAll : Live<ViewData> {};
struct Far : Live<ViewData> {
  int xPosGet(unsigned, const GraphAxis*) const override { return INT_MAX; }
  int yPosGet(unsigned, const GraphAxis*) const override { return INT_MIN; }
};

// And far pixels leave room for a pen.
TEST(Fold, AsksAClassForWhatItOverridesAndForNothingElse) {
  const auto expect = [](auto&& view, unsigned columns, unsigned asked, CPoint last) {
    GraphAxis axis = unitAxis();
    for (int i = 0; i < 90000; ++i)
      view.Add(i * 0.1, i * -0.1);
    view.ResetInterval(nullptr);
    view.Render(&axis, true);
    EXPECT_EQ(view.nColumns, columns);
    EXPECT_EQ((CPoint{view.xPos[columns - 1], view.yMaxPos[columns - 1]}), last);
    if constexpr (requires { view.asked; }) {
      EXPECT_EQ(view.asked, asked);
    }
    EXPECT_EQ(view.MapsByAxes(), columns == 9000u);
  };
  expect(KeepsAll(), 9000, 0, {8999, 8999});
  expect(OwnXBelow(), 3000, 90000, {2999, 8999});
  expect(OwnBoth(), 3000, 180000, {2999, 9006});
  expect(InRows(), 16384, 0, {16383, -kFarPixel});
  expect(BelowRows(), 3000, 180000, {2999, 9006});
  expect(Far(), 1, 0, {kFarPixel, -kFarPixel});
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
