#pragma once

#include <string>

namespace sparlow {

class AxisData;

/// The range of one axis while it is edited, in the axis's own unit.
struct AxisRange {
  double min = 0.0;
  double max = 0.0;
  bool autoRange = true;
  std::string unit;       ///< without prefix
  bool log = false;       ///< both ends have to be above 0
  bool confirmed = true;  ///< the user did not cancel

  /// Gives the axis this range. Ends that aren't numbers leave the ones that it has.
  void ApplyTo(AxisData& axis) const;
};

/// Has the user edit the range of an axis: the dialog that Graph::OnXRange and OnYRange run.
class AxisRangeEditor {
 public:
  AxisRangeEditor() = default;
  AxisRangeEditor(const AxisRangeEditor&) = delete;
  AxisRangeEditor& operator=(const AxisRangeEditor&) = delete;
  virtual ~AxisRangeEditor() = default;

  /// Returns when the user is done. What range holds then is taken, also after a cancel. The graph
  /// may go meanwhile.
  virtual void Edit(AxisRange& range) = 0;

  /// The one that is installed, or null: ranges can't be edited then. Whoever installs one keeps
  /// it, and takes it away by null before it goes.
  static AxisRangeEditor* Current();
  static void Install(AxisRangeEditor* editor);
};

}  // namespace sparlow
