#pragma once

#include <optional>
#include <string>

#include "sparlow/platform/window/CDialog.h"

namespace sparlow {

/// A field for a value with its unit, over a plain edit field.
class ValueField : public CDialogItem {
 public:
  /// name is what the field is called.
  void Initialize(const char* name);
  /// The unit without prefix; null is none. Before SetValue.
  void SetupUnits(const char* unit);
  /// Shown with that many digits at most.
  void SetValue(double value, int digits);
  /// The value in the unit itself. A field that its user left alone gives back what was set, bit
  /// for bit. Nothing when the text isn't a value (ReadValue).
  std::optional<double> GetValue() const;

  const std::string& Name() const { return name_; }
  /// What a text should be that is taken.
  std::string Expectation() const;

 private:
  std::string name_;
  std::string unit_;
  std::string shown_;
  double value_ = 0.0;
};

}  // namespace sparlow
