#pragma once

#include <functional>

#include "examples/host/Pane.h"

class QMenuBar;

namespace sparlow::host {

/// What the menus do to the session. All must be set.
/// Threads: the window's.
struct MenuActions {
  /// The view in front; null when there is none.
  std::function<HWND()> view;
  /// Carries out a command of that view.
  std::function<void(ViewCommand)> command;
  /// Takes a colour scheme, 0 to 3.
  std::function<void(int)> takeScheme;
  /// Paints all views anew, after a change of a setting of the process.
  std::function<void()> repaint;
  /// Works out the statistics of all series, after a change of what they cover.
  std::function<void()> recalculate;
  /// While samples come, has the newest so many shown, or all with 0.
  std::function<void(unsigned)> takeNewest;
  /// Whether samples come to the view in front, and their end.
  std::function<bool()> feeding;
  std::function<void()> stop;
  /// The view in front on a printer, and in a file.
  std::function<void()> print;
  std::function<void()> exportPdf;
  /// The program's end.
  std::function<void()> close;
};

/// Fills the menu bar, with the settings that are in force ticked.
void FillMenuBar(QMenuBar& bar, int scheme, const MenuActions& actions);

}  // namespace sparlow::host
