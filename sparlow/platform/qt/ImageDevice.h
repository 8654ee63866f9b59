#pragma once

#include <QImage>

#include "sparlow/platform/qt/PaintedDevice.h"

namespace sparlow::qt {

/// A surface in memory: a window's pixels or an off-screen bitmap. It speaks client pixels and
/// keeps the pixels of its screen, which are more where the screen has a scale above 1. Its painter
/// is open from the first primitive until somebody looks at the pixels: opening it for each
/// primitive would cost more than most primitives do.
class ImageDevice final : public PaintedDevice {
 public:
  ~ImageDevice() override { close(); }
  /// At least 1 by 1 pixel is kept. scale: device pixels per client pixel.
  ImageDevice(CSize size, double scale, COLORREF background);

  /// Makes it a new surface, in place: whoever holds a context on it goes on with the new one.
  void Remake(CSize size, double scale, COLORREF background);

  double Scale() const { return scale_.Factor(); }
  /// The pixels, with everything drawn so far in them. Its own resolution isn't noted in it.
  const QImage& Image() const;

  int PixelsPerInch() const override { return 96; }
  void Copy(const CRect& to, const Device& source, CPoint from, const Clip& clip) override;
  COLORREF PixelAt(CPoint point) const override;
  std::unique_ptr<Device> MakeCompatible(CSize size) const override;

 private:
  bool prepare() override { return isOpen() || open(image_, image_.size()); }
  void copyPixels(const QRect& to, const ImageDevice& source, QPoint from);

  QImage image_;
};

}  // namespace sparlow::qt
