#pragma once

#include "sparlow/platform/qt/QtCaptureWatch.h"
#include "sparlow/platform/window/WindowPeer.h"

namespace sparlow::qt {

class QtWindow;

/// The window system over Qt.
class QtWindowSystem final : public WindowSystem {
 public:
  std::unique_ptr<WindowPeer> CreatePeer(WindowSite& site, std::uint32_t style) override;

  UINT TrackMenu(CMenu& menu, CPoint at, HWND owner) override;
  std::unique_ptr<DialogPeer> CreateDialogPeer(const DialogTemplate& form, HWND dialog,
                                               HWND owner) override;
  void OpenHelp(const std::string& path, std::uintptr_t topic) override;
  std::string DecimalSign() const override;
  void WindowGone(HWND window) override;

  CPoint PointerPosition() const override;
  void ShowPointer(HCURSOR shape) override;
  bool IsKeyDown(WPARAM key) const override;

  QtCaptureWatch& CaptureWatch() { return captureWatch_; }
  /// An event comes: over a window that it is the mouse's, else null.
  void NoteInput(QtWindow* window, Qt::KeyboardModifiers modifiers);
  void Forget(QtWindow* window);

  /// Windows that couldn't be notified before catch up.
  static void CatchUp();

 private:
  QtCaptureWatch captureWatch_;
  QtWindow* pointerOver_ = nullptr;  // the mouse was last over
  Qt::KeyboardModifiers modifiers_;
};

}  // namespace sparlow::qt
