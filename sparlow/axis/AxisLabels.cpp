#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

#include "sparlow/axis/AxisData.h"
#include "sparlow/axis/DecimalSteps.h"

namespace sparlow {
namespace {

constexpr int kSlots = 100;
constexpr int kLinearDigits = 13;
constexpr int kLogDigits[] = {7, 13, 15, 17};
/// How far from its value a label may read, as a share of the step.
constexpr double kMostOff = 0.1;
constexpr std::size_t kAddedZeros = 10;
/// Rounding brings no step beyond an end, nor before it.
constexpr double kStepsError = 1e-9;

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
  const double last = max + step * (1 + kStepsError);
  for (double value = firstStep; value <= last && std::isfinite(value) && count < kSlots;
       value = count * step + firstStep) {
    WriteLabel(count, value, step, kLinearDigits);
    ++count;
  }
  return count;
}

int AxisData::WriteLogLabels() {
  const LogLayout layout = LayOutLogSteps(min, max, step);
  decadeLabels = layout.labels != LogLabels::all;
  twoAndFiveLabels = layout.labels == LogLabels::oneTwoAndFives;
  if (!layout.valid)
    return 0;
  int count = 0;
  LogSteps steps = layout.first;
  for (bool ended = false; count < kSlots && !ended; ++count) {
    const double distance = steps.stepCur;
    const double value = TakeLabel(steps, layout.labels);
    // The one that reaches or passes max stays.
    ended = value >= max - kStepsError * distance;
    if (!std::isfinite(value))
      break;
    // A narrow axis takes more of them, so that it can be read at all.
    for (const int digits : kLogDigits) {
      if (WriteLabel(count, value, distance, digits))
        break;
    }
  }
  return count;
}

bool AxisData::WriteLabel(int slot, double value, double distance, int digits) {
  char* text = labels[slot];
  // Adding 0 turns a negative zero, which ceil gives for an axis that begins just below 0, into 0.
  const double shown = TimesPowerOfTen(value, power) + 0.0;
  // Not printf: its decimal point follows the locale that the host has chosen.
  const std::to_chars_result end = std::to_chars(text, text + std::size(labels[slot]) - 1, shown,
                                                 std::chars_format::general, digits);
  *end.ptr = '\0';
  double read = 0.0;
  std::from_chars(text, end.ptr, read);
  const double rounding = std::numeric_limits<double>::epsilon() * std::fabs(shown);
  if (!(std::fabs(read - shown) <= kMostOff * TimesPowerOfTen(distance, power) + rounding)) {
    *text = '\0';
    return false;
  }
  maxLabelLength = std::max(maxLabelLength, static_cast<std::uint32_t>(end.ptr - text));
  return true;
}

void AxisData::AddTrailingZeros(int count) {
  for (int slot = 0; slot < std::min(count, kSlots); ++slot) {
    const std::string_view label = labels[slot];
    if (label.empty() || label == "0")
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
