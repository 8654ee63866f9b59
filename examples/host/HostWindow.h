#pragma once

#include <QMainWindow>
#include <functional>
#include <string>

class QLabel;
class QProgressBar;
class QTabWidget;

namespace sparlow::host {

/// The program's window: a tab for each view, or just the view when there is one, over a status bar
/// with plain words and a progress bar.
/// Threads: the window's.
class HostWindow : public QMainWindow {
 public:
  HostWindow();

  /// Asked when the user closes the window; false leaves it open.
  std::function<bool()> mayClose;
  /// Told when another view comes to the front.
  std::function<void(int index)> activated;

  /// Takes a view's widget; the window that it belongs to ends before this one.
  void AddView(QWidget* widget, const std::string& name);
  /// Shows the window with so many pixels around the views' own size.
  void ShowFor(int width, int height);
  int Current() const;
  /// share from 0 to 1 of a work that is under way; anything else hides the bar.
  void SetStatus(const std::string& text, double share);
  /// The latest complaint about the input.
  void SetComplaint(const std::string& text);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void raise(int index);

  QTabWidget* tabs_;
  QLabel* status_;
  QLabel* complaint_;
  QProgressBar* progress_;
};

}  // namespace sparlow::host
