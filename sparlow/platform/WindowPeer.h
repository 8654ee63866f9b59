#pragma once

#include <memory>
#include <string>

#include "sparlow/platform/Device.h"
#include "sparlow/platform/Messages.h"

namespace sparlow {

class WindowSite;

/// What one window is made of in the window system that is installed.
/// Threads: the window's.
class WindowPeer {
 public:
  WindowPeer() = default;
  WindowPeer(const WindowPeer&) = delete;
  WindowPeer& operator=(const WindowPeer&) = delete;
  virtual ~WindowPeer() = default;

  /// The window's own pixels, as large as its client area. They stay until the next change of size.
  virtual Device& Surface() = 0;
  /// The surface has changed: brings it to the screen, soon.
  virtual void Present() = 0;
  /// False while nobody could see a paint.
  virtual bool IsShown() const = 0;
  virtual void Show(bool show) = 0;
  /// bar is SB_HORZ or SB_VERT. When the client area changes with it, the site's Resized has run
  /// before this returns.
  virtual void ShowScrollBar(int bar, bool show) = 0;
  virtual void SetTitle(const std::string& utf8) = 0;
};

/// A window system: makes the peers that the windows of this process stand on.
/// Threads: the window's.
class WindowSystem {
 public:
  WindowSystem() = default;
  WindowSystem(const WindowSystem&) = delete;
  WindowSystem& operator=(const WindowSystem&) = delete;
  virtual ~WindowSystem() = default;

  /// Makes a hidden window. The peer tells events to site, which outlives it. style: WS_*.
  virtual std::unique_ptr<WindowPeer> CreatePeer(WindowSite& site, std::uint32_t style) = 0;

  /// The one that is installed, or null. Installed by whoever brings the application up, and taken
  /// away by null before it goes down, when no window is left.
  static WindowSystem* Current();
  static void Install(WindowSystem* system);
};

}  // namespace sparlow
