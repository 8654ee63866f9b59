#pragma once

#include <cstdint>

#include "sparlow/axis/DecimalSteps.h"
#include "sparlow/axis/EngineeringPrefix.h"
#include "sparlow/axis/PixelMapping.h"
#include "sparlow/platform/base/CopyableAtomic.h"

namespace sparlow {

/// One axis of a graph: the interval of values that it spans, the way from values to pixels, its
/// grid and the texts of its labels. All logarithms are of base 10.
///
/// Set min and max, then call SetParams, then SetScale with the length of the axis in pixels. The
/// fields are open to graph and series; step, firstStep, power and labels belong to one another and
/// are replaced together.
/// Threads: changed and read under the lock of the graph that shows it. scale alone may be written
/// by one thread while others read it. iter belongs to whoever paints.
class AxisData {
 public:
  /// A walk over the steps of an axis, from the min end upward, which yields pixels. It visits the
  /// values that the labels were written for, in the same order, and is as good as scale.
  ///
  /// A walk always ends: on an axis that gives it nothing to walk on (no step, no scale, ends that
  /// are not finite, over 100 steps in a pixel) and after a million steps pos is kFarPixel and
  /// stays there, so that "while pos is below the width" suffices.
  /// The axis must outlive the walk.
  /// Threads: the one that paints.
  struct StepIter : private LogSteps {
    const AxisData* axis = nullptr;
    /// Logarithmic: the next step. Linear: digit is the index of the present one.
    using LogSteps::base, LogSteps::digit, LogSteps::stepCur;
    /// Linear: pixel of the first step. Logarithmic: 0.
    int firstPos = 0;
    /// Pixel of the present step, counted from the min end. Not set before Init or InitLabel.
    int pos = kFarPixel;

    /// Starts a walk over all steps, for the grid; pos is that of the first one.
    void Init(const AxisData* walked);
    /// Starts a walk over the labelled steps; pos is that of the label in slot 0.
    void InitLabel(const AxisData* walked);
    /// Goes to the next step and returns the new pos. On a linear axis useLabelStep moves by
    /// labelStep; on a logarithmic one it has no effect.
    int Next(bool useLabelStep);
    /// Goes to the next labelled step, that of slot + LabelSlotStep() if useLabelStep is true.
    int NextLabel(bool useLabelStep);

   private:
    void InitCommon(const AxisData* walked);
    int LogPos(double value) const;
  };

  AxisData() = default;

  /// Takes range, power, units and label length of an automatic axis back to those of a new one. A
  /// fixed axis stays as it is; so do the labels.
  void Reset();
  /// Makes the axis automatic again.
  void ResetFixed();

  double GetMin() const { return min; }
  double GetMax() const { return max; }
  double GetScale() const { return scale; }
  double GetRange() const { return range; }
  /// Store an end of an automatic axis and recompute nothing. A fixed axis ignores them.
  void SetMin(const double& value);
  void SetMax(const double& value);

  /// Makes a finished axis of min and max: repairs them, chooses step and power, writes the labels.
  /// Leaves scale as it is. Any ends at all give min below max, a finite range and, on a
  /// logarithmic axis, a min above 0:
  /// - a linear axis sorts reversed ends and widens a span below epsilon;
  /// - a linear end that is not a number counts as the other one, both as 0;
  /// - linear ends whose span is beyond a double are drawn back to a quarter of the largest one;
  /// - a logarithmic axis replaces a max that isn't above 0 by 1 and raises one below 1e-280 to
  ///   that. A min that isn't above 0, or is above max, becomes max x 1e-10; one below 1e-290
  ///   becomes that.
  ///
  /// Steps are those of decimal arithmetic: ends that are off by their rounding count as the
  /// decimal numbers that they stand for.
  void SetParams();
  /// Loads the fixed range of a fixed axis, then SetParams. A fixed range that is not finite is not
  /// loaded. Does nothing on an automatic axis.
  void SetParamsFixed();
  /// Takes another unit, and with it another power and other labels; the range stays.
  void SetAuxParams(const char* unit);
  /// Widens the range of an automatic axis at both ends: by a share of the span in percent on a
  /// linear axis, by a share of each end on a logarithmic one. To be followed by SetParams.
  void CorrectMinMax(int percent);

