#include "sparlow/axis/EngineeringPrefix.h"

#include <cmath>
#include <cstring>
#include <string_view>

namespace sparlow {
namespace {

unsigned char Byte(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

// Length of the UTF-8 sequence that a byte begins, 1 if it begins none.
std::size_t SequenceLength(unsigned char byte) {
  if (byte >= 0xF0)
    return 4;
  if (byte >= 0xE0)
    return 3;
  return byte >= 0xC0 ? 2 : 1;
}

// How much of a text fits into limit bytes. Units in Latin-1 occur too, so stray continuation bytes
// are ordinary characters.
std::size_t FittingLength(std::string_view text, std::size_t limit) {
  if (text.size() <= limit)
    return text.size();
  if (!IsContinuation(Byte(text, limit)))
    return limit;
  for (std::size_t back = 1; back <= 3 && back <= limit; ++back) {
    const unsigned char byte = Byte(text, limit - back);
    if (!IsContinuation(byte))
      return SequenceLength(byte) > back ? limit - back : limit;
  }
  return limit;
}

std::string_view TextOrEmpty(const char* text) {
  return text ? std::string_view(text) : std::string_view();
}

bool BeginsWithDegree(std::string_view unit) {
  return Byte(unit, 0) == 0xB0 || (Byte(unit, 0) == 0xC2 && Byte(unit, 1) == 0xB0);
}

std::string Prefix(int power) {
  switch (power) {
    case -12:
      return "T";
    case -9:
      return "G";
    case -6:
      return "M";
    case -3:
      return "k";
    case 0:
      return "";
    case 3:
      return "m";
    case 6:
      return "u";
    case 9:
      return "n";
    case 12:
      return "p";
    default:
      return "e" + std::to_string(-static_cast<long long>(power));
  }
}

}  // namespace

double PowerOfTen(int power) {
  double result = 1.0;
  double square = 10.0;
  for (unsigned rest = power < 0 ? 0u - static_cast<unsigned>(power) : static_cast<unsigned>(power);
       rest != 0; rest >>= 1) {
    if (rest & 1u)
      result *= square;
    square *= square;
  }
  return power < 0 ? 1.0 / result : result;
}

double TimesPowerOfTen(double value, int power) {
  // Values below 1e-308 need a larger factor than a double holds; a part of it comes first.
  constexpr int kLargest = 300;
  if (power > kLargest)
    return value * PowerOfTen(kLargest) * PowerOfTen(power - kLargest);
  return value * PowerOfTen(power);
}

int FindPower(double value) {
  double magnitude = std::fabs(value);
  int power = 0;
  if (!std::isfinite(magnitude) || magnitude == 0.0)
    return power;
  while (magnitude < 1.0) {
    magnitude *= 1000.0;
    power += 3;
  }
  while (magnitude >= 1000.0) {
    magnitude *= 0.001;
    power -= 3;
  }
  return power;
}

int FindUnitPower(double value, const char* unit) {
  const std::string_view text = TextOrEmpty(unit);
  if (text.empty() || text.front() == '%' || BeginsWithDegree(text))
    return 0;
  const int power = FindPower(value);
  // Nobody reads kiloseconds.
  return text.front() == 's' && power < 0 ? 0 : power;
}

std::string PrefixedUnit(int power, const char* unit) {
  std::string text = Prefix(power);
  text += TextOrEmpty(unit);
  text.resize(FittingLength(text, kUnitChars - 1));
  return text;
}

void FormatUnitValue(double& value, char* text, const char* unit) {
  const int power = FindUnitPower(value, unit);
  value = TimesPowerOfTen(value, power);
  if (text)
    CopyUnitText(text, PrefixedUnit(power, unit).c_str());
}

void CopyUnitText(char* buffer, const char* text) {
  const std::string_view source = TextOrEmpty(text);
  const std::size_t length = FittingLength(source, kUnitChars - 1);
  if (length != 0)
    std::memmove(buffer, source.data(), length);
  buffer[length] = '\0';
}

}  // namespace sparlow
