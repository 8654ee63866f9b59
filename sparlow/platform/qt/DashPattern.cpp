#include "sparlow/platform/qt/DashPattern.h"

#include <numeric>

namespace sparlow::qt {

DashPattern::DashPattern(int style) {
  switch (style) {
    case PS_DASH:
      lengths_ = {18, 6};
      count_ = 2;
      break;
    case PS_DOT:
      lengths_ = {3, 3};
      count_ = 2;
      break;
    case PS_DASHDOT:
      lengths_ = {9, 6, 3, 6};
      count_ = 4;
      break;
    case PS_DASHDOTDOT:
      lengths_ = {9, 3, 3, 3, 3, 3};
      count_ = 6;
      break;
    default:
      break;
  }
}

int DashPattern::period() const {
  return std::accumulate(lengths_.begin(), lengths_.end(), 0);
}

}  // namespace sparlow::qt
