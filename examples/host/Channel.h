#pragma once

#include <memory>
#include <string>

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
  const SourceData& Series() const { return series_; }
  SampleReader Samples() const { return series_.Read(); }
  /// What is going on, in plain words.
  std::string Status() const;

 private:
  const std::unique_ptr<SampleSource> source_;
  ViewData series_;
  GraphAxis axis_;
  CSingleGraphView* const view_;  // deletes itself with its window
  Feeder feeder_;
};

}  // namespace sparlow::host
