#pragma once

#include <QPen>
#include <QRect>
#include <vector>

#include "sparlow/platform/qt/PaintedDevice.h"

namespace sparlow::qt {

/// Lines and areas of one colour that wait to be drawn as one path. A file then names a pen once
/// for hundreds of lines, and strokes stay strokes: sharp at any magnification. They take the place
/// and width that PaintedDevice gives them in pixels.
class InkBatch {
 public:
  using Clip = Device::Clip;

  /// bounds: what can be seen of the surface.
  InkBatch(PaintedDevice& page, const CRect& bounds) : page_(page), bounds_(bounds) {}

  void AddLine(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip);
  void AddRect(const CRect& rect, COLORREF color, const Clip& clip);
  /// Drawn at once, after what waits.
  void Ellipse(const CRect& rect, const Stroke& outline, COLORREF fill, const Clip& clip);
  /// Draws what waits. To be called before anything else is drawn on the page.
  void Flush();

 private:
  struct Segment {
    CPoint from;  ///< left of to, or above it in the same column
    CPoint to;
  };

  // Makes room for more of a colour. Returns false when nothing of it could be seen.
  bool open(COLORREF color, const Clip& clip, const CRect& extent);
  bool join(const Segment& next);
  // The lines that follow the pixels, or those that don't: ends of the first are square, as on an
  // image.
  QPainterPath strokes(bool oblique) const;

  PaintedDevice& page_;
  const CRect bounds_;
  COLORREF color_ = 0;
  Clip clip_;
  int width_ = 1;  ///< of the segments' pen, as style_
  int style_ = PS_SOLID;
  std::vector<Segment> segments_;
  std::vector<QRect> rects_;
};

}  // namespace sparlow::qt
