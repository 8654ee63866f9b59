#include "sparlow/platform/qt/PageDevice.h"

#include "sparlow/platform/qt/ImageDevice.h"
#include "sparlow/platform/qt/QtFonts.h"

namespace sparlow::qt {

PageDevice::PageDevice(QPaintDevice& target) : target_(target) {
  if (target.paintingActive() || !target.paintEngine())
    return;
  const PixelScale scale(1.0 / target.devicePixelRatioF());
  size_ = {std::max(scale.Edge(target.width()), 0), std::max(scale.Edge(target.height()), 0)};
  if (open(target, QSize(size_.cx, size_.cy)) && !isPicture())
    ink_.emplace(*this, CRect{0, 0, size_.cx, size_.cy});
}

void PageDevice::Flush() {
  if (ink_)
    ink_->Flush();
}

bool PageDevice::prepare() {
  Flush();
  return isOpen();
}

bool PageDevice::End() {
  if (!isOpen())
    return false;
  Flush();
  ink_.reset();
  return close();
}

int PageDevice::PixelsPerInch() const {
  const int resolution = target_.logicalDpiY();
  return resolution > 0 ? resolution : 96;
}

void PageDevice::Line(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip) {
  if (ink_)
    ink_->AddLine(from, to, stroke, clip);
  else
    PaintedDevice::Line(from, to, stroke, clip);
}

void PageDevice::FillRect(const CRect& rect, COLORREF color, const Clip& clip) {
  if (ink_)
    ink_->AddRect(rect, color, clip);
  else
    PaintedDevice::FillRect(rect, color, clip);
}

void PageDevice::Ellipse(const CRect& rect, const Stroke& outline, COLORREF fill,
                         const Clip& clip) {
  if (ink_)
    ink_->Ellipse(rect, outline, fill, clip);
  else
    PaintedDevice::Ellipse(rect, outline, fill, clip);
}

CSize PageDevice::TextExtent(std::string_view utf8, const FontRequest& font) const {
  if (!isOpen())
    return PaintedDevice::TextExtent(utf8, font);
  // What a screen rounds to pixels, paper need not.
  const CellFont& found = FontFor(font);
  const QFontMetrics metrics(found.font, &target_);
  return {metrics.horizontalAdvance(FromUtf8(utf8)), found.CellHeight()};
}

void PageDevice::Copy(const CRect& to, const Device& source, CPoint from, const Clip& clip) {
  const auto* const picture = dynamic_cast<const ImageDevice*>(&source);
  const CRect visible = to.Intersect(clip.value_or(to));
  if (!picture || visible.IsRectEmpty() || !prepare())
    return;
  QPainter& painter = Clipped(clip);
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
