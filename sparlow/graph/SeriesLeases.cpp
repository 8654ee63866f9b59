#include "sparlow/graph/SeriesLeases.h"

#include <algorithm>

#include "sparlow/platform/base/Synchronization.h"

namespace sparlow {

SeriesLeases::Use::Use(SeriesLeases& leases, ViewData* series) : leases_(leases) {
  const std::lock_guard guard(leases_.lock_);
  const auto& withdrawn = leases_.withdrawn_;
  began_ = series && !leases_.closed_ &&
           std::find(withdrawn.begin(), withdrawn.end(), series) == withdrawn.end();
  if (began_)
    entry_ = leases_.used_.insert(leases_.used_.end(), {series, std::this_thread::get_id(), {}});
}

SeriesLeases::Use::~Use() {
  if (!began_)
    return;
  const std::lock_guard guard(leases_.lock_);
  leases_.used_.erase(entry_);
  leases_.changed_.notify_all();
}

std::stop_token SeriesLeases::Use::Stop() const {
  return began_ ? entry_->stop.get_token() : std::stop_token();
}

void SeriesLeases::Withdraw(ViewData* series) {
  std::unique_lock guard(lock_);
  // For good, or until it is taken back: a worker may remember it from a list of before.
  std::erase(withdrawn_, series);
  withdrawn_.push_back(series);
  for (Entry& each : used_) {
    if (each.series == series)
      each.stop.request_stop();
  }
  WaitServingBoxes(guard, changed_, [&] { return !usedElsewhere(series); });
}

void SeriesLeases::Readmit(ViewData* series) {
  const std::lock_guard guard(lock_);
  std::erase(withdrawn_, series);
}

bool SeriesLeases::usedElsewhere(const ViewData* series) const {
  return std::any_of(used_.begin(), used_.end(), [&](const Entry& use) {
    return use.series == series && use.thread != std::this_thread::get_id();
  });
}

std::vector<ViewData*> SeriesLeases::Close() {
  const std::lock_guard guard(lock_);
  closed_ = true;
  std::vector<ViewData*> series;
  for (Entry& each : used_) {
    each.stop.request_stop();
    series.push_back(each.series);
  }
  return series;
}

}  // namespace sparlow
