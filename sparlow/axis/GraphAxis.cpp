#include "sparlow/axis/GraphAxis.h"

#include <cstring>

namespace sparlow {

namespace {

// A range may be kept while its unit changes, as one that was preset is: power and labels follow.
void takeUnit(AxisData& axis, const char* unit) {
  char before[kUnitChars];
  std::memcpy(before, axis.funcName, kUnitChars);
  axis.SetFuncName(unit);
  if (axis.max > axis.min && std::strcmp(before, axis.funcName) != 0)
    axis.SetAuxParams(axis.funcName);
}

}  // namespace

GraphAxis::GraphAxis(int marginPercent, bool autoZoom, int verticalLabelStep, bool verticalLog)
    : yAutoZoom(autoZoom), yMarginPercent(marginPercent) {
  ver.labelStep = verticalLabelStep;
  ver.log = verticalLog;
}

void GraphAxis::Reset() {
  preset = false;
  hor.Reset();
  ver.Reset();
}

void GraphAxis::SetHor(double min, double max) {
  preset = false;
  hor.SetMin(min);
  hor.SetMax(max);
  hor.SetParams();
}

void GraphAxis::SetVer(double min, double max) {
  preset = false;
  ver.SetMin(min);
  ver.SetMax(max);
  if (yAutoZoom)
    ver.CorrectMinMax(yMarginPercent);
  ver.SetParams();
}

void GraphAxis::SetRange(double yMin, double yMax, double xMin, double xMax) {
  SetHor(xMin, xMax);
  SetVer(yMin, yMax);
}

void GraphAxis::Preset(double yMin, double yMax, double xMin, double xMax) {
  SetRange(yMin, yMax, xMin, xMax);
  preset = true;
}

bool GraphAxis::Valid() const {
  return hor.max > hor.min && ver.max > ver.min && hor.scale != 0.0 && ver.scale != 0.0;
}

void GraphAxis::SetUnits(const char* xUnit, const char* yUnit) {
  takeUnit(hor, xUnit);
  takeUnit(ver, yUnit);
}

}  // namespace sparlow
