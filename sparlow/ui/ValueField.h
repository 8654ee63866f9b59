#pragma once

#include <optional>
#include <string>

#include "sparlow/platform/CDialog.h"

namespace sparlow {

/// A field for a value with its unit, over a plain edit field.
/// Threads: the window's.
class ValueField : public CDialogItem {
 public:
  /// name is what the field is called. min and max limit the number shown, before its prefix.
  void Initialize(const char* name, double min, double max);
  /// The unit without prefix; null is none. Before SetValue.
  void SetupUnits(const char* unit);
  void SetValue(double value);
  /// The value in the unit itself. A field that its user left alone gives back what was set, bit
  /// for bit, within the limits or not. Nothing when the text isn't a value (ReadValue).
  std::optional<double> GetValue() const;

  const std::string& Name() const { return name_; }
  /// What a text should be that is taken.
  std::string Expectation() const;

 private:
  std::string name_;
  std::string unit_;
  std::string shown_;
  double value_ = 0.0;
  double min_ = 0.0;
  double max_ = 0.0;
};

}  // namespace sparlow
