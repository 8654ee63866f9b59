#include "sparlow/graph/Offset.h"

#include <algorithm>

#include "sparlow/view/ViewData.h"

namespace sparlow {

int Offset::Left(unsigned labelLength, double factor) {
  // A label slot holds 63 characters; more would be a host's own invention.
  const int characters = static_cast<int>(std::min(labelLength, 1000u));
  return ToDevice(std::max(7 * characters, 50) + 8, factor);
}

int TopOffset(const ViewData* series, double factor) {
  const bool interval = series && series->GetxAnalyzeTo() > series->GetxAnalyzeFrom();
  return Offset::Top(factor) + (interval ? Offset::CaptionLine(factor) : 0);
}

}  // namespace sparlow
