#include "bench/Series.h"

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <map>

namespace sparlow::bench {

double Wave::unit() {
  // Marsaglia, "Xorshift RNGs", Journal of Statistical Software 8(14), 2003.
  state_ ^= state_ << 13;
  state_ ^= state_ >> 7;
  state_ ^= state_ << 17;
  return static_cast<double>(state_ >> 11) * 0x1p-53;
}

void Wave::Next(double& x, double& y) {
  const double chance = unit();
  if (steps_ == Steps::even)
    x_ = static_cast<double>(count_) * 1e-6;
  else if (count_ % 15000000 == 5000)
    x_ += 1.0;            // a gap
  else if (chance > 0.3)  // else the same x again
    x_ += chance < 0.99 ? 1e-6 * chance : 1e-4 * (chance - 0.99);
  const double phase = static_cast<double>(count_++) * 3e-7;
  y = 10.0 + 4.0 * std::sin(phase) + 4.0 * unit();
  if (chance < 1e-6)
    y *= 1.0 + 50.0 * unit();
  x = x_;
}

void Wave::Fill(std::vector<double>& xs, std::vector<double>& ys) {
  for (std::size_t i = 0; i < xs.size(); ++i)
    Next(xs[i], ys[i]);
}

WaveSeries::WaveSeries(Steps steps, unsigned samples) {
  UseStandardMapping(typeid(WaveSeries));
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
