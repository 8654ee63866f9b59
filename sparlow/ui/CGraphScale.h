#pragma once

#include <string>

#include "sparlow/graph/AxisRangeEditor.h"
#include "sparlow/platform/window/CDialog.h"
#include "sparlow/platform/window/Resources.h"
#include "sparlow/ui/ValueField.h"

namespace sparlow {

/// Number of the dialog "Define Axis", and of its items.
inline constexpr int IDD_GRAPH_SCALE = 193;
inline constexpr int IDC_AUTO_RANGE = 1003;
inline constexpr int IDC_MIN_VALUE = 32959;
inline constexpr int IDC_MAX_VALUE = 32960;

/// The dialog "Define Axis": fixes the range of an axis, or gives it back to automatic ranging. Set
/// the values, run it, read them back, however it was closed: after a cancel the limits are those
/// that were set, but the automatic mode is what the user last chose.
class CGraphScale : public CDialog {
 public:
  /// A null parent is the main window.
  explicit CGraphScale(const CWnd* parent);

  /// One end of the range, in the axis's own unit.
  void SetLimit(double value, bool min) { (min ? minValue : maxValue) = value; }
  double GetLimit(bool min) const { return min ? minValue : maxValue; }
  /// Without prefix; null is none.
  void SetUnits(const char* text) { units = text ? text : ""; }
  /// The axis is logarithmic: a minimum that isn't above 0 is refused.
  void SetLog(bool on) { log = on; }
  void SetAutoRange(bool on) { autoRange = on; }
  bool GetAutoRange() const { return autoRange; }

  /// What the dialog looks like, to be entered among the resources.
  static DialogTemplate Template();

  static const CRuntimeClass classCGraphScale;
  const CRuntimeClass* GetRuntimeClass() const override { return &classCGraphScale; }

 protected:
  bool OnInitDialog() override;
  void DoDataExchange(CDataExchange* exchange) override;
  void OnOK() override;
  const MessageMap* GetMessageMap() const override { return &messageMap; }

  ValueField maxCtrl;
  ValueField minCtrl;
  double maxValue = 0.0;
  double minValue = 0.0;
  CString units;
  bool autoRange = true;
  bool log = false;
  CButton autoRangeCheck;

 private:
  void setUp(ValueField& field, int id, const char* name, double value, double other);
  void EnableValues();
  void OnAutoRange();
  LRESULT OnHelpInfo(WPARAM, LPARAM);

  static const MessageEntry messageEntries[];
  static const MessageMap messageMap;
};

/// Edits ranges with that dialog.
class AxisDialog : public AxisRangeEditor {
 public:
  void Edit(AxisRange& range) override;
};

}  // namespace sparlow
