#include "examples/host/Summary.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "sparlow/platform/base/Text.h"

namespace sparlow::host {

namespace {

/// The smallest value that a share of all values doesn't exceed.
double quantile(std::vector<double>& values, double share) {
  const auto rank = static_cast<std::size_t>(std::ceil(share * static_cast<double>(values.size())));
  const auto place =
      values.begin() + static_cast<std::ptrdiff_t>(std::max<std::size_t>(rank, 1)) - 1;
  std::nth_element(values.begin(), place, values.end());
  return *place;
}

/// To a tenth, and with a point in every locale.
std::string tenths(double value) {
  return FormatNumber(std::round(value * 10) / 10, 12);
}

}  // namespace

std::string Grouped(unsigned count) {
  std::string text = std::to_string(count);
  for (std::size_t at = text.size(); at > 3;)
    text.insert(at -= 3, ",");
  return text;
}

std::string CountSamples(unsigned count) {
  return Grouped(count) + (count == 1 ? " sample" : " samples");
}

double SampleRate(const SampleReader& samples) {
  if (samples.size() < 2)
    return 0.0;
  const double span = samples.x(samples.size() - 1) - samples.x(0);
  return span > 0 ? (samples.size() - 1) / span : 0.0;
}

std::string DescribeDelays(const SampleReader& delays) {
  if (delays.empty())
    return "0 samples";
  std::vector<double> values;
  values.reserve(delays.size());
  for (unsigned i = 0; i < delays.size(); ++i)
    values.push_back(delays.y(i) * 1e6);
  const double median = quantile(values, 0.5);
  const double percentile = quantile(values, 0.99);
  const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
  return FormatText(
      "%u samples in %s s: delay min %s, median %s, 99th percentile %s, max %s us; %s samples/s",
      delays.size(), FormatNumber(delays.x(delays.size() - 1), 4).c_str(), tenths(*least).c_str(),
      tenths(median).c_str(), tenths(percentile).c_str(), tenths(*greatest).c_str(),
      tenths(SampleRate(delays)).c_str());
}

std::string DescribeSeries(const SourceData& series) {
  return FormatText("%s: %u samples, x %s to %s, y %s to %s", series.GetName().c_str(),
                    series.GetSize(), FormatNumber(series.xGlobalMinGet(), 6).c_str(),
                    FormatNumber(series.xGlobalMaxGet(), 6).c_str(),
                    FormatNumber(series.yGlobalMinGet(), 6).c_str(),
                    FormatNumber(series.yGlobalMaxGet(), 6).c_str());
}

}  // namespace sparlow::host
