#pragma once

#include "sparlow/platform/WindowPeer.h"

namespace sparlow::qt {

class QtWindow;

/// The window system over Qt.
/// Threads: the window's.
class QtWindowSystem final : public WindowSystem {
 public:
  std::unique_ptr<WindowPeer> CreatePeer(WindowSite& site, std::uint32_t style) override;

  /// Windows whose widget has another size or scale than they know catch up.
  static void SyncSizes();
};

}  // namespace sparlow::qt
