#pragma once

#include <optional>

#include "sparlow/platform/qt/InkBatch.h"
#include "sparlow/platform/qt/PaintedDevice.h"

namespace sparlow::qt {

/// A page: anything that Qt paints on, in its own pixels and at its own resolution. On a picture it
/// gives the pixels that ImageDevice gives; everywhere else lines and areas are strokes and paths,
/// and text stays text. It can't be read, and nothing of it is filled at first.
class PageDevice final : public PaintedDevice {
 public:
  /// Paints on target, which must stay, until End.
  explicit PageDevice(QPaintDevice& target);
  ~PageDevice() override { End(); }

  /// Returns false when target can't be painted on, as while somebody else paints on it; drawing is
  /// lost then, and after End.
  bool IsOpen() const { return isOpen(); }
  /// The pages drawn so far are drawn whole. To be called before the target takes a new one.
  void Flush();
  /// Returns false when it wasn't open, or the target reports that it failed.
  bool End();

  int PixelsPerInch() const override;
  void Line(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip) override;
  void FillRect(const CRect& rect, COLORREF color, const Clip& clip) override;
  void Ellipse(const CRect& rect, const Stroke& outline, COLORREF fill, const Clip& clip) override;
  CSize TextExtent(std::string_view utf8, const FontRequest& font) const override;
  void Copy(const CRect& to, const Device& source, CPoint from, const Clip& clip) override;
  COLORREF PixelAt(CPoint) const override { return 0xFFFFFFFFu; }
  /// A surface in memory of one pixel for one of the page's, but with a screen's resolution.
  std::unique_ptr<Device> MakeCompatible(CSize size) const override;

 private:
  bool prepare() override;

  QPaintDevice& target_;
  std::optional<InkBatch> ink_;  // unless the page is a picture
};

}  // namespace sparlow::qt
