#pragma once

#include "sparlow/axis/AxisData.h"

namespace sparlow {

// GraphAxis is held by value or by whoever made it and never deleted through a base, so it has no
// virtual destructor; compilers that warn of that on sight need a pragma.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// The two axes of a graph and the settings of the pair. A graph keeps a pointer to it and doesn't
/// own it.
/// Threads: as AxisData: under the lock of the graph that shows it.
struct GraphAxis {
  GraphAxis() = default;
  /// verticalLabelStep is at least 1. verticalLog makes the vertical axis logarithmic.
  GraphAxis(int yMarginPercent, bool yAutoZoom, int verticalLabelStep, bool verticalLog);

  /// Clears preset and resets those of the two axes that aren't fixed.
  void Reset();
  /// Sets a range and finishes the axis (AxisData::SetParams); a fixed axis is finished over the
  /// range that it has. Clears preset. scale is stale afterwards.
  void SetHor(double min, double max);
  /// The same with the margin yMarginPercent at both ends while yAutoZoom is true.
  void SetVer(double min, double max);
  /// Both axes; the vertical pair comes first.
  void SetRange(double yMin, double yMax, double xMin, double xMax);
  /// SetRange to a range that the graph's updates keep.
  void Preset(double yMin, double yMax, double xMin, double xMax);
  /// AxisData::SetParamsFixed of one axis.
  void SetHorFixed() { hor.SetParamsFixed(); }
  void SetVerFixed() { ver.SetParamsFixed(); }
  /// True when both axes have a span and a scale and may be painted.
  bool Valid() const;
  /// Value at a horizontal pixel.
  double xPointValue(int pixel) const { return hor.GetValueByPos(pixel); }
  /// ver.max less the pixels below it times scale, on a logarithmic axis too.
  double yPointValue(int pixel) const { return ver.max - pixel * ver.scale; }
  /// Takes the units of the series on show, without prefix. Null is none. An axis that has a range
  /// gets the power and the labels of a new unit.
  virtual void SetUnits(const char* xUnit, const char* yUnit);

  AxisData hor;
  AxisData ver;
  /// The vertical range follows the samples on show.
  bool yAutoZoom = true;
  /// Margin at each end of the vertical range.
  int yMarginPercent = 0;
  /// The range was set through Preset.
  bool preset = false;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

}  // namespace sparlow
