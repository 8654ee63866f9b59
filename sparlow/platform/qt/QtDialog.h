#pragma once

#include <map>
#include <memory>

#include "sparlow/platform/window/DialogPeer.h"
#include "sparlow/platform/window/Messages.h"
#include "sparlow/platform/window/Resources.h"

class QDialog;
class QLineEdit;
class QWidget;

namespace sparlow::qt {

class QtModal;

/// A dialog of a template, laid out as a form.
class QtDialog final : public DialogPeer {
 public:
  /// owner as in WindowSystem::CreateDialogPeer.
  QtDialog(const DialogTemplate& form, HWND dialog, HWND owner);
  ~QtDialog() override;

  void EnableItem(int id, bool enable) override;
  void CheckItem(int id, bool check) override;
  bool IsItemChecked(int id) const override;
  void SetItemText(int id, const std::string& utf8) override;
  std::string ItemText(int id) const override;
  void SetItemName(int id, const std::string& utf8) override;
  void FocusItem(int id) override;
  void Run() override;
  void Close() override;

 private:
  QWidget* makeItem(const DialogItemTemplate& item);
  QWidget* find(int id) const;
  template <class Widget>
  Widget* findAs(int id) const;

  const HWND dialog_;
  const HWND owner_;
  const std::unique_ptr<QDialog> widget_;
  std::map<int, QWidget*> items_;
};

}  // namespace sparlow::qt
