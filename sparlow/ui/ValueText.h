#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sparlow {

/// @file
/// Values as people write them: a number with a decimal point, a prefix, a unit.

/// A value with the prefix that an axis of that unit would show: "12.5 ms" for 0.0125 and "s". It
/// has the digits that give the same value back, and no more, cut at so many. UTF-8.
std::string ShowValue(double value, const std::string& unit, int digits);

/// Digits that distinguish one end of a range from the other to a thousandth of the span: 8 to 17.
int DigitsToTell(double end, double other);

/// The value of a text such as "12.5 ms", "12.5m", "12.5 s" or "1.25e-2": the unit may be left out,
/// and the prefixes p n u µ m k M G T are taken. What reads as the unit is the unit: "5 m" of a
/// length is 5 metres. decimalSign is understood as the point is; neither may group digits. Nothing
/// for any other text, and for a value that a double can't hold.
std::optional<double> ReadValue(std::string_view text, const std::string& unit,
                                std::string_view decimalSign);

}  // namespace sparlow
