#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "examples/host/Feeder.h"
#include "sparlow/platform/window/Messages.h"
#include "sparlow/view/ViewData.h"

namespace sparlow::host {

/// One source with its series, the data thread that fills it, and the thread that works out its
/// statistics. Stop ends both; views that show the series, and what is worked out from it, end
/// between Stop and the channel's own end.
/// Threads: the window's.
class Channel {
 public:
  /// log must outlive the channel.
  Channel(std::unique_ptr<SampleSource> source, ErrorLog& log);
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;
  ~Channel();

  Feeder& Feed() { return feeder_; }
  /// Ends the threads.
  void Stop();
  /// A view is told, or isn't told any more, whenever the series has changed.
  void AddListener(HWND view);
  void RemoveListener(HWND view);

  std::string Name() const { return source_->Name(); }
  /// Share of the record that has come, 0 to 1; negative when nobody knows.
  double Progress() const { return feeder_.Finished() ? 1.0 : source_->Progress(); }
  ViewData& Series() { return series_; }
  const ViewData& Series() const { return series_; }
  SampleReader Samples() const { return series_.Read(); }
  /// What is going on, in plain words.
  std::string Status() const;
  /// Nothing of the series is under way: neither samples nor statistics.
  bool Settled() const { return finished_ && !calculating_; }
  /// Works out the statistics anew, on a thread of its own, and tells the views then. A call during
  /// such work makes it start over; one while samples come waits for their end.
  void Recalculate();
  /// To be called regularly: does what has waited for the end of the samples. True when they have
  /// just ended.
  bool CatchUp();
  /// All samples are to be shown in place of the newest of them alone: true, unless a user has
  /// zoomed since.
  bool LeavesNewest();

 private:
  void tellViews();

  const std::unique_ptr<SampleSource> source_;
  ViewData series_;
  std::mutex listenersLock_;
  std::vector<HWND> listeners_;
  Feeder feeder_;
  bool finished_ = false;                 // and CatchUp has seen it
  bool recalculateLater_ = false;         // at that time
  std::optional<SampleInterval> newest_;  // what the setting had left on show then
  std::atomic<bool> recalculate_{false};  // asked for, and not begun
  std::atomic<bool> calculating_{false};
  std::jthread statistics_;
};

}  // namespace sparlow::host
