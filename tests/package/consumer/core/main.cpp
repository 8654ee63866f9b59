#include <cstdio>

#include "sparlow/axis/GraphAxis.h"
#include "sparlow/view/ViewData.h"

// Feeds a ramp, one sample for each pixel of the axis, and renders it: each sample must come out as
// a column of its own.
int main() {
  constexpr unsigned kSamples = 500;
  sparlow::ViewData series;
  series.Init("ramp", nullptr);
  series.InitDataTransfer(false);
  series.InitBlockTransfer();
  for (unsigned i = 0; i < kSamples; ++i)
    series.Add(i, 2.0 * i, false);
  series.TermBlockTransfer();
  const bool filled = series.TermDataTransfer();

  sparlow::GraphAxis axis;
  axis.SetRange(0.0, 2.0 * kSamples, 0.0, kSamples);
  axis.hor.SetScale(kSamples);
  axis.ver.SetScale(kSamples);
  const bool rendered = series.Render(&axis, true);
  std::printf("%u columns of %u samples\n", static_cast<unsigned>(series.nColumns), kSamples);
  const bool right = filled && rendered && series.nColumns == kSamples;
  series.Term();
  return right ? 0 : 1;
}
