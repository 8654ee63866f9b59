#pragma once

#include <functional>
#include <string>
#include <vector>

namespace sparlow::bench {

/// What a benchmark program was asked for.
struct Options {
  bool once = false;    ///< a short shot of everything, on little data
  double seconds = 60;  ///< of the live measurement
};

/// The options of this run; parsed before any benchmark is made.
const Options& Asked();
/// A number of samples that is `full` in a measurement and small enough for a short shot otherwise.
unsigned Samples(unsigned full);

/// A line of the table at the end: the ratio of two benchmarks' medians, at most `goal`.
void AtMost(std::string work, std::string numerator, std::string denominator, double goal);
/// The same without a goal.
void Compare(std::string work, std::string numerator, std::string denominator);
/// A goal for the worst of several pairs of names.
void WorstAtMost(std::string work, std::vector<std::pair<std::string, std::string>> pairs,
                 double goal);

/// What a line that isn't a ratio of benchmarks says.
struct Line {
  std::string work;
  std::string goal;
  std::string measured;
  bool met = true;
};
/// Measured and told after the benchmarks. What it throws makes the program fail.
void Told(std::function<std::vector<Line>()> measure);

/// Milliseconds on a clock that doesn't jump.
double NowMs();
/// The value below which a share of the values lies; they get sorted.
double Percentile(std::vector<double>& values, double share);
/// "12.3 / 45.6 ms": median and 99th percentile.
std::string MedianAnd99(std::vector<double> values);

/// Parses the options, runs what was registered, prints the table. The status for main: 1 when a
/// benchmark failed, 2 for bad options.
int Main(int argc, char** argv, void (*registerAll)());

}  // namespace sparlow::bench
