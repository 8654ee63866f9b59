#include "sparlow/graph/UnitText.h"

namespace sparlow {

std::string RatioUnit(std::string_view numerator, std::string_view denominator) {
  if (numerator.empty())
    return ReciprocalUnit(denominator);
  if (numerator == denominator)
    return {};
  std::string ratio(numerator);
  if (!denominator.empty())
    ratio.append("/").append(denominator);
  return ratio;
}

std::string ReciprocalUnit(std::string_view unit) {
  if (unit.empty())
    return {};
  if (unit == "s")
    return "Hz";
  if (unit == "Hz")
    return "s";
  return std::string("1/").append(unit);
}

}  // namespace sparlow
