#include "bench/Wave.h"

#include <cmath>

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

}  // namespace sparlow::bench
