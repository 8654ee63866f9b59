#include "sparlow/view/ViewData.h"

// Renders a ramp of one sample for each pixel of the axis: each must come out as a column of its own.
int main() {
  constexpr unsigned kSamples = 500;
  sparlow::ViewData series;
  series.Init("ramp");
  for (unsigned i = 0; i < kSamples; ++i)
    series.Add(i, i);
  series.AdjustSizeTo();
  sparlow::GraphAxis axis;
  axis.SetRange(0.0, kSamples, 0.0, kSamples);
  axis.hor.SetScale(kSamples);
  axis.ver.SetScale(kSamples);
  const bool right = series.Render(&axis, true) && series.nColumns == kSamples;
  series.Term();
  return right ? 0 : 1;
}
