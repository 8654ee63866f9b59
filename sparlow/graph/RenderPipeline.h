#pragma once

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

#include "sparlow/graph/BackgroundJob.h"

namespace sparlow {

class ViewData;

/// The renders of one graph: whether one is due, the one worker that does them, and the turns that
/// the window's thread takes with it.
///
/// A render that is requested while another one waits or runs takes its place, so a storm of
/// requests costs one render. Nobody polls: the worker waits for its turn, and for whoever keeps a
/// series busy, and leaves each wait at once when something newer is requested, when the window's
/// thread wants its turn, or when the graph closes.
/// Threads: any.
class RenderPipeline {
 public:
  class Run;
  enum class End {
    done,        ///< the columns are as they should be
    handedOver,  ///< nothing is left to do here: there is no series, or an update is on its way
    stopped,     ///< the render is still due
  };
  /// Does the renders, and is notified of their ends.
  class Client {
   public:
    /// Makes the columns, on the worker or, without one, on the caller's thread.
    virtual End MakeColumns(Run& run) = 0;
    /// No render is due any more. Called with nothing held.
    virtual void RenderEnded(End end, bool newLayout) = 0;
    /// A render on the worker has thrown twice, and isn't due any more. The same.
    virtual void RenderFailed(const std::exception_ptr& reason) = 0;

   protected:
    ~Client() = default;
  };

  /// boxOwner: see UiThread::BoxOwner.
  RenderPipeline(Client& client, const void* boxOwner);

  /// Requests a render, which is due from now on; the one that runs is stopped. newLayout: for a
  /// plot of another size. withReadout: the readouts are due when it is done. Without a thread the
  /// work is done here.
  void Ask(bool newLayout, bool withReadout);
  /// True from Ask until the render that was requested last has ended: no paint may read columns
  /// and layout then.
  bool Due() const;
  /// What was due has been done otherwise, in a turn.
  void Satisfied();
  /// Returns true once for all the readouts that are due.
  bool TakeReadout();
  /// The worker is at work, or about to be.
  bool Busy() const { return job_.Busy(); }

  /// The right to change what a render reads, for as long as it lives, and to render oneself. It
  /// tests false when the graph is closed. One thread may have several, one in the other. Waits,
  /// serving message boxes.
  class Turn {
   public:
    enum Meets { awaitsRender, stopsRender };
    Turn(RenderPipeline& pipeline, Meets meets);
    ~Turn();
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    explicit operator bool() const;

   private:
    RenderPipeline& pipeline_;
  };

  /// No turn and no render begins any more; a render that runs is stopped.
  void Close();
  bool Closed() const;
  void WaitUntilIdle() const { job_.WaitUntilIdle(); }

 private:
  friend class Run;
  void work(bool onWorker);
  bool begin(Run& run);
  std::exception_ptr attempt(Run& run);
  void finish(const Run& run, const std::exception_ptr& failure);
  void stopRun();                              // lock_ held
  bool freeFor(std::thread::id thread) const;  // lock_ held

  Client& client_;
  mutable std::mutex lock_;
  std::condition_variable_any changed_;
  // Guarded by lock_.
  bool closed_ = false;
  std::uint64_t newest_ = 0;  // asked for
  std::uint64_t ended_ = 0;   // the newest that is not due any more
  bool newLayout_ = false;
  bool readoutDue_ = false;
  unsigned failures_ = 0;  // in a row
  unsigned turnsWanted_ = 0;
  unsigned turnDepth_ = 0;
  std::thread::id turn_;
  bool running_ = false;
  std::thread::id runner_;
  std::stop_source interrupt_;        // of the waits of the run
  std::vector<ViewData*> rendering_;  // once it has begun: notified to stop

  BackgroundJob job_;
};

/// One attempt to do the render that is due.
/// Threads: the one that renders.
class RenderPipeline::Run {
 public:
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;
  /// The plot has another size than the columns were made for.
  bool NewLayout() const { return newLayout_; }
  /// The waits before a render may take their time: it runs on the worker.
  bool MayWait() const { return mayWait_; }
  /// When they are to end. Where they may not take their time that is at once.
  const std::stop_token& Interrupt() const { return interrupt_; }
  /// The render of these series begins: from now on they are notified when it is to stop. Returns
  /// false when it isn't to begin.
  bool Begin(std::vector<ViewData*> series);

 private:
  friend class RenderPipeline;
  Run(RenderPipeline& pipeline, bool mayWait) : pipeline_(pipeline), mayWait_(mayWait) {}

  RenderPipeline& pipeline_;
  const bool mayWait_;  // a worker
  std::uint64_t number_ = 0;
  bool newLayout_ = false;
  End end_ = End::stopped;
  std::stop_token interrupt_;
};

}  // namespace sparlow
