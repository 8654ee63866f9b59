#include "examples/host/Analyses.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace sparlow::host {

namespace {

/// Mean of y, by differences to the first one: an offset of many digits costs none.
double meanOf(const SampleReader& samples, unsigned from, unsigned end) {
  const double first = samples.y(from);
  double sum = 0.0;
  for (unsigned i = from; i < end; ++i)
    sum += samples.y(i) - first;
  return first + sum / (end - from);
}

}  // namespace

Calculation::Calculation(SourceData& source, const std::string& title, const std::string& unit) {
  Init(title.c_str(), &source);
  SetUnits(unit.empty() ? source.GetyUnit() : unit.c_str());
  std::strcpy(xUnit, source.GetxUnit());
}

/// In this order, so that it counts as busy all the time.
class Calculation::Run {
 public:
  explicit Run(Calculation& calculation) : calculation_(calculation) {
    calculation_.running_ = true;
    calculation_.due_ = false;
  }
  ~Run() { calculation_.running_ = false; }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

 private:
  Calculation& calculation_;
};

bool Calculation::Analyze() {
  const Run run(*this);
  return Analysis::Analyze();
}

bool Calculation::ApplyMask() {
  const Run run(*this);
  return Analysis::ApplyMask();
}

bool Calculation::Calculate() {
  Input input{analyzeFrom->Read(), 0, 0};
  input.end = input.samples.size();
  if (nAnalyzeFrom != kWholeSource || nAnalyzeTo != kWholeSource) {
    input.from = std::min<unsigned>(nAnalyzeFrom, input.end);
    input.end = std::min<unsigned>(nAnalyzeTo, input.end);
  }
  Reset();
  if (input.from >= input.end || !Work(input))
    return false;
  AdjustSizeTo();
  return true;
}

MovingAverage::MovingAverage(SourceData& source, unsigned window)
    : Calculation(source, "Mean of " + std::to_string(window)), window_(std::max(window, 1u)) {}

bool MovingAverage::Work(const Input& input) {
  const auto& [samples, from, end] = input;
  const unsigned before = (window_ - 1) / 2, after = window_ / 2;
  const double first = samples.y(from);
  double sum = 0.0;
  unsigned low = from, high = from;  // what sum has in it
  for (unsigned i = from; i < end; ++i) {
    for (; high < end && high <= i + after; ++high)
      sum += samples.y(high) - first;
    for (; low + before < i; ++low)
      sum -= samples.y(low) - first;
    Add(samples.x(i), first + sum / (high - low));
    if (IsAborted())
      return false;
  }
  return true;
}

Derivative::Derivative(SourceData& source)
    : Calculation(source, "Derivative of " + source.GetName(),
                  std::string(source.GetyUnit()) + "/" + source.GetxUnit()) {}

bool Derivative::Work(const Input& input) {
  const auto& [samples, from, end] = input;
  for (unsigned i = from; i < end; ++i) {
    const unsigned left = i == from ? i : i - 1, right = i + 1 == end ? i : i + 1;
    const double dx = samples.x(right) - samples.x(left);
    if (dx > 0.0)
      Add(samples.x(i), (samples.y(right) - samples.y(left)) / dx);
    if (IsAborted())
      return false;
  }
  return Valid();
}

Histogram::Histogram(SourceData& source, unsigned classes)
    : Calculation(source, "Histogram of " + source.GetName(), "cnt"), classes_(classes) {
  std::strcpy(xUnit, source.GetyUnit());
}

bool Histogram::Work(const Input& input) {
  const auto& [samples, from, end] = input;
  double low = samples.y(from), high = low;
  for (unsigned i = from; i < end && !IsAborted(); ++i) {
    low = std::min(low, samples.y(i));
    high = std::max(high, samples.y(i));
  }
  // All on one value: one class, as wide as can be seen.
  const double least = std::max(std::fabs(low) * 1e-9, 1e-30);
  const double width = std::max((high - low) / classes_, least);
  std::vector<unsigned> counts(classes_);
  for (unsigned i = from; i < end && !IsAborted(); ++i) {
    const double place = std::min((samples.y(i) - low) / width, classes_ - 1.0);
    ++counts[static_cast<unsigned>(place)];
  }
  for (unsigned k = 0; k < classes_ && !IsAborted(); ++k) {
    Add(low + k * width, counts[k]);
    Add(low + (k + 1) * width, counts[k]);
  }
  return !IsAborted();
}

DeviationLine::DeviationLine(SourceData& source, int factor)
    : Calculation(source, factor == 0 ? "Mean of all"
                                      : std::string(factor > 0 ? "Mean +" : "Mean -") +
                                            std::to_string(std::abs(factor)) + " std. dev."),
      factor_(factor) {}

bool DeviationLine::Work(const Input& input) {
  const auto& [samples, from, end] = input;
  const double mean = meanOf(samples, from, end);
  double squares = 0.0;
  for (unsigned i = from; i < end; ++i) {
    const double d = samples.y(i) - mean;
    squares += d * d;
    if (IsAborted())
      return false;
  }
  const double y = mean + factor_ * std::sqrt(squares / (end - from));
  Add(samples.x(from), y);
  Add(samples.x(end - 1), y);
  return true;
}

AllanDeviation::AllanDeviation(SourceData& source)
    : Calculation(source, "Allan deviation of " + source.GetName()) {}

bool AllanDeviation::Work(const Input& input) {
  const auto& [samples, from, end] = input;
  const unsigned count = end - from;
  const double distance = (samples.x(end - 1) - samples.x(from)) / std::max(count - 1, 1u);
  if (!(distance > 0.0))
    return false;
  const double mean = meanOf(samples, from, end);
  for (std::uint64_t decade = 1; 3 * decade <= count; decade *= 10) {
    for (const unsigned step : {1u, 2u, 4u}) {
      const std::uint64_t m = decade * step;
      double deviation = 0.0;
      if (3 * m > count)
        return true;
      if (!deviationOf(input, mean, static_cast<unsigned>(m), deviation))
        return false;
      Add(distance * static_cast<double>(m), deviation);
    }
  }
  return Valid();
}

bool AllanDeviation::deviationOf(const Input& input, double mean, unsigned m,
                                 double& deviation) const {
  const auto& [samples, from, end] = input;
  const auto y = [&](unsigned i) { return samples.y(i) - mean; };
  // The sum of m samples less that of the m before, moved on by one sample at a time.
  double difference = 0.0;
  for (unsigned i = from; i < from + m; ++i)
    difference += y(i + m) - y(i);
  const unsigned places = end - from - 2 * m + 1;
  double squares = 0.0;
  for (unsigned j = from;; ++j) {
    squares += difference * difference;
    if (j + 1 == from + places)
      break;
    difference += y(j + 2 * m) - 2.0 * y(j + m) + y(j);
    if (IsAborted())
      return false;
  }
  deviation = std::sqrt(squares / (2.0 * places)) / m;
  return true;
}

std::unique_ptr<Calculation> MakeAnalysis(AnalysisKind kind, SourceData& source) {
  switch (kind) {
    case AnalysisKind::derivative:
      return std::make_unique<Derivative>(source);
    case AnalysisKind::histogram:
      return std::make_unique<Histogram>(source);
    default:
      return std::make_unique<AllanDeviation>(source);
  }
}

std::unique_ptr<Calculation> MakeMask(const MaskKind& kind, SourceData& source) {
  if (kind.average != 0)
    return std::make_unique<MovingAverage>(source, kind.average);
  return std::make_unique<DeviationLine>(source, kind.deviations);
}

}  // namespace sparlow::host
