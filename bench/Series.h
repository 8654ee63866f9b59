#pragma once

#include <memory>
#include <vector>

#include "sparlow/axis/GraphAxis.h"
#include "sparlow/view/ViewData.h"

namespace sparlow::bench {

/// How x goes on.
enum class Steps { even, irregular };

/// A series of slow waves with noise, and a far peak now and then; y is above 0.
class WaveSeries : public ViewData {
 public:
  WaveSeries(Steps steps, unsigned samples);
  ~WaveSeries() override { Term(); }
  WaveSeries(const WaveSeries&) = delete;
  WaveSeries& operator=(const WaveSeries&) = delete;

  /// Puts an interval on show, in a plot of so many columns by 500 pixels.
  GraphAxis Show(unsigned from, unsigned end, unsigned columns, bool logarithmic = false);
};

/// Made when it is asked for first, and kept.
WaveSeries& SharedSeries(Steps steps, unsigned samples);

/// Makes samples one after another, the same for the same steps.
class Wave {
 public:
  explicit Wave(Steps steps) : steps_(steps) {}
  void Next(double& x, double& y);
  /// Appends as many samples as the spans are long.
  void Fill(std::vector<double>& xs, std::vector<double>& ys);

 private:
  double unit();

  Steps steps_;
  std::uint64_t state_ = 88172645463325252ull;
  std::uint64_t count_ = 0;
  double x_ = 0.0;
};

/// Resident memory of this process in bytes; 0 where the system doesn't tell.
double ResidentBytes();

}  // namespace sparlow::bench
