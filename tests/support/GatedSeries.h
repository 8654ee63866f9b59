#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/view/ViewData.h"

namespace sparlow::test {

/// A series whose mapping is slow on purpose: a worker that renders it stands still at the gate
/// until the test lets it pass.
class GatedSeries : public ViewData {
 public:
  int xPosGet(unsigned sample, const GraphAxis* axis) const override {
    if (closed_ && !UiThread::IsCurrent())
      waitAtGate();
    return ViewData::xPosGet(sample, axis);
  }
  bool Render(GraphAxis* axis, bool full) override {
    ++begun;
    lastWasFull = full;
    const bool done = ViewData::Render(axis, full);
    ++(done ? completed : stopped);
    return done;
  }

  void CloseGate() { closed_ = true; }
  void OpenGate() {
    const std::lock_guard guard(lock_);
    closed_ = false;
    changed_.notify_all();
  }
  /// Until a worker stands at the gate.
  void AwaitWorker() const {
    std::unique_lock guard(lock_);
    changed_.wait(guard, [this] { return waiting_ > 0; });
  }

  std::atomic<int> begun{0};
  std::atomic<bool> lastWasFull{false};
  std::atomic<int> completed{0};
  std::atomic<int> stopped{0};

 private:
  void waitAtGate() const {
    std::unique_lock guard(lock_);
    ++waiting_;
    changed_.notify_all();
    changed_.wait(guard, [this] { return !closed_; });
    --waiting_;
  }

  std::atomic<bool> closed_{false};
  mutable std::mutex lock_;
  mutable std::condition_variable changed_;
  mutable int waiting_ = 0;
};

}  // namespace sparlow::test
