#pragma once

#include <QWidget>
#include <functional>

#include "bench/Series.h"
#include "sparlow/platform/qt/Application.h"
#include "sparlow/sparlow.h"

namespace sparlow::bench {

/// The plot window of all measurements on a screen.
inline constexpr CSize kWindow{1100, 600};

/// A view that lends its graph.
class ScreenView : public CSingleGraphView {
 public:
  Graph& TheGraph() { return *graph; }
};

/// A shown view over a series of the caller's, with its events.
class Screen {
 public:
  explicit Screen(ViewData& series);
  ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  ScreenView& View() { return *view_; }
  GraphAxis& Axes() { return axis_; }
  /// Does something and waits for the frame that comes of it: painted, copied to the surface, and
  /// brought to the widget. The milliseconds from its beginning; negative when nothing came of it.
  double Frame(const std::function<void()>& action);
  /// Handles events until something holds.
  void Await(const std::function<bool()>& holds);
  /// Finished frames since this was made, those that show a message left out.
  unsigned Frames() const { return frames_; }

 private:
  class PaintWatch;

  GraphAxis axis_;
  ScreenView* view_;
  unsigned frames_ = 0;
  std::unique_ptr<QObject> watch_;
};

/// The one application of the program.
qt::Application& TheApplication();

}  // namespace sparlow::bench
