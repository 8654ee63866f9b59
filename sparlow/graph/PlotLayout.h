#pragma once

#include <atomic>
#include <mutex>

#include "sparlow/graph/Offset.h"
#include "sparlow/platform/base/Geometry.h"

namespace sparlow {

struct GraphAxis;
class ViewData;

/// Where the plot of a graph lies in its area, and how large it is, in pixels. A layout is
/// published whole, with the scales of both axes: a worker lays out while the window's thread
/// reads.
/// Threads: one lays out at a time; reading, any.
class PlotLayout {
 public:
  /// Lays the plot out in the area of a whole graph, with margins for its labels and the captions
  /// of a series, null being none, and room for a legend below; computes the axes' scales. factor:
  /// what margins are multiplied by.
  void LayOut(const CRect& area, GraphAxis& axis, const ViewData* series, int legend,
              double factor);
  /// The plot's upper left corner in such an area, as the last layout has it: what it was worked
  /// out from may have changed since.
  CPoint Origin(const CRect& area = {}) const;
  /// Size of the plot, 1 by 1 at least; 0 before the first layout.
  int Height() const { return height_; }
  int Width() const { return width_; }
  /// The area has more pixels than a series has columns: the graph is cut.
  bool TooLarge() const { return tooLarge_; }
  /// Nothing is on show that could be cut.
  void ForgetTooLarge() { tooLarge_ = false; }
  /// A point of the client area as one of the plot, clamped to it.
  CPoint Clip(CPoint point) const;

 private:
  mutable std::mutex lock_;
  CPoint origin_{Offset::Left(0), Offset::Top()};  // guarded by lock_
  std::atomic<int> height_{0};
  std::atomic<int> width_{0};
  std::atomic<bool> tooLarge_{false};
};

}  // namespace sparlow
