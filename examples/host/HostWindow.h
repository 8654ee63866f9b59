#pragma once

#include <QMainWindow>
#include <functional>
#include <string>

#include "sparlow/platform/window/Messages.h"

class QKeyEvent;
class QLabel;
class QProgressBar;
class QTabWidget;

namespace sparlow::host {

/// The program's window: a menu bar, a tab for each view, or just the view when there is one, the
/// readouts below it, and a status bar with plain words and a progress bar.
/// Threads: the window's.
class HostWindow : public QMainWindow {
 public:
  HostWindow();

  /// Asked when the user closes the window; false leaves it open.
  std::function<bool()> mayClose;
  /// Told when another view comes to the front.
  std::function<void(int index)> activated;
  /// Told when the wheel is turned over a view, by so many notches, up if positive.
  std::function<void(int notches)> wheelTurned;
  /// Told when a key scrolls the view in front: WM_HSCROLL or WM_VSCROLL, and what it holds.
  std::function<void(UINT message, int code)> scrolled;
  /// Told when a key asks for the popup menu of the view in front.
  std::function<void()> menuWanted;

  /// Takes a view's widget; the window that it belongs to ends before this one.
  void AddView(QWidget* widget);
  /// Gives the tab of a view its text, and the window its title while that is in front.
  void Rename(int index, const std::string& name);
  /// Takes a tab away; its view is about to end.
  void RemoveView(int index);
  /// Takes the widget that goes below the views.
  void AddReadouts(QWidget* widget);
  /// Brings a view to the front.
  void BringForward(int index);
  /// Shows the window with so many pixels around the views' own size, the view in front with the
  /// keyboard focus.
  void ShowFor(int width, int height);
  int Current() const;
  /// share from 0 to 1 of a work that is under way; anything else hides the bar.
  void SetStatus(const std::string& text, double share);
  /// The latest complaint about the input.
  void SetComplaint(const std::string& text);

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void cameForward(int index);
  bool turn(int angle);
  bool press(const QKeyEvent& event);

  QTabWidget* tabs_;
  QLabel* status_;
  QLabel* complaint_;
  QProgressBar* progress_;
  int turned_ = 0;  // of the wheel, what doesn't make a notch yet
};

}  // namespace sparlow::host