  /// scale for an axis that is so many pixels long. 0 counts as 1.
  void CalculateScale(std::uint32_t pixels);
  void SetScale(std::uint32_t pixels) { CalculateScale(pixels); }

  /// Horizontal pixel of a value: 0 is min. Not clipped to the axis; see SaturatePixel for values
  /// far away and LogMapping for those without a logarithm.
  int GetPos(double value) const { return log ? HorLog()(value) : HorLinear()(value); }
  /// Vertical pixel of a value, counted from the top: 0 is max.
  int GetPosInv(double value) const { return log ? VerLog()(value) : VerLinear()(value); }
  /// Value at a horizontal pixel, and at a vertical one.
  double GetValueByPos(int pixel) const;
  double GetValueByPosInv(int pixel) const;

  /// What GetPos (Hor) and GetPosInv (Ver) work with on a linear and on a logarithmic axis, for
  /// loops over samples. Each is good until range or scale change.
  LinearMapping HorLinear() const { return LinearMapping::FromMin(min, scale); }
  LinearMapping VerLinear() const { return LinearMapping::FromMax(max, scale); }
  LogMapping HorLog() const { return LogMapping::FromMin(min, scale); }
  LogMapping VerLog() const { return LogMapping::FromMax(min, max, scale); }

  /// The unit without and with prefix; GetName writes the latter anew at each call.
  const char* GetFuncName() const { return funcName; }
  const char* GetName();
  /// Takes the unit without prefix, cut at 15 chars but never inside a UTF-8 sequence. Null is
  /// none.
  void SetFuncName(const char* unit);

  /// Writes all labels of the present range, step and power. A slot whose text would read more than
  /// a tenth of a step off its value stays empty.
  void SetLabels();
  /// Text of a label slot, which may be empty; null for a slot that doesn't exist.
  const char* GetStr(int slot) const;
  /// What a painter adds to its slot index for each NextLabel(true): labelStep on a linear axis, 1
  /// on a logarithmic one, whose walk goes step by step. Never below 1.
  int LabelSlotStep() const { return log || labelStep < 1 ? 1 : labelStep; }

  /// Smallest span of a linear axis.
  double epsilon = 2.220446049250313e-16;
  /// Value at the left or bottom end, and at the right or top end.
  double min = 0.0;
  double max = 0.0;
  /// Axis units for each pixel, decades on a logarithmic axis. Stale after each change of range
  /// until SetScale. A resize worker writes it while the window's thread reads.
  CopyableAtomic<double> scale = 0.0;
  /// max - min, or the decades between them.
  double range = 0.0;
  /// Distance of grid lines. Of a logarithmic axis, that of the first ones.
  double step = 0.0;
  /// Linear: the smallest multiple of step that is not below min.
  double firstStep = 0.0;
  /// True while the range follows the data; false while it is fixedMin to fixedMax.
  bool autoRange = true;
  /// The range of a fixed axis; on an automatic one the range that SetParams left.
  double fixedMin = 0.0;
  double fixedMax = 0.0;
  /// One text for each step, NUL-terminated; empty for a step without a label.
  char labels[100][64] = {};
  /// Chars of the longest label.
  std::uint32_t maxLabelLength = 10;
  /// Only every labelStep-th step of a linear axis carries a label. At least 1.
  std::int32_t labelStep = 1;
  /// Labels show value x 10^power.
  std::int32_t power = 0;
  /// The unit without and with prefix.
  char funcName[kUnitChars] = {};
  char name[kUnitChars] = {};
  StepIter iter;
  /// The axis is logarithmic.
  bool log = false;
  /// Written by SetLabels: a logarithmic axis has too many steps and is labelled at decades only;
  /// where these are fewer than three, at 1, 2 and 5 of each.
  bool decadeLabels = false;
  bool twoAndFiveLabels = false;

 protected:
  void SetRange();
  void AdjustMaxMin();
  void CalculateStep();
  void CalculatePower();
  /// Brings the texts of the first slots to one length by decimals.
  void AddTrailingZeros(int count);

 private:
  void AdjustLinear();
  void AdjustLog();
  void ClearLabels();
  int WriteLinearLabels();
  int WriteLogLabels();
  bool WriteLabel(int slot, double value, double distance, int digits);
};

}  // namespace sparlow
