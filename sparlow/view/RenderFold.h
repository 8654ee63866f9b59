#pragma once

#include <algorithm>

#include "sparlow/view/ViewData.h"

namespace sparlow {

/// @file
/// What the ways of making columns have in common: sample by sample (ViewRender.cpp), and by runs
/// of samples whose ranges the store keeps (ViewRenderDense.cpp).

/// One entry of the columns.
struct ViewData::Column {
  int x, first, last, min, max;

  void add(int y) {
    last = y;
    min = std::min(min, y);
    max = std::max(max, y);
  }
};

inline void ViewData::putColumn(unsigned i, const Column& column) {
  xPos[i] = column.x;
  yPos[i] = column.first;
  yLastPos[i] = column.last;
  yMinPos[i] = column.min;
  yMaxPos[i] = column.max;
}

/// One pass over samples: where it goes on, and what came of it.
struct ViewData::Fold {
  const SampleReader& samples;
  unsigned sample;  ///< next to fold
  unsigned end;
  unsigned column;    ///< next to fill
  bool full;          ///< from the first sample of the interval, and may be stopped
  bool alone = true;  ///< no sample has shared the column of another
  bool stopped = false;
};

}  // namespace sparlow
