#pragma once

#include <string>

namespace sparlow {

/// What one dialog is made of in the window system that is installed. Items go by their number;
/// where several have the same one, or none has it, the first or nothing is meant. Texts are UTF-8.
class DialogPeer {
 public:
  DialogPeer() = default;
  DialogPeer(const DialogPeer&) = delete;
  DialogPeer& operator=(const DialogPeer&) = delete;
  virtual ~DialogPeer() = default;

  virtual void EnableItem(int id, bool enable) = 0;
  virtual void CheckItem(int id, bool check) = 0;
  virtual bool IsItemChecked(int id) const = 0;
  virtual void SetItemText(int id, const std::string& utf8) = 0;
  virtual std::string ItemText(int id) const = 0;
  /// The name of an item for those who can't see its label.
  virtual void SetItemName(int id, const std::string& utf8) = 0;
  /// Moves the keyboard focus to an item, with all its text selected.
  virtual void FocusItem(int id) = 0;

  /// Shows the dialog and runs until Close. The program's other windows take no input meanwhile.
  virtual void Run() = 0;
  virtual void Close() = 0;
};

}  // namespace sparlow
