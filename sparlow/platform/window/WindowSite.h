#pragma once

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

#include "sparlow/platform/window/WindowPeer.h"

namespace sparlow {

/// One window: joins its CWnd, its peer and its handle, and keeps what other threads may ask. A
/// peer notifies it.
///
/// A window ends at once. What it was made of, its CWnd and its peer, is deleted when no WindowHold
/// is left, since some of it is still at work then.
/// Threads: as each operation states.
class WindowSite : public std::enable_shared_from_this<WindowSite> {
 public:
  explicit WindowSite(CWnd& window);

  HWND handle() const { return handle_; }
  /// Null when the window has ended.
  WindowPeer* peer() const { return ended_ ? nullptr : peer_.get(); }
  bool Ended() const { return ended_; }
  void SetPeer(std::unique_ptr<WindowPeer> peer) { peer_ = std::move(peer); }

  /// @name From the peer
  /// The window's thread.
  ///@{

  /// The client area has a new size. Everything in it is invalid; WM_SIZE is sent at once.
  void Resized(CSize size);
  /// Sends a message to the window at once; 0 when the window has gone.
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  ///@}

  /// @name Marks and values
  /// Any thread. None of these waits.
  ///@{
  CSize ClientSize() const;
  void Invalidate();
  bool IsInvalid() const { return invalid_.load(std::memory_order_acquire); }
  ///@}

  /// Paints if a paint is due and can be seen. The window's thread.
  void PaintIfDue();
  /// Ends the window: WM_DESTROY, the handle and what is on the screen go, WM_NCDESTROY. The
  /// window's thread.
  void Destroy();
  /// Ends the window without a message, because its CWnd is being destroyed. The window's thread.
  void Forget();

  /// Makes the handle known. The window's thread.
  void Register();
  /// The window behind a handle, null when there is none any more. Any thread.
  static std::shared_ptr<WindowSite> Find(HWND handle);
  /// All windows there are. Any thread.
  static std::vector<std::shared_ptr<WindowSite>> All();

 private:
  friend class WindowHold;
  void leaveRegistry();
  void end();
  void release();

  const HWND handle_;
  std::atomic<std::uint64_t> clientSize_{0};
  std::atomic<bool> invalid_{true};

  // The window's thread.
  CWnd* window_;
  std::unique_ptr<WindowPeer> peer_;
  bool destroying_ = false;
  bool ended_ = false;
  int holds_ = 0;
};

/// Keeps the object of a window, and what the window is made of, from being deleted. Whoever hands
/// control to a window or to its graph takes one, so that nobody further in need look whether it is
/// still there: it is, though the window may have ended.
/// Threads: the window's; on others it does nothing.
class WindowHold {
 public:
  explicit WindowHold(WindowSite& site) : site_(site.shared_from_this()) { ++site_->holds_; }
  /// Nothing is held for a handle that is gone: whoever asks inside of that is held further out.
  explicit WindowHold(HWND window);
  ~WindowHold() {
    if (site_)
      site_->release();
  }
  WindowHold(const WindowHold&) = delete;
  WindowHold& operator=(const WindowHold&) = delete;

 private:
  std::shared_ptr<WindowSite> site_;
};

}  // namespace sparlow
