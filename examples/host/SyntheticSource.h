#pragma once

#include <atomic>
#include <complex>
#include <cstdint>

#include "examples/host/SampleSource.h"

namespace sparlow::host {

/// A long record that looks measured: an oscillator whose level and amplitude drift, with noise,
/// bursts and rare spikes, taken a million times a second. The same seed gives the same record.
/// Threads: as its base class.
class SyntheticSource : public SampleSource {
 public:
  SyntheticSource(unsigned samples, std::uint64_t seed);

  std::string Name() const override { return "Synthetic record"; }
  std::string Unit() const override { return "V"; }
  std::string Activity() const override { return "making the record"; }
  bool Next(std::vector<Sample>& block, const std::stop_token& stop) override;
  double Progress() const override { return progress_; }

 private:
  std::uint64_t random();
  double symmetric();
  double noise();
  double nextValue();

  const std::uint64_t samples_;
  std::uint64_t made_ = 0;
  std::uint64_t state_;
  double level_ = 0.0;
  double amplitude_ = 1.0;
  double burst_ = 0.0;
  std::complex<double> phase_{1.0, 0.0};
  std::complex<double> burstPhase_{1.0, 0.0};
  std::complex<double> turn_;
  std::complex<double> burstTurn_;
  std::atomic<double> progress_{0.0};
};

}  // namespace sparlow::host
