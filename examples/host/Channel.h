#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "examples/host/Feeder.h"
#include "sparlow/axis/GraphAxis.h"
#include "sparlow/ui/CSingleGraphView.h"
#include "sparlow/view/ViewData.h"

namespace sparlow::host {

/// One source on show, with all that it needs: its series, the axes, the view, and the data thread.
/// It takes them down in the order that they ask for: the thread, the view's window, the series.
/// Threads: the window's.
class Channel {
 public:
  /// width and height of the graph in pixels. colors and log must outlive the channel.
  Channel(std::unique_ptr<SampleSource> source, GraphColors& colors, int width, int height,
          ErrorLog& log);
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;
  ~Channel();

  CSingleGraphView& View() { return *view_; }
  Feeder& Feed() { return feeder_; }
  std::string Name() const { return source_->Name(); }
  double Progress() const { return source_->Progress(); }
  const ViewData& Series() const { return series_; }
  const GraphAxis& Axis() const { return axis_; }
  SampleReader Samples() const { return series_.Read(); }
  /// What is going on, in plain words.
  std::string Status() const;
  /// Nothing of the series is under way: neither samples, nor statistics, nor a render.
  bool Settled() const;
  /// Works out the statistics anew, on a thread of its own, and updates the view then. A call
  /// during such work makes it start over. Does nothing while samples come: their end does it.
  void Recalculate();

 private:
  const std::unique_ptr<SampleSource> source_;
  ViewData series_;
  GraphAxis axis_;
  CSingleGraphView* const view_;  // deletes itself with its window
  Feeder feeder_;
  std::atomic<bool> recalculate_{false};  // asked for, and not begun
  std::atomic<bool> calculating_{false};
  std::jthread statistics_;
};

}  // namespace sparlow::host
