#pragma once

#include <cstdint>

namespace sparlow {

/// @file
/// Steps of decimal arithmetic in binary numbers. What differs from a decimal number only by the
/// rounding of its ends counts as that number: nobody who asks for 15 to 16 mV means a span that is
/// a little above a millivolt.

/// The double next to 10 raised to exponent; 0 and infinity beyond what a double holds.
double DecimalPower(int exponent);

/// The largest exponent for which 10 raised to it is not above a positive value.
int DecimalExponent(double value);

/// The smallest whole number of steps that reaches a value.
double StepsUpTo(double value, double step);

/// The step of a linear axis from min to max, whose span is above 0: between 5 and 10 of them, each
/// 1, 0.5, 0.25 or 0.125 times a power of ten.
double LinearStep(double min, double max);

/// A place on the way over the steps of a logarithmic axis, from the lowest upward: the value
/// digit x stepCur + base, which all 9 digits of a decade lead up to the next.
struct LogSteps {
  std::uint32_t digit = 0;
  double stepCur = 0.0;
  double base = 0.0;

  double Value() const { return digit * stepCur + base; }
  /// Returns the value and goes to the next step.
  double Take();
};

/// Which steps of a logarithmic axis have a label.
enum class LogLabels : std::uint8_t {
  all,
  decades,         ///< the first one is that behind the first step
  oneTwoAndFives,  ///< of each decade
};

/// The value of the next step that has a label, from the present one on; goes to the step behind
/// it, among decades only to it.
double TakeLabel(LogSteps& steps, LogLabels which);

/// How a logarithmic axis is walked and labelled. The grid and the labels both begin at first, so
/// that they stand on the same values.
struct LogLayout {
  LogSteps first;
  LogLabels labels = LogLabels::all;
  /// Labelled steps from min to max, both included; 3 stands for more, too.
  unsigned inside = 0;
  /// False when there is nothing to walk on: a step of 0 or ends that are no numbers.
  bool valid = false;
};

/// In steps of a power of ten. Where the first digit would be 0 the walk goes on in steps ten times
/// as large, unless fewer than two labels would then be left on the axis.
LogLayout LayOutLogSteps(double min, double max, double step);

/// The step of a logarithmic axis: the decade of min, or the largest power of ten below it that
/// fits into the span and leaves two labels on the axis.
double LogStep(double min, double max);

}  // namespace sparlow
