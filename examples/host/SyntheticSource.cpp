#include "examples/host/SyntheticSource.h"

#include <algorithm>
#include <numbers>

namespace sparlow::host {

namespace {

constexpr std::uint64_t kBlock = 65536;
constexpr std::uint64_t kDriftInterval = 1024;
constexpr double kRate = 1e6;
constexpr double kFrequency = 50.0;
constexpr double kBurstFrequency = 7e3;

std::complex<double> turnOf(double frequency) {
  return std::polar(1.0, 2.0 * std::numbers::pi * frequency / kRate);
}

// Written out: the operator of std::complex looks after infinities at some cost.
std::complex<double> times(std::complex<double> a, std::complex<double> b) {
  return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

}  // namespace

SyntheticSource::SyntheticSource(unsigned samples, std::uint64_t seed)
    : samples_(samples),
      state_(seed),
      turn_(turnOf(kFrequency)),
      burstTurn_(turnOf(kBurstFrequency)) {}

/// SplitMix64: G. L. Steele, D. Lea, C. H. Flood, "Fast splittable pseudorandom number generators",
/// OOPSLA 2014.
std::uint64_t SyntheticSource::random() {
  std::uint64_t z = (state_ += 0x9E3779B97F4A7C15u);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
  return z ^ (z >> 31);
}

/// Evenly from -1 to 1.
double SyntheticSource::symmetric() {
  return static_cast<double>(random() >> 11) * 0x1p-52 - 1.0;
}

/// Bell-shaped, of standard deviation 1: four even numbers of 16 bits each, added.
double SyntheticSource::noise() {
  const std::uint64_t bits = random();
  const std::uint64_t sum =
      (bits & 0xFFFF) + (bits >> 16 & 0xFFFF) + (bits >> 32 & 0xFFFF) + (bits >> 48);
  return (static_cast<double>(sum) - 131070.0) / 37837.0;
}

double SyntheticSource::nextValue() {
  if (made_ % kDriftInterval == 0) {
    // Random walks that are drawn back to where they began.
    level_ += 0.01 * symmetric() - 1e-4 * level_;
    amplitude_ += 0.01 * symmetric() - 1e-3 * (amplitude_ - 1.0);
    if (random() % 256 == 0)
      burst_ = 1.0;
    // Rounding would let the amplitudes of the rotations drift over many millions of steps.
    phase_ /= std::abs(phase_);
    burstPhase_ /= std::abs(burstPhase_);
  }
  phase_ = times(phase_, turn_);
  double value = level_ + amplitude_ * phase_.imag() + 0.02 * noise();
  if (burst_ > 1e-3) {
    burstPhase_ = times(burstPhase_, burstTurn_);
    value += burst_ * burstPhase_.imag();
    burst_ *= 0.9998;
  }
  if (random() % 2'000'000 == 0)
    value += symmetric() < 0 ? -4.0 : 4.0;
  return value;
}

bool SyntheticSource::Next(std::vector<Sample>& block, const std::stop_token&) {
  const std::uint64_t count = std::min(kBlock, samples_ - made_);
  block.clear();
  block.reserve(count);
  for (std::uint64_t i = 0; i < count; ++i) {
    block.push_back({static_cast<double>(made_) / kRate, nextValue()});
    ++made_;
  }
  progress_ =
      static_cast<double>(made_) / static_cast<double>(std::max<std::uint64_t>(samples_, 1));
  return made_ < samples_;
}

}  // namespace sparlow::host
