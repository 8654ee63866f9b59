#pragma once

#include <functional>
#include <memory>

namespace sparlow {

/// A job that is done on a thread of its own, by one thread at a time: however often it is
/// requested during a run, it is run once more after that.
/// Threads: any, but for construction and destruction.
class BackgroundJob {
 public:
  /// job gets true on a thread of its own. What it throws there ends that run and nothing else. The
  /// message boxes that it opens are those of boxOwner (UiThread::BoxOwner).
  BackgroundJob(std::function<void(bool onWorker)> job, const void* boxOwner);
  /// No run may be under way: Close and WaitUntilIdle come first.
  ~BackgroundJob();
  BackgroundJob(const BackgroundJob&) = delete;
  BackgroundJob& operator=(const BackgroundJob&) = delete;

  /// Has the job done. Where the system has no thread to give it is done here; what it throws is
  /// passed on then.
  void Request();
  /// No run begins any more.
  void Close();
  /// A run is under way, or about to begin.
  bool Busy() const;
  /// Waits for the run of another thread, if there is one; message boxes are served meanwhile.
  void WaitUntilIdle() const;

 private:
  struct State;
  static unsigned threadMain(void* state);
  static bool begin(std::shared_ptr<State> state);
  // Run after run, until none is requested.
  static void work(State& state, bool onWorker);

  // Shared with the thread, whose last act is to count itself off: the job may be gone then.
  const std::shared_ptr<State> state_;
};

}  // namespace sparlow
