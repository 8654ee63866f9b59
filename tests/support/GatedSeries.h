#pragma once

#include <atomic>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/view/ViewData.h"

namespace sparlow::test {

/// A series whose mapping is slow on purpose: a worker that renders it stands still at the gate
/// until the test lets it pass.
class GatedSeries : public ViewData {
 public:
  int xPosGet(unsigned sample, const GraphAxis* axis) const override {
    if (closed_ && !UiThread::IsCurrent()) {
      ++waiting_;
      waiting_.notify_all();
      closed_.wait(true);
      --waiting_;
    }
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
    closed_ = false;
    closed_.notify_all();
  }
  /// Until a worker stands at the gate.
  void AwaitWorker() const { waiting_.wait(0); }

  std::atomic<int> begun{0};
  std::atomic<bool> lastWasFull{false};
  std::atomic<int> completed{0};
  std::atomic<int> stopped{0};

 private:
  std::atomic<bool> closed_{false};
  mutable std::atomic<int> waiting_{0};
};

}  // namespace sparlow::test
