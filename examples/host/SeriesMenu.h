#pragma once

#include <functional>
#include <string>
#include <vector>

#include "examples/host/Kinds.h"

class QMenuBar;

namespace sparlow::host {

/// A source as an item of the menu.
struct SourceItem {
  std::string name;
  bool shown;    ///< in the view in front
  bool changes;  ///< can be put into that view, or taken out
};

/// What the menus about series, masks and analyses do to the session. All must be set.
/// Threads: the window's.
struct SeriesActions {
  std::function<std::vector<SourceItem>()> sources;
  /// Puts a source into the view in front, or takes it out.
  std::function<void(std::size_t source, bool on)> put;
  /// For the active series of the view in front.
  std::function<void(unsigned samples)> addAverage;
  std::function<void()> removeActive;
  std::function<void(const MaskKind& mask)> addMask;
  std::function<void()> removeLastMask;
  std::function<void()> removeAllMasks;
  /// Whether the view in front has masks that can be removed.
  std::function<bool()> anyMask;
  std::function<void(AnalysisKind analysis)> analyse;
  std::function<void()> recalculate;
};

/// Adds to the menu bar what a kind of view has use for.
void AddSeriesMenus(QMenuBar& bar, ViewKind kind, const SeriesActions& actions);

}  // namespace sparlow::host
