#pragma once

#include "bench/Wave.h"
#include "sparlow/axis/GraphAxis.h"
#include "sparlow/view/ViewData.h"

namespace sparlow::bench {

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

/// Resident memory of this process in bytes; 0 where the system doesn't tell.
double ResidentBytes();

}  // namespace sparlow::bench
