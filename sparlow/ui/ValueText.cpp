#include "sparlow/ui/ValueText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "sparlow/axis/EngineeringPrefix.h"
#include "sparlow/platform/base/Text.h"

namespace sparlow {

namespace {

struct Prefix {
  std::string_view text;
  int exponent;
};

// Micro also as the two signs that look like it: that of Latin-1, and the Greek letter.
constexpr std::array<Prefix, 10> prefixes{{{"p", -12},
                                           {"n", -9},
                                           {"u", -6},
                                           {"\xC2\xB5", -6},
                                           {"\xCE\xBC", -6},
                                           {"m", -3},
                                           {"k", 3},
                                           {"M", 6},
                                           {"G", 9},
                                           {"T", 12}}};
constexpr int largestPrefix = 12;

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view spaces = " \t\r\n";
  const std::size_t first = text.find_first_not_of(spaces);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(spaces) - first + 1);
}

/// Digits that mean the value and no other, the point being behind the first one, x 10^exponent.
struct Decimal {
  std::string digits;
  int exponent = 0;
};

Decimal decimalOf(double magnitude, int mostDigits) {
  std::array<char, 40> buffer{};
  char* const first = buffer.data();
  char* const last = first + buffer.size();
  auto end = std::to_chars(first, last, magnitude, std::chars_format::scientific);
  std::string_view text(first, static_cast<std::size_t>(end.ptr - first));
  if (text.find('e') > static_cast<std::size_t>(mostDigits) + 1) {
    end = std::to_chars(first, last, magnitude, std::chars_format::scientific, mostDigits - 1);
    text = {first, static_cast<std::size_t>(end.ptr - first)};
  }
  const std::size_t e = text.find('e');
  Decimal decimal;
  decimal.digits = text.substr(0, 1);
  if (e > 1)
    decimal.digits += text.substr(2, e - 2);
  decimal.digits.resize(std::max<std::size_t>(decimal.digits.find_last_not_of('0') + 1, 1));
  const std::size_t sign = text[e + 1] == '+' ? 1 : 0;
  std::from_chars(text.data() + e + 1 + sign, text.data() + text.size(), decimal.exponent);
  return decimal;
}

std::string numberText(Decimal decimal) {
  constexpr int mostDigits = 15;
  constexpr int mostZeros = 5;
  std::string& digits = decimal.digits;
  const int e = decimal.exponent;
  if (e >= mostDigits || e < -mostZeros) {
    if (digits.size() > 1)
      digits.insert(1, ".");
    return digits + "e" + std::to_string(e);
  }
  if (e < 0)
    return "0." + std::string(static_cast<std::size_t>(-e - 1), '0') + digits;
  const auto whole = static_cast<std::size_t>(e) + 1;
  if (digits.size() <= whole)
    return digits + std::string(whole - digits.size(), '0');
  return digits.insert(whole, ".");
}

/// Exponent of what stands behind a number; nothing when that isn't a prefix, a unit or both.
std::optional<int> exponentOf(std::string_view text, std::string_view unit) {
  if (text.empty() || text == unit)
    return 0;
  for (const Prefix& prefix : prefixes) {
    if (!text.starts_with(prefix.text))
      continue;
    const std::string_view rest = text.substr(prefix.text.size());
    if (rest.empty() || rest == unit)
      return prefix.exponent;
  }
  return std::nullopt;
}

/// The number at the beginning of a text, taken off it; empty when there is none.
std::string_view takeNumber(std::string_view& text) {
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  const std::size_t point = text.substr(sign).starts_with('.') ? 1 : 0;
  // The library's "inf" and "nan" are words here.
  const std::string_view digits = text.substr(sign + point);
  if (digits.empty() || digits[0] < '0' || digits[0] > '9')
    return {};
  double ignored = 0.0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), ignored).ptr;
  const std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.data()));
  text.remove_prefix(number.size());
  return number;
}

/// With a point in place of another sign between two digits, or before the first one.
std::string withPoint(std::string_view text, std::string_view decimalSign) {
  std::string pointed(text);
  const std::size_t at = decimalSign.empty() ? std::string_view::npos : text.find(decimalSign);
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  if (at != std::string_view::npos && text.find_first_not_of("0123456789", sign) == at)
    pointed.replace(at, decimalSign.size(), ".");
  return pointed;
}

std::optional<double> toDouble(std::string_view number) {
  double value = 0.0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec != std::errc())
    return std::nullopt;
  return value;
}

/// The number with another exponent, which is a matter of its text: a product would be rounded
/// twice.
std::optional<double> scaled(std::string_view number, int exponent) {
  const std::size_t e = number.find_first_of("eE");
  if (e != std::string_view::npos) {
    std::string_view own = number.substr(e + 1);
    if (own.starts_with('+'))
      own.remove_prefix(1);
    int ownExponent = 0;
    const auto result = std::from_chars(own.data(), own.data() + own.size(), ownExponent);
    constexpr int beyond = 100000;
    if (result.ec != std::errc() || std::abs(ownExponent) > beyond)
      return std::nullopt;
    exponent += ownExponent;
  }
  return toDouble(std::string(number.substr(0, e)) + "e" + std::to_string(exponent));
}

}  // namespace

std::string ShowValue(double value, const std::string& unit, int digits) {
  if (!std::isfinite(value))
    return FormatText("%g", value);
  int power = FindUnitPower(value, unit.c_str());
  if (std::abs(power) > largestPrefix)
    power = 0;
  Decimal decimal = decimalOf(std::fabs(value), digits);
  if (value != 0.0)
    decimal.exponent += power;
  const std::string number = numberText(std::move(decimal));
  const std::string suffix = PrefixedUnit(power, "") + std::string(trimmed(ToUtf8(unit)));
  return (value < 0.0 ? "-" : "") + number + (suffix.empty() ? "" : " ") + suffix;
}

int DigitsToTell(double end, double other) {
  constexpr double least = 8, most = 17;
  const double digits =
      std::ceil(std::log10(std::max(std::fabs(end), std::fabs(other)) / std::fabs(end - other))) +
      4;
  // Of two ends that are one, or none, all that there are.
  return static_cast<int>(digits <= most ? std::max(digits, least) : most);
}

std::optional<double> ReadValue(std::string_view written, const std::string& unit,
                                std::string_view decimalSign) {
  written = trimmed(written);
  if (written.starts_with('+') && !written.starts_with("+-"))
    written.remove_prefix(1);
  const std::string pointed = withPoint(written, decimalSign);
  std::string_view text = pointed;
  const std::string_view number = takeNumber(text);
  const std::string shownUnit = ToUtf8(unit);
  const auto exponent = exponentOf(trimmed(text), trimmed(shownUnit));
  if (number.empty() || !exponent)
    return std::nullopt;
  return scaled(number, *exponent);
}

}  // namespace sparlow
