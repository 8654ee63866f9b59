#pragma once

#include "sparlow/platform/paint/CDC.h"

namespace sparlow {

struct GraphAxis;
struct GraphColors;
class ViewData;

/// Paints what every graph has beside its curves: captions, grid, frame and labels. It keeps
/// nothing: what it paints from is the caller's. Coordinates are plot pixels: the context has the
/// plot's origin and its pixel factor.
class GraphPainter {
 public:
  GraphPainter(CDC& dc, GraphAxis& axis, const GraphColors& colors, CSize plot)
      : dc_(dc), axis_(axis), colors_(colors), plot_(plot) {}

  void DrawCaption(const ViewData& series) const;
  void DrawGrid() const;
  void DrawAxis() const;
  void DrawLabels() const;
  /// A text in the middle of an area, in place of a graph.
  static void DrawMessage(CDC& dc, const CRect& area, const char* text, const GraphColors& colors);
  /// The one font of all text, 11 points high on the device of dc.
  static void CreateTextFont(CFont* font, CDC* dc);

 private:
  void drawLine(int x0, int y0, int x1, int y1) const;
  void drawCaptionStrLeft(const CString& text) const;
  void drawCaptionStrRight(const CString& text) const;
  void drawVerticalLabels() const;
  void drawHorizontalLabels() const;

  CDC& dc_;
  GraphAxis& axis_;
  const GraphColors& colors_;
  const CSize plot_;
};

}  // namespace sparlow
