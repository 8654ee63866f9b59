#pragma once

namespace sparlow {

/// Six numbers about the y values of a series.
/// Threads: a value; any thread, each with its own.
struct StatisticParameters {
  double mean = 0.0;
  double min = 0.0;
  double max = 0.0;
  double span = 0.0;
  double stdDev = 0.0;
  double allanDev = 0.0;

  /// All six 0.
  void Reset() { *this = {}; }
};

}  // namespace sparlow
