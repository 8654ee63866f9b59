#include "sparlow/platform/window/Input.h"

#include <utility>

#include "sparlow/platform/window/Resources.h"
#include "sparlow/platform/window/WindowSite.h"

namespace sparlow {

namespace {

/// May name a window that has gone, since handles are never used twice.
HWND captured = nullptr;
HWND mainWindow = nullptr;

/// Takes the mouse from the window that has it, which is notified.
void endCapture() {
  const auto site = WindowSite::Find(std::exchange(captured, nullptr));
  if (!site)
    return;
  if (site->peer())
    site->peer()->SetCapture(false);
  site->Send(WM_CAPTURECHANGED);
}

}  // namespace

void SetCapture(HWND window) {
  const auto site = WindowSite::Find(window);
  if (!site || !site->peer() || window == captured)
    return;
  endCapture();
  // The window that was notified may have ended this one, or taken the mouse back.
  if (captured || !site->peer())
    return;
  captured = window;
  site->peer()->SetCapture(true);
}

void ReleaseCapture() {
  endCapture();
}

void CaptureLost(HWND window) {
  if (window && window == captured)
    endCapture();
}

HWND GetCapture() {
  return WindowSite::Find(captured) ? captured : nullptr;
}

HCURSOR LoadCursor(int id) {
  // The window system has the picture.
  static const PointerShape sizeAll{IDC_SIZEALL, {}, {}, {}};
  return id == IDC_SIZEALL ? &sizeAll : Resources::FindPointer(id);
}

void SetCursor(HCURSOR shape) {
  if (WindowSystem* const system = WindowSystem::Current())
    system->ShowPointer(shape);
}

bool GetCursorPos(CPoint* point) {
  const WindowSystem* const system = WindowSystem::Current();
  if (!system || !point)
    return false;
  *point = system->PointerPosition();
  return true;
}

bool ScreenToClient(HWND window, CPoint* point) {
  const auto site = WindowSite::Find(window);
  if (!site || !site->peer() || !point)
    return false;
  *point = site->peer()->FromScreen(*point);
  return true;
}

bool ClientToScreen(HWND window, CPoint* point) {
  const auto site = WindowSite::Find(window);
  if (!site || !site->peer() || !point)
    return false;
  *point = site->peer()->ToScreen(*point);
  return true;
}

short GetKeyState(WPARAM key) {
  const WindowSystem* const system = WindowSystem::Current();
  return system && system->IsKeyDown(key) ? short{-0x8000} : short{0};
}

void SetMainWindow(HWND window) {
  mainWindow = window;
}

HWND AfxGetMainWnd() {
  return WindowSite::Find(mainWindow) ? mainWindow : nullptr;
}

}  // namespace sparlow
