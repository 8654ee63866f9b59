#include "sparlow/graph/RenderPipeline.h"

#include <utility>

#include "sparlow/platform/base/Synchronization.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

RenderPipeline::RenderPipeline(Client& client, const void* boxOwner)
    : client_(client), job_([this](bool onWorker) { work(onWorker); }, boxOwner) {}

void RenderPipeline::stopRun() {
  interrupt_.request_stop();
  for (ViewData* const series : rendering_)
    series->renderStop = true;
}

void RenderPipeline::Ask(bool newLayout, bool withReadout) {
  {
    const std::lock_guard guard(lock_);
    if (closed_)
      return;
    ++newest_;
    newLayout_ = newLayout_ || newLayout;
    readoutDue_ = readoutDue_ || withReadout;
    stopRun();
  }
  job_.Request();
}

bool RenderPipeline::Due() const {
  const std::lock_guard guard(lock_);
  return !closed_ && ended_ != newest_;
}

void RenderPipeline::Satisfied() {
  const std::lock_guard guard(lock_);
  ended_ = newest_;
  newLayout_ = readoutDue_ = false;
  failures_ = 0;
}

bool RenderPipeline::TakeReadout() {
  const std::lock_guard guard(lock_);
  return std::exchange(readoutDue_, false);
}

bool RenderPipeline::freeFor(std::thread::id thread) const {
  return (!running_ || runner_ == thread) && (turnDepth_ == 0 || turn_ == thread);
}

RenderPipeline::Turn::Turn(RenderPipeline& pipeline, Meets meets) : pipeline_(pipeline) {
  const std::thread::id self = std::this_thread::get_id();
  std::unique_lock guard(pipeline_.lock_);
  if (!pipeline_.freeFor(self)) {
    ++pipeline_.turnsWanted_;
    // A run that only waits for a series may wait for long.
    if (meets == stopsRender || pipeline_.rendering_.empty())
      pipeline_.stopRun();
    WaitServingBoxes(guard, pipeline_.changed_, [&] { return pipeline_.freeFor(self); });
    --pipeline_.turnsWanted_;
  }
  pipeline_.turn_ = self;
  ++pipeline_.turnDepth_;
}

RenderPipeline::Turn::~Turn() {
  const std::lock_guard guard(pipeline_.lock_);
  if (--pipeline_.turnDepth_ == 0) {
    pipeline_.turn_ = {};
    pipeline_.changed_.notify_all();
  }
}

RenderPipeline::Turn::operator bool() const {
  return !pipeline_.Closed();
}

void RenderPipeline::Close() {
  {
    const std::lock_guard guard(lock_);
    closed_ = true;
    stopRun();
    changed_.notify_all();
  }
  job_.Close();
}

bool RenderPipeline::Closed() const {
  const std::lock_guard guard(lock_);
  return closed_;
}

bool RenderPipeline::begin(Run& run) {
  const std::thread::id self = std::this_thread::get_id();
  std::unique_lock guard(lock_);
  changed_.wait(
      guard, [&] { return closed_ || ended_ == newest_ || (turnsWanted_ == 0 && freeFor(self)); });
  if (closed_ || ended_ == newest_)
    return false;
  running_ = true;
  runner_ = self;
  interrupt_ = {};
  // Nobody else would serve the window meanwhile.
  if (!run.mayWait_)
    interrupt_.request_stop();
  run.number_ = newest_;
  run.newLayout_ = newLayout_;
  run.interrupt_ = interrupt_.get_token();
  return true;
}

bool RenderPipeline::Run::Begin(std::vector<ViewData*> series) {
  const std::lock_guard guard(pipeline_.lock_);
  if (mayWait_ ? interrupt_.stop_requested() : pipeline_.closed_)
    return false;
  pipeline_.rendering_ = std::move(series);
  return true;
}

void RenderPipeline::work(bool onWorker) {
  for (Run run(*this, onWorker); begin(run);)
    finish(run, attempt(run));
}

std::exception_ptr RenderPipeline::attempt(Run& run) {
  try {
    run.end_ = client_.MakeColumns(run);
    return nullptr;
  } catch (...) {
    run.end_ = End::stopped;
    return std::current_exception();
  }
}

void RenderPipeline::finish(const Run& run, const std::exception_ptr& failure) {
  constexpr unsigned attempts = 2;
  bool givenUp = false, over = false;
  {
    const std::lock_guard guard(lock_);
    // A stop that came too late must not meet the next render of these series.
    for (ViewData* const series : rendering_)
      series->renderStop = false;
    rendering_.clear();
    running_ = false;
    runner_ = {};
    failures_ = failure ? failures_ + 1 : 0;
    givenUp = failures_ == attempts || !run.mayWait_;
    over = run.number_ == newest_ && (run.end_ != End::stopped || givenUp);
    if (over) {
      ended_ = newest_;
      newLayout_ = false;
    }
    if (givenUp)
      failures_ = 0;
    changed_.notify_all();
  }
  if (over)
    client_.RenderEnded(run.end_, run.newLayout_);
  if (!failure || !givenUp)
    return;
  // The caller may know what to do about it.
  if (!run.mayWait_)
    std::rethrow_exception(failure);
  if (over)
    client_.RenderFailed(failure);
}

}  // namespace sparlow
