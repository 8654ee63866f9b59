#include "examples/host/TimerSource.h"

#include <algorithm>
#include <ctime>

namespace sparlow::host {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::int64_t kBlockTime = kSecond / 20;

std::int64_t now() {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return std::int64_t{time.tv_sec} * kSecond + time.tv_nsec;
}

double inSeconds(std::int64_t nanoseconds) {
  return static_cast<double>(nanoseconds) * 1e-9;
}

}  // namespace

TimerSource::TimerSource(std::chrono::microseconds period, std::optional<double> seconds)
    : period_(std::max<std::int64_t>(1, period.count()) * 1000),
      seconds_(seconds),
      progress_(seconds ? 0.0 : -1.0) {}

/// Sleeps until time, or until limit if that comes first, and gives the time of waking.
TimerSource::Nanoseconds TimerSource::wakeAt(Nanoseconds time, Nanoseconds limit) const {
  const Nanoseconds until = std::min(time, limit);
  const timespec moment{static_cast<time_t>(until / kSecond), static_cast<long>(until % kSecond)};
  // A signal may end the sleep early.
  Nanoseconds woken;
  do {
    clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &moment, nullptr);
    woken = now();
  } while (woken < until);
  return woken;
}

bool TimerSource::Next(std::vector<Sample>& block, const std::stop_token& stop) {
  block.clear();
  if (start_ == 0) {
    start_ = now();
    tick_ = start_ + period_;
  }
  const Nanoseconds blockEnd = now() + kBlockTime;
  while (!stop.stop_requested()) {
    if (seconds_ && inSeconds(tick_ - start_) > *seconds_) {
      progress_ = 1.0;
      return false;
    }
    const Nanoseconds woken = wakeAt(tick_, blockEnd);
    if (woken >= tick_) {
      block.push_back({inSeconds(woken - start_), inSeconds(woken - tick_)});
      tick_ += ((woken - tick_) / period_ + 1) * period_;
    }
    if (woken >= blockEnd)
      break;
  }
  if (seconds_)
    progress_ = std::min(1.0, inSeconds(now() - start_) / *seconds_);
  return true;
}

}  // namespace sparlow::host
