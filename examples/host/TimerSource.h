#pragma once

#include <atomic>
#include <chrono>
#include <optional>

#include "examples/host/SampleSource.h"

namespace sparlow::host {

/// Measures how late this machine wakes a thread that sleeps until the next tick of a periodic
/// timer: x is the time since the start, y the delay, both in seconds. A tick that has passed
/// before the thread could ask for it is left out.
/// Threads: as its base class.
class TimerSource : public SampleSource {
 public:
  /// Without seconds it measures until it is stopped.
  TimerSource(std::chrono::microseconds period, std::optional<double> seconds);

  std::string Name() const override { return "Timer wake-up delay"; }
  std::string Unit() const override { return "s"; }
  std::string Activity() const override { return "measuring"; }
  /// Gives what it measured in about a twentieth of a second.
  bool Next(std::vector<Sample>& block, const std::stop_token& stop) override;
  double Progress() const override { return progress_; }

 private:
  using Nanoseconds = std::int64_t;

  Nanoseconds wakeAt(Nanoseconds time, Nanoseconds limit) const;

  const Nanoseconds period_;
  const std::optional<double> seconds_;
  Nanoseconds start_ = 0;
  Nanoseconds tick_ = 0;
  std::atomic<double> progress_;
};

}  // namespace sparlow::host
