#pragma once

#include <QImage>
#include <optional>

#include "sparlow/platform/paint/Device.h"
#include "sparlow/platform/qt/Painting.h"

namespace sparlow::qt {

/// A surface in memory: a window's pixels or an off-screen bitmap. It speaks client pixels and
/// keeps the pixels of its screen, which are more where the screen has a scale above 1.
/// Threads: the window's.
class ImageDevice final : public Device {
 public:
  /// At least 1 by 1 pixel is kept. scale: device pixels per client pixel.
  ImageDevice(CSize size, double scale, COLORREF background);

  /// Makes it a new surface, in place: whoever holds a context on it goes on with the new one.
  void Remake(CSize size, double scale, COLORREF background);

  double Scale() const { return scale_.Factor(); }
  /// The pixels, with everything drawn so far in them. Its own resolution isn't noted in it.
  const QImage& Image() const;

  CSize Size() const override { return size_; }
  int PixelsPerInch() const override { return 96; }
  void Line(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip) override;
  void FillRect(const CRect& rect, COLORREF color, const Clip& clip) override;
  void Rectangle(const CRect& rect, const Stroke& outline, COLORREF fill,
                 const Clip& clip) override;
  void Ellipse(const CRect& rect, const Stroke& outline, COLORREF fill, const Clip& clip) override;
  void Text(CPoint topLeft, std::string_view utf8, const FontRequest& font, COLORREF color,
            const Clip& clip) override;
  CSize TextExtent(std::string_view utf8, const FontRequest& font) const override;
  int TextAscent(const FontRequest& font) const override;
  void Copy(const CRect& to, const Device& source, CPoint from, const Clip& clip) override;
  COLORREF PixelAt(CPoint point) const override;
  std::unique_ptr<Device> MakeCompatible(CSize size) const override;

 private:
  Painting& painting();
  void copyPixels(const QRect& to, const ImageDevice& source, QPoint from);

  CSize size_;
  PixelScale scale_{1.0};
  QImage image_;
  /// Open from the first primitive until somebody looks at the pixels: opening it for each
  /// primitive would cost more than most primitives do.
  mutable std::optional<Painting> painting_;
};

}  // namespace sparlow::qt
