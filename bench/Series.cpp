#include "bench/Series.h"

#include <unistd.h>

#include <cstdio>
#include <map>

namespace sparlow::bench {

WaveSeries::WaveSeries(Steps steps, unsigned samples) {
  Init("wave");
  InitDataTransfer(false);
  InitBlockTransfer();
  Wave wave(steps);
  constexpr unsigned atOnce = 1u << 16;
  for (unsigned done = 0; done < samples;) {
    const unsigned count = std::min(atOnce, samples - done);
    std::vector<double> xs(count), ys(count);
    wave.Fill(xs, ys);
    Add(xs, ys);
    done += count;
  }
  TermBlockTransfer();
  TermDataTransfer();
}

GraphAxis WaveSeries::Show(unsigned from, unsigned end, unsigned columns, bool logarithmic) {
  SetFrom(from);
  SetTo(end);
  SetIntervalParams();
  GraphAxis axis;
  axis.ver.log = logarithmic;
  const IntervalBounds bounds = GetIntervalBounds();
  axis.SetRange(bounds.yMin, bounds.yMax, bounds.xMin, bounds.xMax);
  axis.hor.SetScale(columns);
  axis.ver.SetScale(500);
  return axis;
}

WaveSeries& SharedSeries(Steps steps, unsigned samples) {
  static std::map<std::pair<Steps, unsigned>, std::unique_ptr<WaveSeries>> all;
  auto& series = all[{steps, samples}];
  if (!series)
    series = std::make_unique<WaveSeries>(steps, samples);
  return *series;
}

double ResidentBytes() {
  std::FILE* const file = std::fopen("/proc/self/statm", "r");
  if (!file)
    return 0.0;
  double all = 0.0, resident = 0.0;
  const int found = std::fscanf(file, "%lf %lf", &all, &resident);
  std::fclose(file);
  return found == 2 ? resident * static_cast<double>(sysconf(_SC_PAGESIZE)) : 0.0;
}

}  // namespace sparlow::bench
