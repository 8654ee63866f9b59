#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/CWnd.h"
#include "sparlow/platform/window/MessageQueue.h"
#include "sparlow/platform/window/WindowSite.h"
#include "tests/support/RecordingDevice.h"
#include "tests/support/TestDialog.h"

namespace sparlow::test {

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
