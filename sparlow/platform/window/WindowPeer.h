#pragma once

#include <memory>
#include <string>

#include "sparlow/platform/paint/Device.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/platform/window/Messages.h"

namespace sparlow {

class CMenu;
class DialogPeer;
struct DialogTemplate;
class WindowSite;

/// What one window is made of in the window system that is installed.
class WindowPeer {
 public:
  WindowPeer() = default;
  WindowPeer(const WindowPeer&) = delete;
  WindowPeer& operator=(const WindowPeer&) = delete;
  virtual ~WindowPeer() = default;

  /// The window ends: what is on the screen goes, and nothing is reported any more. The surface
  /// stays as long as the peer.
  virtual void End() {}
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
  /// State of a bar, SB_HORZ or SB_VERT; a thumb that is dragged has its own position until it is
  /// released, and doesn't move the bar's.
  virtual SCROLLINFO GetScrollInfo(int bar) const = 0;
  virtual void SetScrollInfo(int bar, const SCROLLINFO& info) = 0;
  virtual void SetTitle(const std::string& utf8) = 0;
  /// All mouse messages go to this window, or not any more. A peer that loses the mouse by itself
  /// reports that by CaptureLost.
  virtual void SetCapture(bool capture) = 0;
  /// From pixels of the client area to those of the screen, and back.
  virtual CPoint ToScreen(CPoint client) const = 0;
  virtual CPoint FromScreen(CPoint screen) const = 0;
};

/// A window system: makes the peers that the windows of this process stand on.
class WindowSystem {
 public:
  WindowSystem() = default;
  WindowSystem(const WindowSystem&) = delete;
  WindowSystem& operator=(const WindowSystem&) = delete;
  virtual ~WindowSystem() = default;

  /// Makes a hidden window. The peer reports events to site, which outlives it. style: WS_*.
  virtual std::unique_ptr<WindowPeer> CreatePeer(WindowSite& site, std::uint32_t style) = 0;

  /// Shows a popup menu at a point of the screen until something is chosen or it is closed, and
  /// returns the command that was chosen, or 0. Each menu that opens notifies the owner first
  /// (CMenu::NotifyOpening), which may change it. It closes by itself when the owner ends.
  virtual UINT TrackMenu(CMenu& menu, CPoint at, HWND owner) = 0;
  /// Makes a dialog, not yet shown, of the items of a template. What happens to it is sent to
  /// dialog: WM_COMMAND of a button or a check box that was clicked (IDCANCEL also when it is
  /// closed), WM_HELP. It is cancelled when the owner ends; a null owner is the main window.
  virtual std::unique_ptr<DialogPeer> CreateDialogPeer(const DialogTemplate& form, HWND dialog,
                                                       HWND owner) = 0;
  /// Opens a help file with whatever shows it, at a topic if that can be done. Nothing happens when
  /// there is no such file.
  virtual void OpenHelp(const std::string& path, std::uintptr_t topic) = 0;
  /// What stands between the whole and the decimals of a number as the user writes it; UTF-8.
  virtual std::string DecimalSign() const { return "."; }
  /// A window has ended: its handle names nothing any more.
  virtual void WindowGone(HWND) {}

  /// Where the mouse is, in screen pixels.
  virtual CPoint PointerPosition() const = 0;
  /// Shows a shape until the mouse moves on; null: the arrow.
  virtual void ShowPointer(HCURSOR shape) = 0;
  /// Is the key VK_* down, as far as the message that is being handled knows?
  virtual bool IsKeyDown(WPARAM key) const = 0;

  /// The one that is installed, or null. Installed by whoever brings the application up, and taken
  /// away by null before it goes down, when no window is left.
  static WindowSystem* Current();
  static void Install(WindowSystem* system);
};

}  // namespace sparlow
