#pragma once

#include <Qt>
#include <optional>

#include "sparlow/platform/qt/ImageDevice.h"
#include "sparlow/platform/window/WindowPeer.h"

class QKeyEvent;
class QMouseEvent;

namespace sparlow::qt {

class QtWidget;
class QtWindowSystem;

/// A window over a widget with scroll bars. The surface is here and not in the widget, since a
/// context on it may outlive the widget by the rest of a message. So does this object, and after
/// any message the widget may be gone.
class QtWindow final : public WindowPeer {
 public:
  QtWindow(WindowSite& site, QtWindowSystem& system, std::uint32_t style);
  ~QtWindow() override;

  void End() override;
  Device& Surface() override { return surface_; }
  void Present() override;
  bool IsShown() const override;
  void Show(bool show) override;
  void ShowScrollBar(int bar, bool show) override;
  SCROLLINFO GetScrollInfo(int bar) const override;
  void SetScrollInfo(int bar, const SCROLLINFO& info) override;
  void SetTitle(const std::string& utf8) override;
  void SetCapture(bool capture) override;
  CPoint ToScreen(CPoint client) const override;
  CPoint FromScreen(CPoint screen) const override;

  const ImageDevice& Pixels() const { return surface_; }
  /// Null when the window has ended.
  QtWidget* Widget() const { return widget_; }
  /// Makes the client area so large, as far as the widget's surroundings let it.
  void SetClientSize(CSize size);

  /// Makes the surface as large and as fine as the viewport is, and notifies the site. Nothing
  /// happens when that is so already, or while the window's thread waits: then the next Serve comes
  /// back.
  void SyncSize();
  /// Reports to the window what had to wait: its size, that the mouse was taken from it,
  /// focus and activation.
  void CatchUp();

  /// @name Input, from the widget
  /// While the window's thread waits, presses, moves and keys come to nothing, and the rest is
  /// reported later.
  ///@{

  void Mouse(UINT message, const QMouseEvent& event);
  /// Returns true for a key that is this window's matter and nobody else's.
  bool Key(bool down, const QKeyEvent& event);
  void Scrolled(int bar, int code, int position);
  /// A menu opens: it gets the release of a key that is down.
  void KeysTaken();
  void FocusChanged(bool focused);
  void ActivationChanged(bool active);
  /// Something else gets the mouse from now on. The window is notified later.
  void MouseTaken();
  void ShowPointer(HCURSOR shape);
  ///@}

  /// @name From the widget
  /// The window has ended after each of these.
  ///@{

  void WidgetGone();
  void Closed();
  ///@}

 private:
  void setBarPolicy(int bar, bool show);
  void layOut();
  void setPointer(HCURSOR shape);
  void sendFocus();

  struct KeyStroke {
    WPARAM key;
    quint64 time;  // of the system's event, in ms; 0 for none
    Qt::KeyboardModifiers modifiers;
  };
  void keyEvent(bool down, WPARAM key, const QKeyEvent& event);
  void sendKey(bool down, const KeyStroke& stroke, bool before);
  // The release that is held back, if any.
  void sendRelease();

  WindowSite& site_;
  QtWindowSystem& system_;
  QtWidget* widget_;
  ImageDevice surface_;
  bool sizeKnown_ = false;  // the site knows the size

  Qt::MouseButtons buttons_;  // that are down
  bool grabbed_ = false;
  bool mouseTaken_ = false;
  HCURSOR pointer_ = nullptr;
  bool pointerSet_ = false;               // since the mouse moved last
  std::optional<KeyStroke> heldRelease_;  // may turn out to be half of a repeat
  std::optional<KeyStroke> downKey_;      // was sent last, and not let go
  bool focused_ = false;
  bool sentFocused_ = false;
  bool active_ = false;
  bool sentActive_ = false;
};

}  // namespace sparlow::qt
