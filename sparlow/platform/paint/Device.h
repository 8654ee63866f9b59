#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "sparlow/platform/base/Geometry.h"
#include "sparlow/platform/base/Text.h"

namespace sparlow {

inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DASH = 1;
inline constexpr int PS_DOT = 2;
inline constexpr int PS_DASHDOT = 3;
inline constexpr int PS_DASHDOTDOT = 4;

inline constexpr int R2_NOTXORPEN = 10;
inline constexpr int R2_COPYPEN = 13;

/// How a line is drawn.
struct Stroke {
  int style = PS_SOLID;  ///< PS_SOLID, PS_DASH, ...
  int width = 1;         ///< pixels, at least 1
  COLORREF color = 0;
  int mix = R2_COPYPEN;  ///< R2_COPYPEN or R2_NOTXORPEN
};

/// A font by what is asked of it, not by what a system finds for it.
struct FontRequest {
  CString face = "Arial";
  int cellHeight = 15;  ///< pixels; ascent and descent together, not the em square
  int weight = 400;
  friend bool operator==(const FontRequest&, const FontRequest&) = default;
};

/// A drawing surface: a window's pixels, an off-screen bitmap or a page. It gets finished
/// primitives in its own pixels, with coordinates that are already saturated and near the surface;
/// the state of drawing is kept above it, in CDC.
/// Threads: one at a time, in general the window's.
class Device {
 public:
  /// Nothing outside it is changed; no value means no clip.
  using Clip = std::optional<CRect>;

  Device() = default;
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  virtual ~Device() = default;

  /// Width and height in pixels.
  virtual CSize Size() const = 0;
  /// Vertical resolution in pixels per inch; 96 on a screen, whatever its scale.
  virtual int PixelsPerInch() const = 0;

  /// Draws from one point to another, both included: equal points give one dot.
  virtual void Line(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip) = 0;
  virtual void FillRect(const CRect& rect, COLORREF color, const Clip& clip) = 0;
  /// An outlined and filled rectangle or ellipse; right and bottom edges are excluded.
  virtual void Rectangle(const CRect& rect, const Stroke& outline, COLORREF fill,
                         const Clip& clip) = 0;
  virtual void Ellipse(const CRect& rect, const Stroke& outline, COLORREF fill,
                       const Clip& clip) = 0;
  /// Draws UTF-8 text whose character cells have topLeft as their top left corner.
  virtual void Text(CPoint topLeft, std::string_view utf8, const FontRequest& font, COLORREF color,
                    const Clip& clip) = 0;
  /// Size of the text's character cells.
  virtual CSize TextExtent(std::string_view utf8, const FontRequest& font) const = 0;
  /// Distance from the top of a character cell to the base line.
  virtual int TextAscent(const FontRequest& font) const = 0;

  /// Copies the pixels of source that begin at from to the rectangle to.
  virtual void Copy(const CRect& to, const Device& source, CPoint from, const Clip& clip) = 0;
  /// CLR_INVALID outside the surface, and on a surface that can't be read, such as a page.
  virtual COLORREF PixelAt(CPoint point) const = 0;
  /// An off-screen surface of the same resolution and scale, black at first.
  virtual std::unique_ptr<Device> MakeCompatible(CSize size) const = 0;
};

}  // namespace sparlow
