#pragma once

#include <optional>

#include "sparlow/platform/window/Messages.h"

namespace sparlow {

struct GraphAxis;
class ViewData;

/// The scroll bars of a graph's window: the horizontal one shows which samples are on show, the
/// vertical one which part of the range of all data.
class IntervalBars {
 public:
  void Create(HWND window) { window_ = window; }
  void Hide() const;
  /// Shows the bars that are of use, with their ranges and thumbs.
  void Show(const ViewData& series, const GraphAxis& axis) const;
  /// Where the vertical thumb is dragged to, in steps below the highest value; nothing without a
  /// bar.
  std::optional<int> DraggedTo() const;
  /// A step of the vertical bar: a twentieth of the range on show.
  static double VerticalStep(const GraphAxis& axis);

 private:
  HWND window_ = nullptr;
};

}  // namespace sparlow
