#pragma once

#include <memory>
#include <string>

#include "sparlow/platform/base/Geometry.h"

class QPaintDevice;
class QWidget;

namespace sparlow {
class CDC;
class CWnd;
}  // namespace sparlow

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

  /// Returns false when windows are in memory only. Message boxes are then written to standard
  /// error and answered with IDOK.
  bool HasDisplay() const;
  /// Runs the event loop until Quit, or until the last window that was shown is closed by its user.
  /// Returns the exit code for main.
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
/// Writes a window's pixels to a PNG file, after a paint if one is due; hidden windows too.
/// Returns false when there is no such window or the file can't be written. The window's thread.
bool SavePicture(CWnd& window, const std::string& path);
/// Gives the client area a width and a height in pixels (at least 1); scroll bars come in addition.
/// The window has had its WM_SIZE when this returns. A widget inside a layout is the layout's
/// matter. The window's thread.
void Resize(CWnd& window, int width, int height);

/// The paper of a PDF file: A4 upright unless stated otherwise.
struct PdfPaper {
  double width = 210;       ///< millimetres, 10 to 5080
  double height = 297;      ///< millimetres, 10 to 5080
  double margin = 10;       ///< millimetres on each side, 0 to a third of the shorter side
  int pixelsPerInch = 600;  ///< 72 to 2400, and no side longer than 30000 pixels
  std::string title{};      ///< that viewers show; UTF-8 or Latin-1
};

/// Paper to draw on, one page after another: a PDF file, a printer, a picture. For example
/// @code
///   Page page("record.pdf", {.width = 297, .height = 210});
///   CRect rect = page.PrintableRect();
///   view.Print(page.GetDC(), rect);
///   if (!page.End()) ... // the file couldn't be written
/// @endcode
/// Lines, areas and text stay lines, areas and text, except on a picture. Nothing on a page can be
/// read back: GetPixel gives 0xFFFFFFFF, and BitBlt copies from windows and bitmaps only.
/// Threads: the window's, while the Application exists.
class Page {
 public:
  /// Draws on a host's QPrinter, QImage or the like, which must stay until End and keep its size;
  /// nobody else may paint on it meanwhile. Its own resolution and margins hold, and nothing of it
  /// is filled. Not open when it can't be painted on or somebody paints on it already.
  explicit Page(QPaintDevice& target);
  /// Draws into a PDF file, which takes the place of an older one when it has been written whole,
  /// in End. path is UTF-8 or Latin-1. Not open, with no file made, when the paper is out of its
  /// ranges, when no file can be made there, or when something that is no file is there.
  explicit Page(const std::string& path, const PdfPaper& paper = {});
  /// End, for those who needn't know.
  ~Page();
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  /// Returns false when it couldn't be opened, and after End.
  bool IsOpen() const;
  /// The context to draw with, with the origin at the top left of the printable rectangle. It lives
  /// as long as this object; never null, but drawing is lost while the page isn't open.
  CDC* GetDC() const;
  /// What can be drawn on, in pixels of the device; its left and top are 0. Empty while the page
  /// isn't open.
  CRect PrintableRect() const;
  /// Goes on with an empty page of the same size and the same pen, font, origin and clip. Returns
  /// false, and changes nothing, when the page isn't open or the target has one page only.
  bool NewPage();
  /// Finishes the pages, and the file. Returns false when it was never open or the file couldn't be
  /// written; an older file is then as it was. A second call returns the same.
  bool End();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace sparlow::qt
