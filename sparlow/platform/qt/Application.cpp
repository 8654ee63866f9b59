#include "sparlow/platform/qt/Application.h"

#include <QApplication>
#include <filesystem>
#include <optional>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/qt/QtDispatcher.h"
#include "sparlow/platform/qt/QtFonts.h"
#include "sparlow/platform/qt/QtMessageBox.h"
#include "sparlow/platform/qt/QtWidget.h"
#include "sparlow/platform/qt/QtWindow.h"
#include "sparlow/platform/qt/QtWindowSystem.h"
#include "sparlow/platform/window/CWnd.h"
#include "sparlow/platform/window/WindowSite.h"

namespace sparlow::qt {

namespace {

/// ProcessEvents gives up after so many rounds.
constexpr int roundsAtMost = 16;

constexpr const char* platformVariable = "QT_QPA_PLATFORM";

bool isSet(const char* variable) {
  return !qEnvironmentVariableIsEmpty(variable);
}

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv) {
  const bool inMemory = !isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY") && !isSet(platformVariable);
  if (inMemory)
    qputenv(platformVariable, "offscreen");
  auto application = std::make_unique<QApplication>(argc, argv);
  // Programs that this one starts make their own choice.
  if (inMemory)
    qunsetenv(platformVariable);
  return application;
}

QtWindow* windowOf(const CWnd& window) {
  return dynamic_cast<QtWindow*>(window.GetPeer());
}

}  // namespace

struct Application::Parts {
  std::unique_ptr<QApplication> application;  ///< null when it is the host's
  QtDispatcher dispatcher;
  QtWindowSystem system;
};

Application::Application(int& argc, char** argv) {
  std::unique_ptr<QApplication> application;
  if (!QCoreApplication::instance())
    application = makeApplication(argc, argv);
  // The dispatcher needs the application to be there.
  parts_ = std::make_unique<Parts>();
  parts_->application = std::move(application);
  if (GetApplicationName().empty() && argc > 0 && argv && argv[0])
    SetApplicationName(std::filesystem::path(argv[0]).filename().string());
  QtDispatcher* const dispatcher = &parts_->dispatcher;
  UiThread::Attach([dispatcher] { dispatcher->Wake(); });
  if (HasDisplay())
    UiThread::SetBoxHandler(OpenMessageBox);
  WindowSystem::Install(&parts_->system);
}

Application::~Application() {
  {
    // Nobody is left to look at a box that a worker wants while its window goes.
    const UiThread::AnswerBoxes answer(nullptr);
    for (const auto& site : WindowSite::All())
      site->Destroy();
  }
  WindowSystem::Install(nullptr);
  UiThread::Detach();
  ForgetFonts();
  if (parts_->application)
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool Application::HasDisplay() const {
  const QString platform = QGuiApplication::platformName();
  return platform != QStringLiteral("offscreen") && !platform.startsWith(QStringLiteral("minimal"));
}

int Application::Exec() {
  return QCoreApplication::exec();
}

void Application::Quit() {
  parts_->dispatcher.Quit();
}

void Application::ProcessEvents() {
  for (int round = 0; round < roundsAtMost; ++round) {
    QCoreApplication::processEvents();
    if (!parts_->dispatcher.IsDue())
      break;
  }
  // What the last paint has left for the screen.
  QCoreApplication::processEvents();
}

QWidget* WidgetOf(const CWnd& window) {
  const QtWindow* const peer = windowOf(window);
  return peer ? peer->Widget() : nullptr;
}

bool SavePicture(CWnd& window, const std::string& path) {
  const auto site = WindowSite::Find(window.GetSafeHwnd());
  if (QtWindow* const peer = windowOf(window))
    peer->SyncSize();
  if (!site || !site->peer())
    return false;
  // A hidden window is painted for its picture, and again when it is shown.
  if (site->peer()->IsShown())
    site->PaintIfDue();
  else if (site->IsInvalid())
    site->Send(WM_PAINT);
  const auto* const peer = dynamic_cast<QtWindow*>(site->peer());
  return peer && peer->Pixels().Image().save(FromUtf8(ToUtf8(path)), "PNG");
}

void Resize(CWnd& window, int width, int height) {
  if (QtWindow* const peer = windowOf(window))
    peer->SetClientSize({width, height});
}

}  // namespace sparlow::qt
