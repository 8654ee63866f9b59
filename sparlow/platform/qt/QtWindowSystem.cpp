#include "sparlow/platform/qt/QtWindowSystem.h"

#include "sparlow/platform/WindowSite.h"
#include "sparlow/platform/qt/QtWindow.h"

namespace sparlow::qt {

std::unique_ptr<WindowPeer> QtWindowSystem::CreatePeer(WindowSite& site, std::uint32_t style) {
  return std::make_unique<QtWindow>(site, style);
}

void QtWindowSystem::SyncSizes() {
  for (const auto& site : WindowSite::All()) {
    if (auto* const window = dynamic_cast<QtWindow*>(site->peer()))
      window->SyncSize();
  }
}

}  // namespace sparlow::qt
