#pragma once

#include <algorithm>
#include <utility>
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
    int xs[kBatch], ys[kBatch];
    bool first = true;
    Column work{};
    for (unsigned sample = from; sample < end && out != last;) {
      const SampleBlock& block = samples.block(sample >> SampleBlock::kShift);
      const unsigned place = sample & SampleBlock::kMask;
      const unsigned count = std::min({kBatch, SampleBlock::kSamples - place, end - sample});
      hor.Map([from = block.x + place](unsigned i) { return from[i]; }, count, xs);
      ver.Map([from = block.y + place](unsigned i) { return from[i]; }, count, ys);
      unsigned i = 0;
      if (std::exchange(first, false)) {
        work = {xs[0], ys[0], ys[0], ys[0], ys[0]};
        i = 1;
      }
      for (; i < count; ++i) {
        const int y = ys[i];
        if (xs[i] != work.x) {
          *out++ = work;
          work = {xs[i], y, y, y, y};
          if (out == last)
            break;
          continue;
        }
        work.last = y;
        work.min = std::min(work.min, y);
        work.max = std::max(work.max, y);
      }
      sample += count;
    }
    *out++ = work;
    count_ = static_cast<unsigned>(out - columns_.data());
  }

  static constexpr unsigned kBatch = 64;

  std::vector<Column> columns_ = std::vector<Column>(ViewColumns::kMaxColumns);
  unsigned count_ = 0;
};

}  // namespace sparlow::bench
