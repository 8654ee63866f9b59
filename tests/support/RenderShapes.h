#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "tests/support/FoldModel.h"

namespace sparlow::test {

/// A series, an interval of it and the axes that it is rendered on.
struct RenderShape {
  std::vector<Sample> samples;
  std::vector<unsigned> overwritten;  ///< are Set to what they have now, after other values
  GraphAxis axis;
  unsigned from = 0;
  unsigned end = 0;
  unsigned part = 0;  ///< is rendered first, up to this sample; 0 is all of it
};

/// Makes a random shape of up to `most` samples: even and uneven steps of x,
/// equal x, gaps, bursts, x out of order; noise, steps, constants, powers of ten, 0 and less on
/// logarithmic axes; plots of few and of many pixels, far off and turned round.
class RenderShapes {
 public:
  explicit RenderShapes(unsigned seed)
      : next([engine = std::mt19937(seed)]() mutable {
          return static_cast<std::uint32_t>(engine());
        }) {}
  explicit RenderShapes(std::function<std::uint32_t()> numbers) : next(std::move(numbers)) {}

  RenderShape operator()(std::size_t most) {
    RenderShape shape;
    const std::size_t count = 1 + next() % most;
    const unsigned steps = next() % 6, values = next() % 7;
    const double size = std::pow(10.0, static_cast<int>(next() % 13) - 6);
    double x = next() % 2 ? 0.0 : unit() * 1e3 * size, y = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
      x += size * step(steps);
      y = value(values, y);
      shape.samples.push_back({x, y});
    }
    for (unsigned i = next() % 4; i > 0; --i)
      shape.overwritten.push_back(static_cast<unsigned>(next() % count));
    shape.from = next() % 2 ? 0 : static_cast<unsigned>(next() % count);
    shape.end = next() % 2 ? static_cast<unsigned>(count)
                           : shape.from + static_cast<unsigned>(next() % (count - shape.from)) + 1;
    if (next() % 4 == 0)
      shape.part = shape.from + static_cast<unsigned>(next() % (shape.end - shape.from)) + 1;
    setAxis(shape, values);
    return shape;
  }

 private:
  const std::function<std::uint32_t()> next;
  double unit() { return next() / 4294967296.0; }

  double step(unsigned kind) {
    const double u = unit();
    const bool seldom = next() % 200 == 0;
    const double steps[] = {
        1.0,
        u,
        seldom ? 10.0 * u : 0.0,         // equal x in long rows
        seldom ? 1000.0 * u : 1e-3 * u,  // bursts and gaps
        seldom ? -5.0 * u : 1.0,         // out of order
        u < 0.5 ? 1e-15 : 1.0,           // the last digit of a large x
    };
    return steps[kind];
  }

  double value(unsigned kind, double before) {
    const double u = unit();
    const std::uint32_t any = next();
    const double odd[] = {0.0, -1.0, 1e300, -1e300, 5e-324, 1e9 * u};
    const double values[] = {
        before + u - 0.5,
        any % 1000 == 0 ? 1e6 * u : u,
        1.0,
        std::pow(10.0, static_cast<int>(any % 5) - 2),  // on the lines of a logarithmic grid
        std::nextafter(100.0, any % 2 ? 0.0 : 1e9),     // a last digit apart
        any % 100 == 0 ? odd[any / 100 % 6] : 1.0 + u,
        std::exp(10.0 * u),
    };
    return values[kind];
  }

  void setAxis(RenderShape& shape, unsigned values) {
    GraphAxis& axis = shape.axis;
    const auto [low, high] =
        std::minmax_element(shape.samples.begin(), shape.samples.end(),
                            [](const Sample& a, const Sample& b) { return a.y < b.y; });
    const Sample &a = shape.samples[shape.from], &b = shape.samples[shape.end - 1];
    axis.ver.log = values >= 3 ? next() % 3 != 0 : next() % 8 == 0;
    axis.hor.log = next() % 16 == 0;
    const unsigned place = next() % 8;
    if (place == 0)  // zoomed, or turned round
      axis.SetRange(unit(), unit(), a.x + unit() * (b.x - a.x), a.x + unit() * (b.x - a.x));
    else if (place == 1)  // far off
      axis.SetRange(1e12, 1e12 + 1.0, -1e15, -1e15 + 1.0);
    else
      axis.SetRange(axis.ver.log ? std::max(low->y, 1e-3) : low->y, high->y, a.x, b.x);
    axis.hor.SetScale(next() % 4 ? 1 + next() % 10 : 1 + next() % 30000);
    axis.ver.SetScale(1 + next() % 600);
    if (next() % 64 == 0)
      axis.hor.scale = next() % 2 ? 0.0 : -axis.hor.scale;
    if (next() % 64 == 0)
      axis.ver.scale = next() % 2 ? 0.0 : -axis.ver.scale;
  }
};

/// Renders a shape, first up to some sample of it in full and then the rest, and compares what comes
/// out with the plain fold. Empty when it is the same, else what isn't.
inline std::string DifferenceOfRender(ViewData& view, RenderShape shape) {
  view.Reset();
  for (const Sample& s : shape.samples)
    view.Add(s.x, s.y);
  for (const unsigned i : shape.overwritten) {
    const Sample& s = shape.samples[i];
    view.Set(i, s.x, 1e9);
    view.Set(i, s.x, -1e9);
    view.Set(i, s.x, s.y);
  }
  view.SetFrom(shape.from);
  view.ResetViewData();
  FoldModel model;
  for (const unsigned end : {shape.part ? shape.part : shape.end, shape.end}) {
    const bool full = model.columns.empty();
    view.SetTo(end);
    if (!view.Render(&shape.axis, full))
      return "stopped";
    model.render(shape.samples, shape.from, end, shape.axis, full);
  }
  const auto columns = columnsOf(view);
  const auto [wrong, right] =
      std::mismatch(columns.begin(), columns.end(), model.columns.begin(), model.columns.end());
  if (wrong != columns.end() || right != model.columns.end())
    return "column " + std::to_string(wrong - columns.begin()) + " of " +
           std::to_string(columns.size()) + ", should be " + std::to_string(model.columns.size());
  if (view.nextSample != model.nextSample || view.nextColumn != columns.size())
    return "goes on at another sample";
  return view.sparse == model.sparse ? "" : "sparse";
}

}  // namespace sparlow::test
