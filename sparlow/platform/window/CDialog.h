#pragma once

#include <memory>
#include <string>

#include "sparlow/platform/window/CWnd.h"

namespace sparlow {

class CDialog;
class DialogPeer;

/// One item of a dialog, by its number. It does nothing, and reads as empty, without a dialog that
/// is open.
class CDialogItem {
 public:
  void Attach(CDialog& dialog, int id);

  void EnableWindow(bool enable);
  /// Texts are UTF-8.
  void SetWindowText(const std::string& text);
  std::string GetWindowText() const;
  /// What the item is called by those who can't see its label.
  void SetName(const std::string& name);
  /// Moves the keyboard focus here.
  void SetFocus();

 protected:
  DialogPeer* peer() const;
  int id() const { return id_; }

 private:
  CDialog* dialog_ = nullptr;
  int id_ = 0;
};

/// A button or a check box of a dialog.
class CButton : public CDialogItem {
 public:
  void SetCheck(bool check);
  bool GetCheck() const;
};

/// Which dialog binds its items.
/// Threads: the window's.
struct CDataExchange {
  CDialog* dialog;
};

/// Binds an item of a dialog to an object.
void DDX_Control(CDataExchange* exchange, int id, CDialogItem& item);

/// A dialog that keeps the other windows from input while it is open. It gets the WM_COMMAND of its
/// buttons and check boxes, and WM_HELP.
class CDialog : public CWnd {
 public:
  /// A dialog of the resource of that number. It closes with its parent, null being the main
  /// window.
  explicit CDialog(int resource, const CWnd* parent = nullptr);
  ~CDialog() override;

  /// Runs the dialog and returns what it was ended with: IDOK, IDCANCEL, or what EndDialog got. -1
  /// when there is no such resource or no window system, or the dialog runs already. Posted
  /// messages and paints are served meanwhile, so that any other window may be gone after it.
  virtual int DoModal();
  void EndDialog(int result);

  static const CRuntimeClass classCDialog;
  const CRuntimeClass* GetRuntimeClass() const override { return &classCDialog; }

 protected:
  /// Before the dialog is shown: binds the items. The result makes no difference.
  virtual bool OnInitDialog();
  virtual void DoDataExchange(CDataExchange*) {}
  /// End the dialog with IDOK and IDCANCEL.
  virtual void OnOK();
  virtual void OnCancel();
  const MessageMap* GetMessageMap() const override { return &messageMap; }

  static const MessageMap messageMap;

 private:
  friend class CDialogItem;
  LRESULT onInitDialog(WPARAM, LPARAM);
  LRESULT onDestroy(WPARAM, LPARAM);
  static const MessageEntry messageEntries[];

  const int resource_;
  const HWND parent_;
  std::unique_ptr<DialogPeer> peer_;
  int result_ = 0;
  bool ended_ = false;
};

}  // namespace sparlow
