#pragma once

#include <cstdint>
#include <vector>

namespace sparlow::bench {

/// How x goes on.
enum class Steps { even, irregular };

/// Makes samples one after another, the same for the same steps.
class Wave {
 public:
  explicit Wave(Steps steps) : steps_(steps) {}
  void Next(double& x, double& y);
  /// Overwrites two vectors of one length with the next samples.
  void Fill(std::vector<double>& xs, std::vector<double>& ys);

 private:
  double unit();

  Steps steps_;
  std::uint64_t state_ = 88172645463325252ull;
  std::uint64_t count_ = 0;
  double x_ = 0.0;
};

}  // namespace sparlow::bench
