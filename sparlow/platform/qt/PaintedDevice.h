#pragma once

#include <QPainter>
#include <QPen>
#include <optional>
#include <string_view>

#include "sparlow/platform/paint/Device.h"
#include "sparlow/platform/qt/PixelScale.h"

namespace sparlow::qt {

struct CellFont;

QRgb ToQt(COLORREF color);
COLORREF FromQt(QRgb color);
/// A pen of a width, with the dashes of a style. Those have flat ends, a solid one has caps.
QPen MakePen(int style, COLORREF color, int width, Qt::PenCapStyle caps);

/// A device that a QPainter draws: what pictures and pages have in common. Lines and areas that
/// follow the edges of pixels are filled rectangles, so that they are crisp at any scale; nothing
/// but text is antialiased. The painter stays open, and its state is kept from one primitive to the
/// next, since a graph has thousands of them.
class PaintedDevice : public Device {
 public:
  ~PaintedDevice() override = default;

  CSize Size() const override { return size_; }
  void Line(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip) override;
  void FillRect(const CRect& rect, COLORREF color, const Clip& clip) override;
  void Rectangle(const CRect& rect, const Stroke& outline, COLORREF fill,
                 const Clip& clip) override;
  void Ellipse(const CRect& rect, const Stroke& outline, COLORREF fill, const Clip& clip) override;
  void Text(CPoint topLeft, std::string_view utf8, const FontRequest& font, COLORREF color,
            const Clip& clip) override;
  CSize TextExtent(std::string_view utf8, const FontRequest& font) const override;
  int TextAscent(const FontRequest& font) const override;

  /// The painter of an open device, clipped, in plain copying mode.
  QPainter& Clipped(const Clip& clip);

 protected:
  PaintedDevice() = default;

  /// Readies the painter for the next primitive. Returns false when there is nothing to paint on.
  virtual bool prepare() = 0;
  /// Paints on target, which has size in its own pixels, until close. Returns false when target
  /// can't be painted on.
  bool open(QPaintDevice& target, QSize size);
  bool isOpen() const { return painter_.isActive(); }
  /// What is drawn is in the target then. Returns false when it wasn't open, or the target reports
  /// that it failed.
  bool close() const { return isOpen() && painter_.end(); }
  bool isPicture() const;

  CSize size_;
  PixelScale scale_{1.0};

 private:
  struct Pen {
    int style;
    COLORREF color;
    int width;
    double offset;
    friend bool operator==(const Pen&, const Pen&) = default;
  };

  bool begin(const Clip& clip, int mix);
  QRect areaOf(const Clip& clip) const;
  void setMix(int mix);
  void clipPainter();
  void fill(const QRect& area, QRgb color);
  void band(const QRect& area, Qt::Orientation along, const Stroke& stroke);
  void wideRuns(CPoint from, CPoint to, const Stroke& stroke);
  void obliqueLine(CPoint from, CPoint to, const Stroke& stroke);
  double penCentre(int c, int width) const;

  mutable QPainter painter_;  // closed by who looks at the pixels, which changes none of them
  QRect bounds_;
  QRect visible_;           // what the primitive in hand may change
  QRect painterClip_;       // what the painter is clipped to
  bool canMix_ = true;      // the target has modes beside copying
  int mix_ = R2_COPYPEN;    // what the painter is set to
  std::optional<Pen> pen_;  // that the painter has, where it is that of a line
  const CellFont* font_ = nullptr;
};

}  // namespace sparlow::qt
