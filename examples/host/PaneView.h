#pragma once

#include <functional>
#include <memory>

#include "examples/host/Kinds.h"
#include "sparlow/platform/paint/CDC.h"
#include "sparlow/sparlow.h"

namespace sparlow::host {

/// What a pane asks of its view, whichever kind that is, beyond what a view offers everybody. It
/// goes with the view, which deletes itself with its window.
/// Threads: the window's.
class PaneView {
 public:
  /// A view with a window. Throws std::runtime_error when there can't be one.
  static PaneView* Make(ViewKind kind);

  virtual CSingleGraphView& View() = 0;
  /// Null when the view has no masks.
  virtual CMultiGraphViewWithMasks* Masks() = 0;
  /// The active series or mask, null without one.
  virtual ViewData* Active() const = 0;
  /// Takes a series out; an update is due then. False for the last one.
  virtual bool TakeOut(ViewData* series) = 0;

  /// Told when the active series has been taken out, by whatever way.
  std::function<void(ViewData* series)> removed;

 protected:
  PaneView() = default;
  PaneView(const PaneView&) = delete;
  PaneView& operator=(const PaneView&) = delete;
  virtual ~PaneView() = default;
};

}  // namespace sparlow::host
