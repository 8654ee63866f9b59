#include "sparlow/platform/window/WindowSite.h"

#include <map>
#include <mutex>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/CWnd.h"
#include "sparlow/platform/window/MessageQueue.h"

namespace sparlow {

namespace {

struct Registry {
  std::mutex lock;
  std::map<HWND, std::weak_ptr<WindowSite>> sites;
};

// Never destroyed: a detached worker may still look a window up while the process ends.
Registry& registry() {
  static Registry* const instance = new Registry;
  return *instance;
}

HWND nextHandle() {
  static std::atomic<std::uintptr_t> last{0};
  return reinterpret_cast<HWND>(++last);
}

WindowSystem* installed = nullptr;

}  // namespace

WindowSystem* WindowSystem::Current() {
  return installed;
}
void WindowSystem::Install(WindowSystem* system) {
  installed = system;
}

WindowSite::WindowSite(CWnd& window) : handle_(nextHandle()), window_(&window) {}

std::shared_ptr<WindowSite> WindowSite::Find(HWND handle) {
  Registry& r = registry();
  const std::lock_guard guard(r.lock);
  const auto found = r.sites.find(handle);
  return found == r.sites.end() ? nullptr : found->second.lock();
}

std::vector<std::shared_ptr<WindowSite>> WindowSite::All() {
  Registry& r = registry();
  const std::lock_guard guard(r.lock);
  std::vector<std::shared_ptr<WindowSite>> all;
  for (const auto& [handle, site] : r.sites) {
    if (auto alive = site.lock())
      all.push_back(std::move(alive));
  }
  return all;
}

void WindowSite::Register() {
  Registry& r = registry();
  const std::lock_guard guard(r.lock);
  r.sites.emplace(handle_, weak_from_this());
}

void WindowSite::leaveRegistry() {
  {
    Registry& r = registry();
    const std::lock_guard guard(r.lock);
    r.sites.erase(handle_);
  }
  MessageQueue::Drop(handle_);
  if (installed)
    installed->WindowGone(handle_);
}

CSize WindowSite::ClientSize() const {
  const std::uint64_t packed = clientSize_.load(std::memory_order_acquire);
  return {static_cast<int>(packed >> 32), static_cast<int>(packed & 0xFFFFFFFFu)};
}

void WindowSite::Resized(CSize size) {
  const auto cx = static_cast<std::uint64_t>(std::max(size.cx, 0));
  const auto cy = static_cast<std::uint64_t>(std::max(size.cy, 0));
  clientSize_.store(cx << 32 | cy, std::memory_order_release);
  Invalidate();
  Send(WM_SIZE, 0, static_cast<LPARAM>((cx & 0xFFFFu) | (cy & 0xFFFFu) << 16));
}

void WindowSite::Invalidate() {
  if (!invalid_.exchange(true))
    UiThread::Wake();
}

LRESULT WindowSite::Send(UINT message, WPARAM wParam, LPARAM lParam) {
  if (!window_ || ended_)
    return 0;
  const WindowHold hold(*this);
  return window_->WindowProc(message, wParam, lParam);
}

void WindowSite::PaintIfDue() {
  if (!peer() || !peer_->IsShown())
    return;
  // Taken back before the paint: what is marked during it makes another one.
  if (invalid_.exchange(false))
    Send(WM_PAINT);
}

void WindowSite::Destroy() {
  if (destroying_)
    return;
  destroying_ = true;
  const WindowHold hold(*this);
  Send(WM_DESTROY);
  end();
  if (window_)
    window_->WindowProc(WM_NCDESTROY, 0, 0);
}

void WindowSite::Forget() {
  const WindowHold hold(*this);
  destroying_ = true;
  window_ = nullptr;
  end();
}

void WindowSite::end() {
  if (std::exchange(ended_, true))
    return;
  leaveRegistry();
  if (peer_)
    peer_->End();
}

void WindowSite::release() {
  if (--holds_ != 0 || !ended_)
    return;
  peer_.reset();
  if (CWnd* const window = std::exchange(window_, nullptr)) {
    window->site_.reset();
    window->PostNcDestroy();
  }
}

WindowHold::WindowHold(HWND window) {
  if (!UiThread::IsCurrent())
    return;
  site_ = WindowSite::Find(window);
  if (site_)
    ++site_->holds_;
}

}  // namespace sparlow
