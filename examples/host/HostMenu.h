#pragma once

#include <functional>

class QMenuBar;

namespace sparlow::host {

/// Commands of a view, as WM_SPARLOW_COMMAND numbers them.
enum class ViewCommand : unsigned { zoomIn, zoomOut, zoomToCursors, showAll, rangeX, rangeY };

/// What the menus do to the session. All must be set.
/// Threads: the window's.
struct MenuActions {
  /// Carries out a command of the view in front.
  std::function<void(ViewCommand)> command;
  /// Takes a colour scheme, 0 to 3.
  std::function<void(int)> takeScheme;
  /// Paints all views anew, after a change of a setting of the process.
  std::function<void()> repaint;
  /// Works out the statistics of all series, after a change of what they cover.
  std::function<void()> recalculate;
  /// The program's end.
  std::function<void()> close;
};

/// Fills the menu bar, with the settings that are in force ticked.
void FillMenuBar(QMenuBar& bar, int scheme, const MenuActions& actions);

}  // namespace sparlow::host
