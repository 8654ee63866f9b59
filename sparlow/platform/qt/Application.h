#pragma once

#include <memory>
#include <string>

class QWidget;

namespace sparlow {
class CWnd;
}

namespace sparlow::qt {

/// Brings the library up in a program, and takes it down with its life: windows, messages and boxes
/// work while it exists. There is one at a time. A program that has a QApplication of its own keeps
/// it, and may run its own event loop; otherwise one is made here.
/// Threads: the one that made it, which becomes the window's, but for Quit.
class Application {
 public:
  /// argc and argv are those of main, and must stay. Without a display (neither DISPLAY nor
  /// WAYLAND_DISPLAY nor QT_QPA_PLATFORM is set) windows are made in memory only.
  Application(int& argc, char** argv);
  /// Windows that still exist are destroyed here. Series must outlive them, so a host that declares
  /// its series after this object destroys its windows, and runs Term, before.
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  /// False when windows are in memory only. Message boxes are then written to standard error and
  /// answered with IDOK.
  bool HasDisplay() const;
  /// Runs the event loop until Quit, or until the last window that was shown is closed by its user.
  /// The exit code for main.
  int Exec();
  /// Ends Exec; an Exec that comes later ends at once. Any thread.
  void Quit();
  /// Handles what waits, messages and paints included, and returns. A program that never runs out
  /// of messages gets a few rounds.
  void ProcessEvents();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

/// The widget of a window, to be put into a host's layout: Qt may own it, and when Qt deletes it
/// the window ends with it. Null when there is none. The window's thread.
QWidget* WidgetOf(const CWnd& window);
/// Writes a window's pixels to a PNG file, after a paint if one is due; hidden windows too. False
/// when there is no such window or the file can't be written. The window's thread.
bool SavePicture(CWnd& window, const std::string& path);
/// Gives the client area a width and a height in pixels (at least 1); scroll bars come in addition.
/// The window has had its WM_SIZE when this returns. A widget inside a layout is the layout's
/// matter. The window's thread.
void Resize(CWnd& window, int width, int height);

}  // namespace sparlow::qt
