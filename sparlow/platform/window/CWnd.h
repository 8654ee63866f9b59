#pragma once

#include <memory>
#include <string>

#include "sparlow/platform/paint/CDC.h"
#include "sparlow/platform/window/CObject.h"
#include "sparlow/platform/window/Messages.h"

namespace sparlow {

class WindowPeer;
class WindowSite;

/// How a window is to be made; PreCreateWindow may change it.
struct CREATESTRUCT {
  std::uint32_t style = 0;  ///< WS_*
};

/// A window. Its messages reach the operations that its class's table of messages names.
/// Threads: the window's, but for the handle, which any thread may post to.
class CWnd : public CObject {
 public:
  CWnd() = default;
  /// A window that still exists goes without a message; DestroyWindow comes first.
  ~CWnd() override;

  /// Makes the window, hidden, in the window system that is installed; WM_CREATE runs inside.
  /// Returns false when there is no window system, the window exists already, or WM_CREATE returned
  /// -1.
  bool Create();
  /// Makes a window without a place on the screen, which only receives messages. Needs no window
  /// system.
  bool CreateMessageOnly();
  /// Ends the window: WM_DESTROY, and then PostNcDestroy, which may delete this object. While a
  /// message of the window is handled the window ends at once, and PostNcDestroy comes after the
  /// message. Returns false when there is no window.
  bool DestroyWindow();
  void ShowWindow(bool show);

  HWND GetSafeHwnd() const;
  /// What the window is made of; null without a window, and for one that only receives messages.
  WindowPeer* GetPeer() const;

  /// Brings a message to its handler; what no table names gets default processing.
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

  static const CRuntimeClass classCWnd;
  const CRuntimeClass* GetRuntimeClass() const override { return &classCWnd; }

 protected:
  virtual const MessageMap* GetMessageMap() const;
  virtual bool PreCreateWindow(CREATESTRUCT& create);
  /// The last that a window does, when nothing refers to it any more.
  virtual void PostNcDestroy() {}
  /// Default processing of the message that is being handled.
  LRESULT Default();

  static const MessageMap messageMap;

 private:
  friend class WindowSite;
  bool createSite(bool withPeer);

  std::shared_ptr<WindowSite> site_;
};

}  // namespace sparlow
