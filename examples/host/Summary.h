#pragma once

#include <string>

#include "sparlow/data/SourceData.h"

namespace sparlow::host {

/// A line about measured wake-up delays: how many, in what time, and their least, median, 99th
/// percentile and greatest, in microseconds. The percentile is the smallest delay that 99 % of them
/// don't exceed.
std::string DescribeDelays(const SampleReader& delays);

/// A line about any other series that has samples: how many, and from where to where they reach.
std::string DescribeSeries(const SourceData& series);

/// A count with its thousands set apart.
std::string Grouped(unsigned count);
/// "1 sample", "12,345 samples".
std::string CountSamples(unsigned count);

/// Samples per second of x, over the whole series; 0 when that makes no sense.
double SampleRate(const SampleReader& samples);

}  // namespace sparlow::host
