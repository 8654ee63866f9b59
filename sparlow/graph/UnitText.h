#pragma once

#include <string>
#include <string_view>

namespace sparlow {

/// @file
/// Unit texts of derived quantities, by text alone.

/// The unit of a quotient: "V/s" for "V" and "s", "Hz" for "" and "s", "" for two that are equal.
std::string RatioUnit(std::string_view numerator, std::string_view denominator);

/// The unit of a reciprocal: "Hz" for "s", "s" for "Hz", else "1/V" for "V" and "" for "".
std::string ReciprocalUnit(std::string_view unit);

}  // namespace sparlow
