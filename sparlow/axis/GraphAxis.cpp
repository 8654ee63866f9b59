#include "sparlow/axis/GraphAxis.h"

namespace sparlow {

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
  hor.SetFuncName(xUnit);
  ver.SetFuncName(yUnit);
}

}  // namespace sparlow
