#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

#include "sparlow/axis/AxisData.h"

namespace sparlow {
namespace {

constexpr int kSlots = 100;
constexpr int kLinearDigits = 13;
constexpr int kLogDigits = 7;
constexpr std::size_t kAddedZeros = 10;

}  // namespace

void AxisData::SetLabels() {
  ClearLabels();
  maxLabelLength = 0;
  AddTrailingZeros(log ? WriteLogLabels() : WriteLinearLabels());

  // Of a run of equal labels only the first is shown.
  int kept = 0;
  for (int slot = 1; slot < kSlots; ++slot) {
    if (std::strcmp(labels[slot], labels[kept]) == 0)
      labels[slot][0] = '\0';
    else
      kept = slot;
  }
}

void AxisData::ClearLabels() {
  for (char* text : labels)
    text[0] = '\0';
}

// One label beyond max is written too: painters stop by pixel.
int AxisData::WriteLinearLabels() {
  int count = 0;
  for (double value = firstStep; value <= max + step && count < kSlots;
       value = count * step + firstStep) {
    WriteLabel(count, value, kLinearDigits);
    ++count;
  }
  return count;
}

int AxisData::WriteLogLabels() {
  // Whole numbers, but kept in doubles: ratios of a value to the step may be beyond any integer.
  const double stepsPerUnit = 1.0 / step;
  const double first = std::ceil(stepsPerUnit * min);
  const double last = std::ceil(stepsPerUnit * max);
  if (!std::isfinite(first)) {
    decadeLabels = false;
    return 0;
  }
  double digit = std::fmod(first, 10.0);
  double base = (first - digit) * step;
  decadeLabels = last - (first - digit) >= kSlots;

  double decade = step;
  if (digit == 0.0) {
    digit = 1.0;
    decade *= 10.0;
    base -= decade;
  }
  int count = 0;
  double value = 0.0;
  while (max > 0.0 && count < kSlots && (count == 0 || value < max)) {
    if (decadeLabels) {
      decade *= 10.0;
      value = base + decade;
    } else {
      value = digit * decade + base;
      digit += 1.0;
      if (digit == 10.0) {
        decade *= 10.0;
        digit = 1.0;
      }
    }
    WriteLabel(count, value, kLogDigits);
    ++count;
  }
  return count;
}

void AxisData::WriteLabel(int slot, double value, int digits) {
  char* text = labels[slot];
  // Adding 0 turns a negative zero, which ceil gives for an axis that begins just below 0, into 0.
  const double shown = TimesPowerOfTen(value, power) + 0.0;
  // Not printf: its decimal point follows the locale that the host has chosen.
  const std::to_chars_result end = std::to_chars(text, text + std::size(labels[slot]) - 1, shown,
                                                 std::chars_format::general, digits);
  *end.ptr = '\0';
  maxLabelLength = std::max(maxLabelLength, static_cast<std::uint32_t>(end.ptr - text));
}

void AxisData::AddTrailingZeros(int count) {
  for (int slot = 0; slot < std::min(count, kSlots); ++slot) {
    const std::string_view label = labels[slot];
    if (label == "0")
      continue;
    // The zeros are decimals: they go before an exponent, behind which they would change the value.
    const std::size_t mantissaEnd = std::min(label.find('e'), label.size());
    const std::string exponent(label.substr(mantissaEnd));
    std::string text(label.substr(0, mantissaEnd));
    if (text.find('.') == std::string::npos) {
      if (label.size() + 1 >= maxLabelLength)
        continue;
      text += '.';
    }
    const std::size_t length = std::max<std::size_t>(maxLabelLength, label.size());
    const std::size_t room = length - std::min(length, text.size() + exponent.size());
    text.append(std::min(room, kAddedZeros), '0').append(exponent);
    text.resize(std::min(text.size(), std::size(labels[slot]) - 1));
    std::strcpy(labels[slot], text.c_str());
  }
}

const char* AxisData::GetStr(int slot) const {
  return slot >= 0 && slot < kSlots ? labels[slot] : nullptr;
}

}  // namespace sparlow
