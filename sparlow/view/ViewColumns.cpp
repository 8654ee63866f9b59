#include "sparlow/view/ViewColumns.h"

#include <algorithm>
#include <iterator>

namespace sparlow {

void ViewColumns::clear() {
  nColumns = 0;
  madeFor_ = {};
  for (int* zeroed : {xPos, yPos, yLastPos})
    std::fill_n(zeroed, kMaxColumns, 0);
  for (int* unset : {yMinPos, yMaxPos})
    std::fill_n(unset, kMaxColumns, -1);
}

}  // namespace sparlow
