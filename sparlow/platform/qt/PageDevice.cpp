#include "sparlow/platform/qt/PageDevice.h"

#include <QPaintEngine>

#include "sparlow/platform/qt/ImageDevice.h"
#include "sparlow/platform/qt/QtFonts.h"

namespace sparlow::qt {

namespace {

/// Covers any surface from any coordinate.
constexpr int widestPen = 1 << 17;

}  // namespace

PageDevice::PageDevice(QPaintDevice& target) : target_(target) {
  if (target.paintingActive() || !target.paintEngine())
    return;
  const PixelScale scale(1.0 / target.devicePixelRatioF());
  size_ = {std::max(scale.Edge(target.width()), 0), std::max(scale.Edge(target.height()), 0)};
  painting_.emplace(target, PixelScale(1.0), QSize(size_.cx, size_.cy));
  const QPaintEngine* const engine = painting_->Clipped({}).paintEngine();
  if (!engine) {
    painting_.reset();
    return;
  }
  canMix_ = engine->hasFeature(QPaintEngine::RasterOpModes);
  if (engine->type() != QPaintEngine::Raster)
    ink_.emplace(*painting_, CRect{0, 0, size_.cx, size_.cy});
}

void PageDevice::Flush() {
  if (ink_)
    ink_->Flush();
}

bool PageDevice::End() {
  if (!painting_)
    return false;
  Flush();
  const bool ended = painting_->Clipped({}).end();
  ink_.reset();
  painting_.reset();
  return ended;
}

int PageDevice::PixelsPerInch() const {
  const int resolution = target_.logicalDpiY();
  return resolution > 0 ? resolution : 96;
}

/// A mix that leaves the pen's colour on white is that colour on paper, which nobody mixes twice.
Stroke PageDevice::possible(Stroke stroke) const {
  stroke.width = std::min(stroke.width, widestPen);
  if (!canMix_)
    stroke.mix = R2_COPYPEN;
  return stroke;
}

void PageDevice::Line(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip) {
  if (ink_)
    ink_->AddLine(from, to, possible(stroke), clip);
  else if (painting_)
    painting_->Line(from, to, possible(stroke), clip);
}

void PageDevice::FillRect(const CRect& rect, COLORREF color, const Clip& clip) {
  if (ink_)
    ink_->AddRect(rect, color, clip);
  else if (painting_)
    painting_->FillRect(rect, color, clip);
}

void PageDevice::Rectangle(const CRect& rect, const Stroke& outline, COLORREF fill,
                           const Clip& clip) {
  Flush();
  if (painting_)
    painting_->Rectangle(rect, possible(outline), fill, clip);
}

void PageDevice::Ellipse(const CRect& rect, const Stroke& outline, COLORREF fill,
                         const Clip& clip) {
  if (ink_)
    ink_->Ellipse(rect, possible(outline), fill, clip);
  else if (painting_)
    painting_->Ellipse(rect, possible(outline), fill, clip);
}

void PageDevice::Text(CPoint topLeft, std::string_view utf8, const FontRequest& font,
                      COLORREF color, const Clip& clip) {
  Flush();
  if (painting_)
    painting_->Text(topLeft, utf8, FontFor(font), color, clip);
}

CSize PageDevice::TextExtent(std::string_view utf8, const FontRequest& font) const {
  const CellFont& found = FontFor(font);
  if (!painting_)
    return {found.metrics.horizontalAdvance(FromUtf8(utf8)), found.CellHeight()};
  // What a screen rounds to pixels, paper need not.
  const QFontMetrics metrics(found.font, &target_);
  return {metrics.horizontalAdvance(FromUtf8(utf8)), found.CellHeight()};
}

int PageDevice::TextAscent(const FontRequest& font) const {
  return FontFor(font).Ascent();
}

void PageDevice::Copy(const CRect& to, const Device& source, CPoint from, const Clip& clip) {
  const auto* const picture = dynamic_cast<const ImageDevice*>(&source);
  const CRect visible = to.Intersect(clip.value_or(to));
  if (!painting_ || !picture || visible.IsRectEmpty())
    return;
  Flush();
  QPainter& painter = painting_->Clipped(clip);
  // A file would blur what it keeps as a photograph.
  painter.setRenderHint(QPainter::LosslessImageRendering);
  const CRect part{from.x, from.y, from.x + to.Width(), from.y + to.Height()};
  painter.drawImage(PixelScale(1.0).Area(to), picture->Image(),
                    PixelScale(picture->Scale()).Area(part));
}

std::unique_ptr<Device> PageDevice::MakeCompatible(CSize size) const {
  return std::make_unique<ImageDevice>(size, 1.0, RGB(0, 0, 0));
}

}  // namespace sparlow::qt
