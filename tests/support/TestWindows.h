#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "sparlow/platform/CWnd.h"
#include "sparlow/platform/MessageQueue.h"
#include "sparlow/platform/UiThread.h"
#include "sparlow/platform/WindowSite.h"
#include "tests/support/RecordingDevice.h"

namespace sparlow::test {

/// A window that opens nothing: its surface records what is drawn, and the test sets its size.
class TestWindow : public WindowPeer {
 public:
  explicit TestWindow(WindowSite& site) : site_(site) {}

  Device& Surface() override { return *surface; }
  void Present() override { ++presented; }
  bool IsShown() const override { return shown; }
  void Show(bool show) override { shown = show; }
  void ShowScrollBar(int bar, bool show) override {
    barShown[bar] = show;
    if (onShowScrollBar)
      onShowScrollBar();
  }
  void SetTitle(const std::string&) override {}

  void Resize(CSize size) {
    surface = std::make_unique<RecordingDevice>(size);
    site_.Resized(size);
  }

  std::unique_ptr<RecordingDevice> surface = std::make_unique<RecordingDevice>(CSize{});
  int presented = 0;
  bool shown = true;
  bool barShown[2] = {true, true};
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
};

}  // namespace sparlow::test
