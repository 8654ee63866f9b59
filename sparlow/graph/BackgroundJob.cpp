#include "sparlow/graph/BackgroundJob.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include "sparlow/platform/base/Synchronization.h"
#include "sparlow/platform/base/Threads.h"
#include "sparlow/platform/base/UiThread.h"

namespace sparlow {

struct BackgroundJob::State {
  std::function<void(bool)> job;
  const void* boxOwner;

  std::mutex lock;
  std::condition_variable_any changed;
  // Guarded by lock.
  bool running = false;
  bool wanted = false;
  bool closed = false;
  std::thread::id caller;  // that runs the job itself
};

BackgroundJob::BackgroundJob(std::function<void(bool)> job, const void* boxOwner)
    : state_(std::make_shared<State>()) {
  state_->job = std::move(job);
  state_->boxOwner = boxOwner;
}

BackgroundJob::~BackgroundJob() = default;

void BackgroundJob::Request() {
  {
    const std::lock_guard guard(state_->lock);
    if (state_->closed)
      return;
    state_->wanted = true;
    if (std::exchange(state_->running, true))
      return;
  }
  if (begin(state_))
    return;
  // The job may end the owner of this object, but not what it works on.
  const std::shared_ptr<State> keep = state_;
  {
    const std::lock_guard guard(keep->lock);
    keep->caller = std::this_thread::get_id();
  }
  work(*keep, false);
}

bool BackgroundJob::begin(std::shared_ptr<State> state) {
  auto parameter = std::make_unique<std::shared_ptr<State>>(std::move(state));
  try {
    if (!AfxBeginThread(threadMain, parameter.get()))
      return false;
  } catch (...) {
    // A host's way of starting threads failed.
    return false;
  }
  // The thread's own now.
  static_cast<void>(parameter.release());
  return true;
}

unsigned BackgroundJob::threadMain(void* parameter) {
  const std::unique_ptr<std::shared_ptr<State>> state(
      static_cast<std::shared_ptr<State>*>(parameter));
  const UiThread::BoxOwner boxes((*state)->boxOwner);
  work(**state, true);
  return 0;
}

void BackgroundJob::work(State& state, bool onWorker) {
  const auto goesOn = [&](bool failed) {
    const std::lock_guard guard(state.lock);
    if (std::exchange(state.wanted, false) && !state.closed && !failed)
      return true;
    state.running = false;
    state.caller = {};
    state.changed.notify_all();
    return false;
  };
  while (goesOn(false)) {
    try {
      state.job(onWorker);
    } catch (...) {
      // On a worker nobody could catch it.
      if (onWorker)
        continue;
      goesOn(true);
      throw;
    }
  }
}

void BackgroundJob::Close() {
  const std::lock_guard guard(state_->lock);
  state_->closed = true;
}

bool BackgroundJob::Busy() const {
  const std::lock_guard guard(state_->lock);
  return state_->running;
}

void BackgroundJob::WaitUntilIdle() const {
  std::unique_lock guard(state_->lock);
  WaitServingBoxes(guard, state_->changed, [this] {
    return !state_->running || state_->caller == std::this_thread::get_id();
  });
}

}  // namespace sparlow
