#include "sparlow/axis/DecimalSteps.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace sparlow {

namespace {

constexpr double kUlp = std::numeric_limits<double>::epsilon();
/// What a quotient of two rounded numbers is off by at most, with some to spare.
constexpr double kQuotientError = 4 * kUlp;
/// The same of a span whose ends may have got a margin, in the size of the ends.
constexpr double kSpanError = 8 * kUlp;
/// But not so much of a span that steps are chosen by chance.
constexpr double kMostSpanError = 1e-3;

constexpr double kLeastSteps = 5.0;
constexpr double kLogHeadroom = 1.05;
/// From so many steps on a logarithmic axis has labels at its decades only.
constexpr double kMostLabels = 100.0;
constexpr unsigned kFewDecades = 3;
constexpr unsigned kLeastLabels = 2;

LogSteps firstStep(double whole, double step, bool tenfold) {
  const double digit = std::fmod(whole, 10.0);
  LogSteps first{static_cast<std::uint32_t>(digit), step, (whole - digit) * step};
  if (first.digit == 0 && tenfold) {
    first.digit = 1;
    first.stepCur *= 10.0;
    first.base -= first.stepCur;
  }
  return first;
}

/// Counts no further than kFewDecades.
unsigned labelsUpTo(double max, LogSteps steps, LogLabels which) {
  unsigned count = 0;
  while (count < kFewDecades && TakeLabel(steps, which) <= max * (1 + kQuotientError))
    ++count;
  return count;
}

}  // namespace

double DecimalPower(int exponent) {
  const std::string text = "1e" + std::to_string(exponent);
  double power = exponent < 0 ? 0.0 : std::numeric_limits<double>::infinity();
  std::from_chars(text.data(), text.data() + text.size(), power);
  return power;
}

int DecimalExponent(double value) {
  int exponent = static_cast<int>(std::floor(std::log10(value)));
  if (DecimalPower(exponent) > value)
    --exponent;
  if (DecimalPower(exponent + 1) <= value)
    ++exponent;
  return exponent;
}

double StepsUpTo(double value, double step) {
  const double steps = value / step;
  const double whole = std::nearbyint(steps);
  return std::fabs(steps - whole) <= kQuotientError * std::fabs(whole) ? whole : std::ceil(steps);
}

double LinearStep(double min, double max) {
  const double span = max - min;
  const double error =
      std::min(kSpanError * std::max(std::fabs(min), std::fabs(max)), kMostSpanError * span);
  const double least = span - error, most = span / kLeastSteps + error;
  if (!(least > 0.0) || !std::isfinite(least))
    return 0.0;
  // The power of ten below the span; of a span that is one, the next below it.
  int exponent = DecimalExponent(least);
  if (DecimalPower(exponent) == least)
    --exponent;
  double step = DecimalPower(exponent);
  while (step > most)
    step *= 0.5;
  return step;
}

double LogSteps::Take() {
  const double value = Value();
  if (++digit == 10) {
    stepCur *= 10.0;
    digit = 1;
  }
  return value;
}

double TakeLabel(LogSteps& steps, LogLabels which) {
  if (which == LogLabels::decades) {
    steps.stepCur *= 10.0;
    steps.digit = 1;
    return steps.Value();
  }
  for (;;) {
    const std::uint32_t digit = steps.digit;
    const double value = steps.Take();
    if (which == LogLabels::all || digit == 1 || digit == 2 || digit == 5)
      return value;
  }
}

LogLayout LayOutLogSteps(double min, double max, double step) {
  LogLayout layout;
  const double whole = StepsUpTo(min, step);
  // Whole numbers, but kept in doubles: ratios of a value to the step may be beyond any integer.
  if (!std::isfinite(whole) || !(min > 0.0) || !(max > 0.0) || !(step > 0.0))
    return layout;
  layout.valid = true;
  layout.first = firstStep(whole, step, true);
  if (StepsUpTo(max, step) - (whole - std::fmod(whole, 10.0)) >= kMostLabels)
    layout.labels = LogLabels::decades;
  layout.inside = labelsUpTo(max, layout.first, layout.labels);
  if (layout.labels == LogLabels::decades && layout.inside < kFewDecades)
    layout.labels = LogLabels::oneTwoAndFives;
  if (layout.labels == LogLabels::all && layout.inside < kLeastLabels)
    layout.first = firstStep(whole, step, false);
  layout.inside = labelsUpTo(max, layout.first, layout.labels);
  return layout;
}

double LogStep(double min, double max) {
  const double span = max - min;
  int exponent = DecimalExponent(min * (1 + kQuotientError));
  while (DecimalPower(exponent) * kLogHeadroom > span)
    --exponent;
  if (LayOutLogSteps(min, max, DecimalPower(exponent)).inside < kLeastLabels)
    --exponent;
  return DecimalPower(exponent);
}

}  // namespace sparlow
