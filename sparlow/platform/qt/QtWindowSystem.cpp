#include "sparlow/platform/qt/QtWindowSystem.h"

#include <QCursor>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QUrl>

#include "sparlow/platform/qt/QtDialog.h"
#include "sparlow/platform/qt/QtMenu.h"
#include "sparlow/platform/qt/QtModal.h"
#include "sparlow/platform/qt/QtWindow.h"
#include "sparlow/platform/window/WindowSite.h"

namespace sparlow::qt {

std::unique_ptr<WindowPeer> QtWindowSystem::CreatePeer(WindowSite& site, std::uint32_t style) {
  return std::make_unique<QtWindow>(site, *this, style);
}

UINT QtWindowSystem::TrackMenu(CMenu& menu, CPoint at, HWND owner) {
  return qt::TrackMenu(menu, at, owner);
}

std::unique_ptr<DialogPeer> QtWindowSystem::CreateDialogPeer(const DialogTemplate& form,
                                                             HWND dialog, HWND owner) {
  return std::make_unique<QtDialog>(form, dialog, owner);
}

void QtWindowSystem::OpenHelp(const std::string& path, std::uintptr_t) {
  const QString file = QFile::decodeName(path.c_str());
  if (QFileInfo::exists(file))
    QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

std::string QtWindowSystem::DecimalSign() const {
  return QLocale::system().decimalPoint().toStdString();
}

void QtWindowSystem::WindowGone(HWND window) {
  QtModal::WindowGone(window);
}

CPoint QtWindowSystem::PointerPosition() const {
  const QPoint position = QCursor::pos();
  return {position.x(), position.y()};
}

void QtWindowSystem::ShowPointer(HCURSOR shape) {
  if (pointerOver_)
    pointerOver_->ShowPointer(shape);
}

bool QtWindowSystem::IsKeyDown(WPARAM key) const {
  return key == VK_SHIFT && modifiers_.testFlag(Qt::ShiftModifier);
}

void QtWindowSystem::NoteInput(QtWindow* window, Qt::KeyboardModifiers modifiers) {
  if (window)
    pointerOver_ = window;
  modifiers_ = modifiers;
}

void QtWindowSystem::Forget(QtWindow* window) {
  if (pointerOver_ == window)
    pointerOver_ = nullptr;
  captureWatch_.Forget(window);
}

void QtWindowSystem::CatchUp() {
  for (const auto& site : WindowSite::All()) {
    if (auto* const window = dynamic_cast<QtWindow*>(site->peer()))
      window->CatchUp();
  }
}

}  // namespace sparlow::qt
