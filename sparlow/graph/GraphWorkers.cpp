#include "sparlow/graph/GraphWorkers.h"

#include <algorithm>
#include <utility>

#include "sparlow/platform/UiThread.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

bool GraphWorkers::Enter() {
  const std::lock_guard guard(lock_);
  if (closed_)
    return false;
  ++nThreads_;
  return true;
}

void GraphWorkers::Leave() {
  const std::lock_guard guard(lock_);
  --nThreads_;
  changed_.notify_all();
}

void GraphWorkers::stopRunning() {
  for (ViewData* const series : running_)
    series->renderStop = true;
}

std::uint64_t GraphWorkers::AskForRender(bool withReadout) {
  const std::lock_guard guard(lock_);
  ++rendersDue_;
  readoutDue_ = readoutDue_ || withReadout;
  stopRunning();
  changed_.notify_all();
  return ++newest_;
}

GraphWorkers::RunningRender::RunningRender(GraphWorkers& workers, std::uint64_t render,
                                           std::vector<ViewData*> series)
    : workers_(workers) {
  const std::lock_guard guard(workers_.lock_);
  const bool wanted = !workers_.closed_ && render == workers_.newest_;
  paused_ = wanted && workers_.pauses_ != 0;
  began_ = wanted && !paused_;
  if (began_)
    workers_.running_ = std::move(series);
}

GraphWorkers::RunningRender::~RunningRender() {
  if (!began_)
    return;
  const std::lock_guard guard(workers_.lock_);
  // A stop that came too late must not meet the next render of these series.
  for (ViewData* const series : workers_.running_)
    series->renderStop = false;
  workers_.running_.clear();
}

GraphWorkers::DueRender::~DueRender() {
  const std::lock_guard guard(workers_.lock_);
  --workers_.rendersDue_;
}

bool GraphWorkers::TakeReadout() {
  const std::lock_guard guard(lock_);
  return std::exchange(readoutDue_, false);
}

bool GraphWorkers::WaitForNewer(std::uint64_t render, std::chrono::milliseconds limit) {
  std::unique_lock guard(lock_);
  return changed_.wait_for(guard, limit, [&] { return closed_ || render != newest_; });
}

GraphWorkers::SeriesInUse::SeriesInUse(GraphWorkers& workers, const ViewData* series)
    : workers_(workers), series_(series) {
  const std::lock_guard guard(workers_.lock_);
  const auto& withdrawn = workers_.withdrawn_;
  began_ = series && std::find(withdrawn.begin(), withdrawn.end(), series) == withdrawn.end();
  if (began_)
    workers_.used_.push_back({series, std::this_thread::get_id()});
}

GraphWorkers::SeriesInUse::~SeriesInUse() {
  if (!began_)
    return;
  const std::lock_guard guard(workers_.lock_);
  auto& used = workers_.used_;
  used.erase(std::find(used.begin(), used.end(), Use{series_, std::this_thread::get_id()}));
  workers_.changed_.notify_all();
}

GraphWorkers::Pause::Pause(GraphWorkers& workers) : workers_(workers) {
  const std::lock_guard guard(workers_.lock_);
  ++workers_.pauses_;
  workers_.stopRunning();
}

GraphWorkers::Pause::~Pause() {
  const std::lock_guard guard(workers_.lock_);
  --workers_.pauses_;
}

void GraphWorkers::Withdraw(const ViewData* series) {
  std::unique_lock guard(lock_);
  // Where nobody is at work nobody remembers a series of before.
  if (nThreads_ == 0 && used_.empty())
    withdrawn_.clear();
  withdrawn_.push_back(series);
  // The box that an analysis waits for may be open further out on this stack.
  const UiThread::AnswerBoxes answered;
  WaitServingBoxes(guard, changed_, [&] { return !usedElsewhere(series); });
}

bool GraphWorkers::usedElsewhere(const ViewData* series) const {
  return std::any_of(used_.begin(), used_.end(), [&](const Use& use) {
    return (!series || use.series == series) && use.thread != std::this_thread::get_id();
  });
}

void GraphWorkers::WaitForAnalyses() {
  {
    std::unique_lock guard(lock_);
    const UiThread::AnswerBoxes answered;
    WaitServingBoxes(guard, changed_, [&] { return !usedElsewhere(nullptr); });
  }
  // Somebody who isn't this graph's worker may be at it.
  std::this_thread::sleep_for(std::chrono::milliseconds{1});
}

void GraphWorkers::Readmit(const ViewData* series) {
  const std::lock_guard guard(lock_);
  std::erase(withdrawn_, series);
}

bool GraphWorkers::RenderDue() const {
  const std::lock_guard guard(lock_);
  return rendersDue_ != 0;
}

int GraphWorkers::Count() const {
  const std::lock_guard guard(lock_);
  return nThreads_;
}

void GraphWorkers::Close() {
  const std::lock_guard guard(lock_);
  closed_ = true;
  stopRunning();
  changed_.notify_all();
}

bool GraphWorkers::Closed() const {
  const std::lock_guard guard(lock_);
  return closed_;
}

bool GraphWorkers::BeginTelling() {
  const std::lock_guard guard(lock_);
  return !closed_ && !std::exchange(telling_, true);
}

void GraphWorkers::EndTelling() {
  const std::lock_guard guard(lock_);
  telling_ = false;
}

void GraphWorkers::WaitForEnd() {
  std::unique_lock guard(lock_);
  WaitServingBoxes(guard, changed_, [this] { return nThreads_ == 0; });
}

}  // namespace sparlow
