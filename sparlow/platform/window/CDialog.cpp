#include "sparlow/platform/window/CDialog.h"

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/DialogPeer.h"
#include "sparlow/platform/window/Resources.h"
#include "sparlow/platform/window/WindowPeer.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow {

const CRuntimeClass CDialog::classCDialog{"CDialog", nullptr, &CWnd::classCWnd};
const MessageEntry CDialog::messageEntries[] = {
    {WM_INITDIALOG, Handle<CDialog, &CDialog::onInitDialog>},
    {WM_DESTROY, Handle<CDialog, &CDialog::onDestroy>},
    {WM_COMMAND, HandleCommand<CDialog, &CDialog::OnOK>, IDOK, IDOK},
    {WM_COMMAND, HandleCommand<CDialog, &CDialog::OnCancel>, IDCANCEL, IDCANCEL},
};
const MessageMap CDialog::messageMap{&CWnd::messageMap, messageEntries};

CDialog::CDialog(int resource, const CWnd* parent)
    : resource_(resource), parent_(parent ? parent->GetSafeHwnd() : nullptr) {}

CDialog::~CDialog() = default;

int CDialog::DoModal() {
  WindowSystem* const system = WindowSystem::Current();
  const DialogTemplate* const form = Resources::FindDialog(resource_);
  if (!system || !form || peer_ || !CreateMessageOnly())
    return -1;
  ended_ = false;
  peer_ = system->CreateDialogPeer(*form, GetSafeHwnd(), parent_);
  WindowProc(WM_INITDIALOG, 0, 0);
  if (!ended_)
    peer_->Run();
  // A window system that goes down ends the run without a word.
  EndDialog(IDCANCEL);
  const int result = result_;
  peer_ = nullptr;
  DestroyWindow();
  return result;
}

void CDialog::EndDialog(int result) {
  if (ended_ || !peer_)
    return;
  ended_ = true;
  result_ = result;
  peer_->Close();
}

bool CDialog::OnInitDialog() {
  CDataExchange exchange{this};
  DoDataExchange(&exchange);
  return true;
}

void CDialog::OnOK() {
  EndDialog(IDOK);
}

void CDialog::OnCancel() {
  EndDialog(IDCANCEL);
}

LRESULT CDialog::onInitDialog(WPARAM, LPARAM) {
  return OnInitDialog();
}

LRESULT CDialog::onDestroy(WPARAM, LPARAM) {
  EndDialog(IDCANCEL);
  return Default();
}

void DDX_Control(CDataExchange* exchange, int id, CDialogItem& item) {
  if (exchange && exchange->dialog)
    item.Attach(*exchange->dialog, id);
}

void CDialogItem::Attach(CDialog& dialog, int id) {
  dialog_ = &dialog;
  id_ = id;
}

DialogPeer* CDialogItem::peer() const {
  return dialog_ ? dialog_->peer_.get() : nullptr;
}

void CDialogItem::EnableWindow(bool enable) {
  if (DialogPeer* const p = peer())
    p->EnableItem(id_, enable);
}

void CDialogItem::SetWindowText(const std::string& text) {
  if (DialogPeer* const p = peer())
    p->SetItemText(id_, text);
}

std::string CDialogItem::GetWindowText() const {
  const DialogPeer* const p = peer();
  return p ? p->ItemText(id_) : std::string();
}

void CDialogItem::SetName(const std::string& name) {
  if (DialogPeer* const p = peer())
    p->SetItemName(id_, name);
}

void CDialogItem::SetFocus() {
  if (DialogPeer* const p = peer())
    p->FocusItem(id_);
}

void CButton::SetCheck(bool check) {
  if (DialogPeer* const p = peer())
    p->CheckItem(id(), check);
}

bool CButton::GetCheck() const {
  const DialogPeer* const p = peer();
  return p && p->IsItemChecked(id());
}

}  // namespace sparlow
