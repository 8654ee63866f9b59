#include "sparlow/ui/ValueField.h"

#include "sparlow/platform/Text.h"
#include "sparlow/ui/ValueText.h"

namespace sparlow {

void ValueField::Initialize(const char* name, double min, double max) {
  name_ = name;
  min_ = min;
  max_ = max;
  SetName(name_);
}

void ValueField::SetupUnits(const char* unit) {
  unit_ = unit ? unit : "";
}

void ValueField::SetValue(double value) {
  value_ = value;
  SetWindowText(ShowValue(value, unit_));
  // As the window system gives it back, which is what an untouched text is compared with.
  shown_ = GetWindowText();
}

std::optional<double> ValueField::GetValue() const {
  const std::string text = GetWindowText();
  return text == shown_ ? value_ : ReadValue(text, unit_, min_, max_);
}

std::string ValueField::Expectation() const {
  constexpr int digits = 8;
  return "a number from " + FormatNumber(min_, digits) + " to " + FormatNumber(max_, digits) +
         ", with a prefix (p n u m k M G T) " +
         (unit_.empty() ? "" : "and " + ToUtf8(unit_) + " ") + "if need be";
}

}  // namespace sparlow
