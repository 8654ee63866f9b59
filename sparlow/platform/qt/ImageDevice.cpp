#include "sparlow/platform/qt/ImageDevice.h"

#include <cstring>

namespace sparlow::qt {

ImageDevice::ImageDevice(CSize size, double scale, COLORREF background) {
  Remake(size, scale, background);
}

void ImageDevice::Remake(CSize size, double scale, COLORREF background) {
  close();
  size_ = {std::max(size.cx, 0), std::max(size.cy, 0)};
  scale_ = PixelScale(scale);
  image_ = QImage(std::max(scale_.Edge(size_.cx), 1), std::max(scale_.Edge(size_.cy), 1),
                  QImage::Format_RGB32);
  if (image_.isNull())  // There is no memory for it: what is drawn is lost, nothing else.
    image_ = QImage(1, 1, QImage::Format_RGB32);
  image_.fill(ToQt(background));
}

const QImage& ImageDevice::Image() const {
  close();
  return image_;
}

void ImageDevice::Copy(const CRect& to, const Device& source, CPoint from, const Clip& clip) {
  const auto* const other = dynamic_cast<const ImageDevice*>(&source);
  if (!other)
    return;
  const QImage& pixels = other->Image();
  if (other->Scale() != Scale()) {
    // A bitmap from before the window went to another screen.
    const CRect part{from.x, from.y, from.x + to.Width(), from.y + to.Height()};
    if (prepare())
      Clipped(clip).drawImage(scale_.Area(to), pixels, other->scale_.Area(part));
    return;
  }
  const QRect target = scale_.Area(to);
  const QPoint shift = QPoint(scale_.Edge(from.x), scale_.Edge(from.y)) - target.topLeft();
  QRect visible = target.intersected(image_.rect()).intersected(pixels.rect().translated(-shift));
  if (clip)
    visible = visible.intersected(scale_.Area(*clip));
  if (!visible.isEmpty())
    copyPixels(visible, *other, visible.topLeft() + shift);
}

void ImageDevice::copyPixels(const QRect& to, const ImageDevice& source, QPoint from) {
  close();
  const auto bytes = static_cast<std::size_t>(to.width()) * sizeof(QRgb);
  // A picture that is copied down onto itself goes from its last row up.
  const bool upward = &source == this && from.y() < to.y();
  for (int i = 0; i < to.height(); ++i) {
    const int row = upward ? to.height() - 1 - i : i;
    std::memmove(
        reinterpret_cast<QRgb*>(image_.scanLine(to.y() + row)) + to.x(),
        reinterpret_cast<const QRgb*>(source.image_.constScanLine(from.y() + row)) + from.x(),
        bytes);
  }
}

COLORREF ImageDevice::PixelAt(CPoint point) const {
  if (point.x < 0 || point.y < 0 || point.x >= size_.cx || point.y >= size_.cy)
    return 0xFFFFFFFFu;
  const QImage& image = Image();
  const int x = std::min(scale_.Middle(point.x), image.width() - 1);
  const int y = std::min(scale_.Middle(point.y), image.height() - 1);
  return FromQt(reinterpret_cast<const QRgb*>(image.constScanLine(y))[x]);
}

std::unique_ptr<Device> ImageDevice::MakeCompatible(CSize size) const {
  return std::make_unique<ImageDevice>(size, Scale(), RGB(0, 0, 0));
}

}  // namespace sparlow::qt
