#include "sparlow/ui/ValueField.h"

#include "sparlow/platform/base/Text.h"
#include "sparlow/platform/window/WindowPeer.h"
#include "sparlow/ui/ValueText.h"

namespace sparlow {

void ValueField::Initialize(const char* name) {
  name_ = name;
  SetName(name_);
}

void ValueField::SetupUnits(const char* unit) {
  unit_ = unit ? unit : "";
}

void ValueField::SetValue(double value, int digits) {
  value_ = value;
  SetWindowText(ShowValue(value, unit_, digits));
  // As the window system gives it back, which is what an untouched text is compared with.
  shown_ = GetWindowText();
}

std::optional<double> ValueField::GetValue() const {
  const std::string text = GetWindowText();
  if (text == shown_)
    return value_;
  const WindowSystem* const system = WindowSystem::Current();
  return ReadValue(text, unit_, system ? system->DecimalSign() : ".");
}

std::string ValueField::Expectation() const {
  return std::string("a number, with a prefix (p n u m k M G T) ") +
         (unit_.empty() ? "" : "and " + ToUtf8(unit_) + " ") + "if need be";
}

}  // namespace sparlow
