#include "sparlow/ui/CGraphScale.h"

#include "sparlow/platform/base/ErrorBox.h"
#include "sparlow/platform/base/Text.h"
#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/Help.h"
#include "sparlow/ui/ValueText.h"

namespace sparlow {

namespace {

/// What a text that is refused may take of the box that says so.
constexpr std::size_t quotedChars = 60;
/// The topics of dialogs begin here; the number of the dialog follows.
constexpr std::uintptr_t dialogTopics = 0x20000;

void refuse(ValueField& field) {
  const std::string text = field.GetWindowText();
  ShowErrorBox(MB_ICONHAND, "Input error", "%s: \"%s\" is not %s.", field.Name().c_str(),
               std::string(CutText(text, quotedChars)).c_str(), field.Expectation().c_str());
  field.SetFocus();
}

}  // namespace

const CRuntimeClass CGraphScale::classCGraphScale{"CGraphScale", nullptr, &CDialog::classCDialog};
const MessageEntry CGraphScale::messageEntries[] = {
    {WM_HELP, Handle<CGraphScale, &CGraphScale::OnHelpInfo>},
    {WM_COMMAND, HandleCommand<CGraphScale, &CGraphScale::OnAutoRange>, IDC_AUTO_RANGE,
     IDC_AUTO_RANGE},
};
const MessageMap CGraphScale::messageMap{&CDialog::messageMap, messageEntries};

DialogTemplate CGraphScale::Template() {
  using Kind = DialogItemTemplate::Kind;
  return {"Define Axis",
          true,
          {{1197, Kind::label, 2, "Min"},
           {1198, Kind::label, 1, "Max"},
           {IDOK, Kind::defaultButton, 3, "OK"},
           {IDCANCEL, Kind::button, 3, "Cancel"},
           {IDC_MIN_VALUE, Kind::edit, 2, ""},
           {IDC_MAX_VALUE, Kind::edit, 1, ""},
           {IDC_AUTO_RANGE, Kind::checkBox, 0, "Auto Range"}}};
}

CGraphScale::CGraphScale(const CWnd* parent) : CDialog(IDD_GRAPH_SCALE, parent) {}

void CGraphScale::DoDataExchange(CDataExchange* exchange) {
  CDialog::DoDataExchange(exchange);
  DDX_Control(exchange, IDC_AUTO_RANGE, autoRangeCheck);
}

bool CGraphScale::OnInitDialog() {
  CDialog::OnInitDialog();
  setUp(maxCtrl, IDC_MAX_VALUE, "Maximum", maxValue, minValue);
  setUp(minCtrl, IDC_MIN_VALUE, "Minimum", minValue, maxValue);
  autoRangeCheck.SetCheck(autoRange);
  EnableValues();
  return true;
}

void CGraphScale::setUp(ValueField& field, int id, const char* name, double value, double other) {
  field.Attach(*this, id);
  field.Initialize(name);
  field.SetupUnits(units.c_str());
  field.SetValue(value, DigitsToTell(value, other));
}

void CGraphScale::EnableValues() {
  maxCtrl.EnableWindow(!autoRange);
  minCtrl.EnableWindow(!autoRange);
}

void CGraphScale::OnAutoRange() {
  autoRange = autoRangeCheck.GetCheck();
  EnableValues();
}

void CGraphScale::OnOK() {
  const std::optional<double> min = minCtrl.GetValue();
  const std::optional<double> max = maxCtrl.GetValue();
  if (!autoRange) {
    if (!min || !max)
      return refuse(min ? maxCtrl : minCtrl);
    if (!(*max > *min)) {
      ShowErrorBox(MB_ICONHAND, "Input error", "Maximum value must be greater than minimum value.");
      return;
    }
    if (log && !(*min > 0.0)) {
      ShowErrorBox(MB_ICONHAND, "Input error",
                   "Minimum value of a logarithmic axis must be greater than zero.");
      minCtrl.SetFocus();
      return;
    }
  }
  // With automatic ranging the fields can't be corrected, so a bad one leaves the value as it was.
  minValue = min.value_or(minValue);
  maxValue = max.value_or(maxValue);
  CDialog::OnOK();
}

LRESULT CGraphScale::OnHelpInfo(WPARAM, LPARAM) {
  std::string path = GetModuleFileName();
  const std::size_t separator = path.find_last_of("\\/:");
  if (separator != std::string::npos)
    path.resize(separator + 1);
  path += "Merivox.chm";
  HtmlHelp(GetSafeHwnd(), path.c_str(), HH_HELP_CONTEXT, dialogTopics + IDD_GRAPH_SCALE);
  return 1;
}

void AxisDialog::Edit(AxisRange& range) {
  CGraphScale dialog(nullptr);
  dialog.SetLimit(range.min, true);
  dialog.SetLimit(range.max, false);
  dialog.SetUnits(range.unit.c_str());
  dialog.SetLog(range.log);
  dialog.SetAutoRange(range.autoRange);
  range.confirmed = dialog.DoModal() == IDOK;
  range.min = dialog.GetLimit(true);
  range.max = dialog.GetLimit(false);
  range.autoRange = dialog.GetAutoRange();
}

}  // namespace sparlow
