#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

#include "sparlow/platform/Synchronization.h"

namespace sparlow {

class ViewData;

/// The workers of one graph: how many there are, which renders are due, and which one is the
/// newest.
/// It is shared by the graph, its workers and whoever waits for them, and outlives the graph: the
/// last worker can still count itself off, and a wait that the graph's end comes into can end as
/// well.
///
/// Renders are numbered as they are asked for. Asking for one stops the one that runs, and a worker
/// whose render isn't the newest gives up, so a quick series of requests costs one render.
/// Threads: any.
class GraphWorkers {
 public:
  /// Held by whoever updates, resizes or renders the graph, outermost of all locks. Never by a
  /// paint.
  CMutex pipelineLock;
  /// @name By whoever starts a worker
  /// Counts a worker that is about to be started. False, and nothing is counted, when the graph is
  /// closing.
  bool Enter();
  /// Counts it off: as the last that a worker does, or because it couldn't be started.
  void Leave();
  /// The number of a new render, which is due from now on. A render that runs is told to stop.
  /// withReadout: the readouts are due when it is done.
  std::uint64_t AskForRender(bool withReadout);

  /// @name By a worker
  /// A render of these series for as long as it lives. False when it isn't the newest, renders are
  /// paused, or the graph is closing: nothing may be rendered then.
  class RunningRender {
   public:
    RunningRender(GraphWorkers& workers, std::uint64_t render, std::vector<ViewData*> series);
    ~RunningRender();
    RunningRender(const RunningRender&) = delete;
    RunningRender& operator=(const RunningRender&) = delete;
    explicit operator bool() const { return began_; }
    /// It didn't begin, but is to be tried again.
    bool Paused() const { return paused_; }

   private:
    GraphWorkers& workers_;
    bool began_ = false;
    bool paused_ = false;
  };
  /// At its end a render that was asked for is no longer due: it was done, or given up.
  class DueRender {
   public:
    explicit DueRender(GraphWorkers& workers) : workers_(workers) {}
    ~DueRender();
    DueRender(const DueRender&) = delete;
    DueRender& operator=(const DueRender&) = delete;

   private:
    GraphWorkers& workers_;
  };
  /// True once for all the readouts that are due.
  bool TakeReadout();
  /// Waits until there is a newer render or the graph is closing: true; or the time is over: false.
  bool WaitForNewer(std::uint64_t render, std::chrono::milliseconds limit);
  /// The use of a series outside of the pipeline lock, for as long as it lives. False when the
  /// graph has given the series away: it must not be touched then.
  class SeriesInUse {
   public:
    SeriesInUse(GraphWorkers& workers, const ViewData* series);
    ~SeriesInUse();
    SeriesInUse(const SeriesInUse&) = delete;
    SeriesInUse& operator=(const SeriesInUse&) = delete;
    explicit operator bool() const { return began_; }

   private:
    GraphWorkers& workers_;
    const ViewData* const series_;
    bool began_;
  };

  /// @name By the graph
  /// True from AskForRender until the last render asked for has finished: no paint may read columns
  /// and layout then.
  bool RenderDue() const;
  /// No render runs or begins while it lives; the one that ran begins anew after it.
  class Pause {
   public:
    explicit Pause(GraphWorkers& workers);
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    GraphWorkers& workers_;
  };
  /// Gives a series away: nobody begins to use it, and when this returns nobody does. Readmit takes
  /// it back.
  void Withdraw(const ViewData* series);
  /// Waits until no series is in use; a little longer if that was so already.
  void WaitForAnalyses();
  void Readmit(const ViewData* series);
  /// Workers that were counted and not counted off.
  int Count() const;
  /// No worker is started and no render begins any more; a render that runs is told to stop.
  void Close();
  bool Closed() const;
  /// Waits until no worker is left.
  void WaitForEnd();
  /// True for the one that may open a box about the graph, until it calls EndTelling: messages that
  /// are handled while it is open would open another.
  bool BeginTelling();
  void EndTelling();

 private:
  /// Somebody at work with a series outside of the pipeline lock.
  struct Use {
    const ViewData* series;
    std::thread::id thread;
    friend bool operator==(const Use&, const Use&) = default;
  };

  void stopRunning();  // lock_ held
  /// By another thread; one that waits for itself would wait for ever. lock_ held. Null: any.
  bool usedElsewhere(const ViewData* series) const;

  mutable std::mutex lock_;
  std::condition_variable changed_;
  // Guarded by lock_.
  int nThreads_ = 0;
  int rendersDue_ = 0;
  bool closed_ = false;
  bool readoutDue_ = false;
  bool telling_ = false;
  std::uint64_t newest_ = 0;
  int pauses_ = 0;
  std::vector<ViewData*> running_;          // the series of the render that runs
  std::vector<Use> used_;                   // once for each SeriesInUse
  std::vector<const ViewData*> withdrawn_;  // may be gone: for comparing only
};

}  // namespace sparlow
