#pragma once

#include <atomic>
#include <vector>

#include "sparlow/graph/BackgroundJob.h"
#include "sparlow/graph/FrameBuffer.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/graph/IntervalBars.h"
#include "sparlow/graph/ReadoutReport.h"
#include "sparlow/graph/RenderPipeline.h"
#include "sparlow/graph/SeriesLeases.h"

namespace sparlow {

/// What a graph is made of, and what its workers share. Apart from Graph.h, so that a change
/// of one part compiles the graph's own sources and nothing else.
/// Threads: any, unless a group states otherwise.
struct Graph::Parts final : RenderPipeline::Client {
  explicit Parts(Graph& owner);

  RenderPipeline::End MakeColumns(RenderPipeline::Run& run) override;
  void RenderEnded(RenderPipeline::End end, bool newLayout) override;
  void RenderFailed(const std::exception_ptr& reason) override;

  Graph& graph;
  ReadoutReport readouts;
  /// Who works with series beside the renders.
  SeriesLeases leases;

  // The window's thread.
  FrameBuffer frame;
  COLORREF frameBackground = 0xFFFFFF;  ///< of the last frame
  IntervalBars bars;
  struct StoppedSeries {
    ViewData* series;
    bool signalled;  ///< its terminator, and not by its host
  };
  std::vector<StoppedSeries> stopped;

  // From worker to worker and to the window's thread.
  std::atomic<bool> postponed{false};     ///< a series was analysed when it should be rendered
  std::atomic<bool> updateMissed{false};  ///< the active one was, when an update came
  std::atomic<bool> calculated{false};    ///< an analysis succeeded, no update is posted yet
  std::atomic<bool> boxOpen{false};       ///< about a too large window
  std::atomic<bool> failureShown{false};  ///< of renders, in a box; until one succeeds

  // Last: their workers use what is above.
  RenderPipeline pipeline;
  BackgroundJob analysis;
  BackgroundJob maskAnalysis;
};

}  // namespace sparlow
