#pragma once

#include "sparlow/graph/Cursor.h"

namespace sparlow {

struct GraphAxis;
struct GraphColors;
class ViewData;

/// The markers of both cursors of a series on the window, and the one that the mouse holds. Points
/// are plot pixels.
class CursorMarkers {
 public:
  void SetColors(const GraphColors& colors);
  /// Draws both at their samples, in place of where they were. Both contexts have the plot's
  /// origin. painted: holds what the markers lie on; null on paper.
  void Draw(HDC dc, HDC painted, const ViewData& series, const GraphAxis* axis, int height);

  /// Is a point within reach of a marker at (x, y)?
  static bool InReach(const CPoint& point, int x, int y, int height);

  void HoldLeft();
  void HoldRight();
  void LetGo();
  bool Held() const { return left_.drag || right_.drag; }
  /// Places the cursor that is held at the sample of a point's column. One that crosses the other,
  /// or pushes it aside, gives the mouse to it.
  void DragTo(int x, int width, ViewData& series, const GraphAxis& axis);

  const Cursor& Left() const { return left_; }
  const Cursor& Right() const { return right_; }

 private:
  Cursor left_;
  Cursor right_;
};

}  // namespace sparlow
