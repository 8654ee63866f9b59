#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/CWnd.h"
#include "sparlow/platform/window/DialogPeer.h"
#include "sparlow/platform/window/MessageQueue.h"
#include "sparlow/platform/window/Resources.h"
#include "sparlow/platform/window/WindowSite.h"
#include "tests/support/RecordingDevice.h"

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

/// A window that opens nothing: its surface records what is drawn, and the test sets its size.
class TestWindow : public WindowPeer {
 public:
  explicit TestWindow(WindowSite& site) : site_(site) {}

  Device& Surface() override { return *surface; }
  void Present() override {}
  bool IsShown() const override { return shown; }
  void Show(bool show) override { shown = show; }
  void ShowScrollBar(int bar, bool show) override {
    barShown[bar] = show;
    if (onShowScrollBar)
      onShowScrollBar();
  }
  SCROLLINFO GetScrollInfo(int bar) const override { return bars[bar]; }
  void SetScrollInfo(int bar, const SCROLLINFO& info) override { bars[bar] = info; }
  void SetTitle(const std::string&) override {}
  void SetCapture(bool capture) override { captured = capture; }
  CPoint ToScreen(CPoint client) const override { return {client.x + at.x, client.y + at.y}; }
  CPoint FromScreen(CPoint screen) const override { return {screen.x - at.x, screen.y - at.y}; }

  void Resize(CSize size) {
    surface->Remake(size);
    site_.Resized(size);
  }

  std::unique_ptr<RecordingDevice> surface = std::make_unique<RecordingDevice>(CSize{});
  bool shown = true;
  bool barShown[2] = {true, true};
  SCROLLINFO bars[2];
  bool captured = false;
  CPoint at{100, 50};  ///< on the screen
  std::function<void()> onShowScrollBar;

 private:
  WindowSite& site_;
};

/// A window system without a screen. The thread that makes it is the window's thread while it
/// lives.
class TestWindows : public WindowSystem {
 public:
  TestWindows() {
    Install(this);
    UiThread::Attach([] {});
    UiThread::SetBoxHandler([this](const BoxRequest& box) {
      boxes.push_back(box.text);
      return IDOK;
    });
  }
  ~TestWindows() override {
    UiThread::Detach();
    Install(nullptr);
  }

  std::unique_ptr<WindowPeer> CreatePeer(WindowSite& site, std::uint32_t) override {
    return std::make_unique<TestWindow>(site);
  }
  UINT TrackMenu(CMenu& menu, CPoint at, HWND owner) override {
    return onMenu ? onMenu(menu, at, owner) : 0;
  }
  std::unique_ptr<DialogPeer> CreateDialogPeer(const DialogTemplate& form, HWND dialog,
                                               HWND) override {
    return std::make_unique<TestDialog>(form, dialog, onDialog);
  }
  void OpenHelp(const std::string& path, std::uintptr_t topic) override {
    help.emplace_back(path, topic);
  }

  CPoint PointerPosition() const override { return pointerAt; }
  void ShowPointer(HCURSOR shape) override { pointer = shape; }
  bool IsKeyDown(WPARAM key) const override { return key == VK_SHIFT && shiftDown; }

  static TestWindow& Of(const CWnd& window) { return static_cast<TestWindow&>(*window.GetPeer()); }

  /// Handles what is posted and paints what is due, until nothing is.
  static void Pump() {
    while (MessageQueue::Serve()) {
    }
  }
  /// Pumps until something holds. False when it doesn't come to hold within half a minute.
  static bool PumpUntil(const std::function<bool()>& holds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    for (Pump(); !holds(); Pump()) {
      if (std::chrono::steady_clock::now() > end)
        return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
  }

  std::vector<std::string> boxes;
  std::vector<std::pair<std::string, std::uintptr_t>> help;
  /// What the user does: with a menu, giving the command chosen, and with a dialog.
  std::function<UINT(CMenu&, CPoint, HWND)> onMenu;
  std::function<void(TestDialog&)> onDialog;
  CPoint pointerAt;  ///< on the screen
  HCURSOR pointer = nullptr;
  bool shiftDown = false;
};

}  // namespace sparlow::test
