#pragma once

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

#include "sparlow/platform/WindowPeer.h"

namespace sparlow {

/// One living window: joins its CWnd, its peer and its handle, and keeps what other threads may
/// ask. A peer tells it what happens.
/// Threads: as each operation says.
class WindowSite : public std::enable_shared_from_this<WindowSite> {
 public:
  explicit WindowSite(CWnd& window);

  HWND handle() const { return handle_; }
  CWnd* window() const { return window_; }
  WindowPeer* peer() const { return peer_.get(); }
  void SetPeer(std::unique_ptr<WindowPeer> peer) { peer_ = std::move(peer); }

  /// @name From the peer
  /// The window's thread.
  /// The client area has a new size. Everything in it is invalid; WM_SIZE is sent at once.
  void Resized(CSize size);
  /// Sends a message to the window at once; 0 when the window has gone.
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  /// The window system destroys the window by itself.
  void PeerGone();

  /// @name Marks and values
  /// Any thread. None of these waits.
  CSize ClientSize() const;
  void Invalidate();
  bool IsInvalid() const { return invalid_.load(std::memory_order_acquire); }

  /// Paints if a paint is due and can be seen. The window's thread.
  void PaintIfDue();
  /// Ends the window: WM_DESTROY, the handle and the peer go, WM_NCDESTROY. The window's thread.
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
  void leaveRegistry();

  const HWND handle_;
  std::atomic<std::uint64_t> clientSize_{0};
  std::atomic<bool> invalid_{true};

  // The window's thread.
  CWnd* window_;
  std::unique_ptr<WindowPeer> peer_;
  bool destroying_ = false;
};

}  // namespace sparlow
