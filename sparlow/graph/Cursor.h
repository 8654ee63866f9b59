#pragma once

#include "sparlow/platform/paint/GdiObjects.h"

namespace sparlow {

/// The on-screen marker of one measurement cursor. It is drawn over the finished frame and taken
/// away by copying the frame back, so that a cursor moves without a paint of the graph.
class Cursor {
 public:
  void SetColor(COLORREF marker) { color = marker; }
  /// Copies what lies under the last marker back from memDC, which holds the frame; both contexts
  /// have the origin of the plot.
  void Clear(HDC dc, HDC memDC) const;
  /// Clear, and nothing is left to be erased.
  void Erase(HDC dc, HDC memDC);
  /// Takes the last marker away and draws one at a plot point (x, y) of a plot of this height: at
  /// the point itself, or as an arrow at the plot's edge in column x when the point lies above or
  /// below. A null memDC is paper: nothing is taken away, and rect stays that of the window.
  void Draw(HDC dc, HDC memDC, int x, int y, int height);

  /// Shape of all markers: 0 rectangle, 1 circle, any other value diagonal cross.
  static void SetStyle(int style);
  static void SetStyleRect();
  static void SetStyleCircle();
  static void SetStyleCross();
  static int GetStyle() { return Style; }
  static int GetPenWidth() { return PenWidth; }

  static inline int Style = 2;
  /// Logical pixels.
  static inline int PenWidth = 5;

  /// What the marker covered of the window when it was last drawn, in plot pixels. Of an arrow
  /// below the plot, top is the larger number.
  CRect rect;
  COLORREF color = 0;
  bool drag = false;  ///< follows the mouse

 private:
  CRect drawShape(HDC dc, CPoint at, int pen) const;
  CRect drawArrow(HDC dc, int x, int edge, int dir, int pen) const;
};

}  // namespace sparlow
