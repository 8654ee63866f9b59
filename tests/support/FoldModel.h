#pragma once

#include <algorithm>
#include <vector>

#include "sparlow/view/ViewData.h"

namespace sparlow::test {

struct Sample {
  double x;
  double y;
};

/// What a render has to give, worked out in the plainest way: each sample is mapped by the axis and
/// put into a column of its own, which is merged into its left neighbour when both have the same x.
struct FoldModel {
  struct Column {
    int x, y, yLast, yMin, yMax;
    friend bool operator==(const Column&, const Column&) = default;
  };
  static constexpr std::size_t kMost = 16384;

  std::vector<Column> columns;
  std::size_t nextSample = 0;
  bool sparse = false;

  /// Samples from..end of the series; goes on at nextSample unless full is true.
  void render(const std::vector<Sample>& samples, std::size_t from, std::size_t end,
              const GraphAxis& axis, bool full) {
    bool alone = true;
    if (full) {
      columns = {column(samples[from], axis)};
      nextSample = from + 1;
    }
    for (; nextSample < end && columns.size() < kMost; ++nextSample) {
      const Column c = column(samples[nextSample], axis);
      Column& left = columns.back();
      if (c.x != left.x) {
        columns.push_back(c);
        continue;
      }
      left.yLast = c.y;
      left.yMin = std::min(left.yMin, c.y);
      left.yMax = std::max(left.yMax, c.y);
      alone = false;
    }
    if (full)
      sparse = alone;
  }

 private:
  static Column column(const Sample& s, const GraphAxis& axis) {
    const int y = axis.ver.GetPosInv(s.y);
    return {axis.hor.GetPos(s.x), y, y, y, y};
  }
};

/// What a render gave.
inline std::vector<FoldModel::Column> columnsOf(const ViewData& view) {
  std::vector<FoldModel::Column> columns;
  for (unsigned i = 0; i < view.nColumns; ++i)
    columns.push_back(
        {view.xPos[i], view.yPos[i], view.yLastPos[i], view.yMinPos[i], view.yMaxPos[i]});
  return columns;
}

}  // namespace sparlow::test
