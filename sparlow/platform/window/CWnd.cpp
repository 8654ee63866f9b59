#include "sparlow/platform/window/CWnd.h"

#include "sparlow/platform/window/WindowSite.h"

namespace sparlow {

const CRuntimeClass CObject::classCObject{"CObject", nullptr, nullptr};
const CRuntimeClass CWnd::classCWnd{"CWnd", nullptr, &CObject::classCObject};
const MessageMap CWnd::messageMap{nullptr, {}};

CObject* CRuntimeClass::CreateObject() const {
  return create ? create() : nullptr;
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* other) const {
  for (const CRuntimeClass* c = this; c; c = c->base) {
    if (c == other)
      return true;
  }
  return false;
}

const CRuntimeClass* CObject::GetRuntimeClass() const {
  return &classCObject;
}

CWnd::~CWnd() {
  if (site_)
    site_->Forget();
}

bool CWnd::Create() {
  return createSite(true);
}

bool CWnd::CreateMessageOnly() {
  return createSite(false);
}

bool CWnd::createSite(bool withPeer) {
  WindowSystem* const system = WindowSystem::Current();
  CREATESTRUCT create;
  if (site_ || (withPeer && (!system || !PreCreateWindow(create))))
    return false;
  const auto site = std::make_shared<WindowSite>(*this);
  site_ = site;
  site->Register();
  if (withPeer)
    site->SetPeer(system->CreatePeer(*site, create.style));
  const WindowHold hold(*site);
  if (site->Send(WM_CREATE) == -1)
    site->Destroy();
  return !site->Ended();
}

bool CWnd::DestroyWindow() {
  const auto site = site_;
  if (!site || site->Ended())
    return false;
  site->Destroy();
  return true;
}

void CWnd::ShowWindow(bool show) {
  if (WindowPeer* const peer = GetPeer())
    peer->Show(show);
}

HWND CWnd::GetSafeHwnd() const {
  return site_ && !site_->Ended() ? site_->handle() : nullptr;
}

WindowPeer* CWnd::GetPeer() const {
  return site_ ? site_->peer() : nullptr;
}

const MessageMap* CWnd::GetMessageMap() const {
  return &messageMap;
}

bool CWnd::PreCreateWindow(CREATESTRUCT&) {
  return true;
}

LRESULT CWnd::Default() {
  return 0;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  for (const MessageMap* map = GetMessageMap(); map; map = map->base) {
    for (const MessageEntry& entry : map->entries) {
      const UINT command = CommandOf(wParam);
      const bool inRange = command >= entry.first && command <= entry.last;
      if (entry.message == message && (message != WM_COMMAND || inRange))
        return entry.handle(*this, wParam, lParam);
    }
  }
  return Default();
}

}  // namespace sparlow
