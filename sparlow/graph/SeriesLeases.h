#pragma once

#include <condition_variable>
#include <list>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace sparlow {

class ViewData;

/// Who works with which series of a graph beside its renders, so that a series can be taken out and
/// nobody touches it afterwards.
/// Threads: any.
class SeriesLeases {
  struct Entry {
    ViewData* series;
    std::thread::id thread;
    std::stop_source stop;
  };

 public:
  /// The use of a series for as long as it lives. It tests false when the graph has given the
  /// series away, or is closed: the series must not be touched then.
  class Use {
   public:
    Use(SeriesLeases& leases, ViewData* series);
    ~Use();
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    explicit operator bool() const { return began_; }
    /// Asks the user to end: the series is to be given back.
    std::stop_token Stop() const;

   private:
    SeriesLeases& leases_;
    std::list<Entry>::iterator entry_;
    bool began_ = false;
  };

  /// Gives a series away: no use begins, who is at work is asked to end, and when this returns
  /// nobody uses it but the calling thread itself. Message boxes are served meanwhile.
  void Withdraw(ViewData* series);
  /// Takes it back.
  void Readmit(ViewData* series);
  /// No use begins any more, and who is at work is asked to end. Returns the series that are in
  /// use, with those that were taken out of the graph meanwhile.
  std::vector<ViewData*> Close();

 private:
  bool usedElsewhere(const ViewData* series) const;  // lock_ held

  std::mutex lock_;
  std::condition_variable_any changed_;
  // Guarded by lock_.
  bool closed_ = false;
  std::list<Entry> used_;
  std::vector<const ViewData*> withdrawn_;  // may be gone: for comparing only
};

}  // namespace sparlow
