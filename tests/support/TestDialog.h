#pragma once

#include <functional>
#include <map>
#include <string>

#include "sparlow/platform/window/DialogPeer.h"
#include "sparlow/platform/window/Resources.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow::test {

/// A dialog that opens nothing: what its user does is told by the test, and it is cancelled after
/// that.
class TestDialog : public DialogPeer {
 public:
  using Script = std::function<void(TestDialog&)>;
  struct Item {
    std::string text;
    bool enabled = true;
    bool checked = false;
  };

  TestDialog(const DialogTemplate& form, HWND dialog, Script script)
      : dialog_(dialog), script_(std::move(script)) {
    for (const DialogItemTemplate& item : form.items)
      items[item.id].text = item.text;
  }

  void EnableItem(int id, bool enable) override { items[id].enabled = enable; }
  void CheckItem(int id, bool check) override { items[id].checked = check; }
  bool IsItemChecked(int id) const override { return items.at(id).checked; }
  void SetItemText(int id, const std::string& utf8) override { items[id].text = utf8; }
  std::string ItemText(int id) const override { return items.at(id).text; }
  void SetItemName(int, const std::string&) override {}
  void FocusItem(int id) override { focus = id; }
  void Run() override {
    if (script_)
      script_(*this);
  }
  void Close() override { closed = true; }

  void Click(int id) {
    items[id].checked = !items[id].checked;
    SendMessage(dialog_, WM_COMMAND, static_cast<WPARAM>(id), 0);
  }
  void AskForHelp() { SendMessage(dialog_, WM_HELP, 0, 0); }

  std::map<int, Item> items;
  int focus = 0;
  bool closed = false;

 private:
  const HWND dialog_;
  const Script script_;
};

}  // namespace sparlow::test
