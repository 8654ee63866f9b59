#include "sparlow/platform/qt/InkBatch.h"

#include <QPainterPath>
#include <algorithm>
#include <utility>

#include "sparlow/platform/qt/DashPattern.h"

namespace sparlow::qt {

namespace {

/// Printers and viewers slow down on paths without end; a longer one would save nothing.
constexpr std::size_t partsAtMost = 512;

bool isUpright(CPoint from, CPoint to) {
  return from.x == to.x;
}

bool isLevel(CPoint from, CPoint to) {
  return from.y == to.y;
}

/// The middle of a pen that stands on pixel c.
double centre(int c, int width) {
  return PenBegin(c, width) + width / 2.0;
}

}  // namespace

bool InkBatch::open(COLORREF color, const Clip& clip, const CRect& extent) {
  const CRect visible = clip ? bounds_.Intersect(*clip) : bounds_;
  if (visible.Intersect(extent).IsRectEmpty())
    return false;
  if (color != color_ || clip != clip_ || segments_.size() + rects_.size() >= partsAtMost)
    Flush();
  color_ = color;
  clip_ = clip;
  return true;
}

void InkBatch::AddLine(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip) {
  if (to.x < from.x || (to.x == from.x && to.y < from.y))
    std::swap(from, to);
  const int reach = stroke.width;
  const CRect extent{from.x - reach, std::min(from.y, to.y) - reach, to.x + reach + 1,
                     std::max(from.y, to.y) + reach + 1};
  if (!open(stroke.color, clip, extent))
    return;
  if (!segments_.empty() && (stroke.width != width_ || stroke.style != style_))
    Flush();
  width_ = stroke.width;
  style_ = stroke.style;
  if (!join({from, to}))
    segments_.push_back({from, to});
}

void InkBatch::AddRect(const CRect& rect, COLORREF color, const Clip& clip) {
  if (open(color, clip, rect))
    rects_.emplace_back(QPoint(rect.left, rect.top), QSize(rect.Width(), rect.Height()));
}

void InkBatch::Ellipse(const CRect& rect, const Stroke& outline, COLORREF fill, const Clip& clip) {
  CRect r = rect;
  r.NormalizeRect();
  if (std::min(r.Width(), r.Height()) <= 2) {
    // Too small to have an inside.
    AddRect(r, outline.color, clip);
    return;
  }
  Flush();
  const int w = outline.width;
  if (!open(outline.color, clip, {r.left - w, r.top - w, r.right + w, r.bottom + w}))
    return;
  QPainter& painter = page_.Clipped(clip);
  painter.setPen(QPen(QColor(ToQt(outline.color)), w));
  painter.setBrush(QColor(ToQt(fill)));
  painter.drawEllipse(QRectF(QPointF(centre(r.left, w), centre(r.top, w)),
                             QPointF(centre(r.right - 1, w), centre(r.bottom - 1, w))));
}

/// A column of a trace goes up and partly down again, and a quiet trace goes on in its row: such
/// lines are one with the line before them.
bool InkBatch::join(const Segment& next) {
  if (segments_.empty() || !DashPattern(style_).IsSolid())
    return false;
  Segment& last = segments_.back();
  if (isUpright(last.from, last.to) && isUpright(next.from, next.to) && last.to.x == next.to.x &&
      next.from.y <= last.to.y && last.from.y <= next.to.y) {
    last.from.y = std::min(last.from.y, next.from.y);
    last.to.y = std::max(last.to.y, next.to.y);
    return true;
  }
  if (isLevel(last.from, last.to) && isLevel(next.from, next.to) && last.to.y == next.to.y &&
      next.from.x <= last.to.x && last.from.x <= next.to.x) {
    last.from.x = std::min(last.from.x, next.from.x);
    last.to.x = std::max(last.to.x, next.to.x);
    return true;
  }
  return false;
}

/// Each line is a path of its own within the path, with caps: joints would change its ends. The
/// caps of a solid pen make it cover both end points; a pattern, which can't have caps, begins and
/// ends that much further out.
QPainterPath InkBatch::strokes(bool oblique) const {
  const bool isSolid = DashPattern(style_).IsSolid();
  QPainterPath path;
  path.reserve(2 * static_cast<int>(segments_.size()));
  for (const Segment& segment : segments_) {
    const bool straight = isLevel(segment.from, segment.to) || isUpright(segment.from, segment.to);
    if (straight == oblique)
      continue;
    QPointF from(centre(segment.from.x, width_), centre(segment.from.y, width_));
    QPointF to(centre(segment.to.x, width_), centre(segment.to.y, width_));
    if (!isSolid && isLevel(segment.from, segment.to)) {
      from.rx() -= width_ / 2.0;
      to.rx() += width_ / 2.0;
    } else if (!isSolid && isUpright(segment.from, segment.to)) {
      from.ry() -= width_ / 2.0;
      to.ry() += width_ / 2.0;
    } else if (from == to) {
      continue;
    }
    path.moveTo(from);
    path.lineTo(to);
  }
  return path;
}

void InkBatch::Flush() {
  if (segments_.empty() && rects_.empty())
    return;
  // A dot has no direction that caps could follow.
  for (const Segment& segment : segments_) {
    if (segment.from == segment.to && DashPattern(style_).IsSolid())
      rects_.emplace_back(PenBegin(segment.from.x, width_), PenBegin(segment.from.y, width_),
                          width_, width_);
  }
  QPainter& painter = page_.Clipped(clip_);
  painter.setBrush(Qt::NoBrush);
  for (const bool oblique : {false, true}) {
    const QPainterPath path = strokes(oblique);
    if (path.isEmpty())
      continue;
    painter.setPen(MakePen(style_, color_, width_, oblique ? Qt::RoundCap : Qt::SquareCap));
    painter.drawPath(path);
  }
  if (!rects_.empty()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(ToQt(color_)));
    painter.drawRects(rects_.data(), static_cast<int>(rects_.size()));
  }
  segments_.clear();
  rects_.clear();
}

}  // namespace sparlow::qt
