#pragma once

#include <algorithm>
#include <vector>

#include "sparlow/axis/GraphAxis.h"
#include "sparlow/view/ViewData.h"

namespace sparlow::bench {

/// The yardstick of every render: one pass over the samples of an interval, each mapped and put into
/// its column, with nothing else to do. No call is virtual, no lock is taken, nobody can stop it.
class PlainFold {
 public:
  void Run(const SampleReader& samples, unsigned from, unsigned end, const GraphAxis& axis) {
    if (axis.ver.log)
      fold(samples, from, end, axis.hor.HorLinear(), axis.ver.VerLog());
    else
      fold(samples, from, end, axis.hor.HorLinear(), axis.ver.VerLinear());
  }

  /// A render has made the same columns, int by int.
  bool Equals(const ViewData& view) const {
    if (view.nColumns != count_)
      return false;
    for (unsigned i = 0; i < count_; ++i) {
      const Column& c = columns_[i];
      if (view.xPos[i] != c.x || view.yPos[i] != c.first || view.yLastPos[i] != c.last ||
          view.yMinPos[i] != c.min || view.yMaxPos[i] != c.max)
        return false;
    }
    return true;
  }

 private:
  struct Column {
    int x, first, last, min, max;
  };

  template <class Hor, class Ver>
  void fold(const SampleReader& samples, unsigned from, unsigned end, const Hor& hor,
            const Ver& ver) {
    Column* out = columns_.data();
    Column* const last = out + ViewColumns::kMaxColumns - 1;
    const auto begin = [&](double xValue, double yValue) {
      const int y = ver(yValue);
      return Column{hor(xValue), y, y, y, y};
    };
    const SampleBlock* block = &samples.block(from >> SampleBlock::kShift);
    Column work = begin(block->x[from & SampleBlock::kMask], block->y[from & SampleBlock::kMask]);
    for (unsigned sample = from + 1; sample < end && out != last;) {
      block = &samples.block(sample >> SampleBlock::kShift);
      const double* const xs = block->x;
      const double* const ys = block->y;
      unsigned place = sample & SampleBlock::kMask;
      const unsigned stop = std::min(SampleBlock::kSamples, place + (end - sample));
      sample += stop - place;
      for (; place < stop; ++place) {
        const int x = hor(xs[place]), y = ver(ys[place]);
        if (x != work.x) {
          *out++ = work;
          work = {x, y, y, y, y};
          if (out == last)
            break;
          continue;
        }
        work.last = y;
        work.min = std::min(work.min, y);
        work.max = std::max(work.max, y);
      }
    }
    *out++ = work;
    count_ = static_cast<unsigned>(out - columns_.data());
  }

  std::vector<Column> columns_ = std::vector<Column>(ViewColumns::kMaxColumns);
  unsigned count_ = 0;
};

}  // namespace sparlow::bench
