#pragma once

#include "sparlow/platform/WindowPeer.h"
#include "sparlow/platform/qt/ImageDevice.h"

namespace sparlow::qt {

class QtWidget;

/// A window over a widget with scroll bars. The surface is here and not in the widget, since a
/// context on it may outlive the widget by the rest of a message.
/// Threads: the window's.
class QtWindow final : public WindowPeer {
 public:
  QtWindow(WindowSite& site, std::uint32_t style);
  ~QtWindow() override;

  Device& Surface() override { return surface_; }
  void Present() override;
  bool IsShown() const override;
  void Show(bool show) override;
  void ShowScrollBar(int bar, bool show) override;
  void SetTitle(const std::string& utf8) override;

  const ImageDevice& Pixels() const { return surface_; }
  /// Null when Qt has deleted it.
  QtWidget* Widget() const { return widget_; }
  /// Makes the client area so large, as far as the widget's surroundings let it.
  void SetClientSize(CSize size);

  /// Makes the surface as large and as fine as the viewport is, and tells the site. Nothing happens
  /// when that is so already, or while the window's thread waits: then the next Serve comes back.
  /// The window may be gone after it.
  void SyncSize();

  /// @name From the widget
  /// The window is gone after each of these.
  void WidgetGone();
  void Closed();

 private:
  void setBarPolicy(int bar, bool show);

  WindowSite& site_;
  QtWidget* widget_;
  ImageDevice surface_;
  bool told_ = false;  ///< the site knows the size
};

}  // namespace sparlow::qt
