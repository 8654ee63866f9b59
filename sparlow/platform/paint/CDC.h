#pragma once

#include <cstdint>

#include "sparlow/platform/base/Text.h"
#include "sparlow/platform/paint/GdiObjects.h"
#include "sparlow/platform/paint/LogicalPixel.h"

namespace sparlow {

inline constexpr unsigned TA_LEFT = 0;
inline constexpr unsigned TA_RIGHT = 2;
inline constexpr unsigned TA_CENTER = 6;
inline constexpr unsigned TA_TOP = 0;
inline constexpr unsigned TA_BOTTOM = 8;
inline constexpr unsigned TA_BASELINE = 24;

inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

inline constexpr unsigned DT_SINGLELINE = 0x20;
inline constexpr unsigned DT_WORD_ELLIPSIS = 0x40000;

inline constexpr std::uint32_t SRCCOPY = 0x00CC0020;
inline constexpr int LOGPIXELSY = 90;

/// a * b / c, rounded to the nearest; -1 when c is 0.
int MulDiv(int a, int b, int c);

/// Where a CDC draws and the state that it draws with. A new one has a black pen one pixel wide, a
/// white brush, black text on white aligned left and top, and no clip.
class DeviceContext {
 public:
  /// The context of a surface, which stays the caller's. Null: a memory context, which draws
  /// nothing until a bitmap is selected into it.
  explicit DeviceContext(Device* surface) : device(surface) {}

  Device* device;
  HBITMAP bitmap = nullptr;
  const CPen* pen = nullptr;
  const CFont* font = nullptr;
  std::optional<CRect> clip;  ///< in device coordinates, whatever the origin is
  CPoint origin;              ///< device coordinates of the logical point (0, 0)
  CPoint current;             ///< current point, logical
  int mix = R2_COPYPEN;
  int backgroundMode = OPAQUE;
  unsigned textAlign = TA_LEFT | TA_TOP;
  COLORREF textColor = 0x000000;
  COLORREF backgroundColor = 0xFFFFFF;  ///< of text cells, unless backgroundMode is TRANSPARENT
  COLORREF brushColor = 0xFFFFFF;
  double pixelFactor = 1.0;
};

/// The drawing operations on a device context. Coordinates are logical: the viewport origin is
/// added to them. Any int is allowed; what lies off the surface isn't drawn.
class CDC {
 public:
  CDC() = default;
  explicit CDC(HDC dc) : dc_(dc) {}

  void Attach(HDC dc) { dc_ = dc; }
  HDC Detach();
  HDC GetSafeHdc() const { return dc_; }

  /// @name Lines and areas
  ///@{

  /// LineTo draws the end point too, so that a line of no length is a dot.
  void MoveTo(int x, int y);
  void LineTo(int x, int y);
  void FillSolidRect(const CRect& rect, COLORREF color);
  void Rectangle(const CRect& rect);
  void Ellipse(const CRect& rect);
  ///@}

  /// @name Text
  ///@{

  void TextOut(int x, int y, const CString& text);
  /// One line of text at the top left of rect, cut with an ellipsis where DT_WORD_ELLIPSIS asks.
  void DrawText(const CString& text, const CRect& rect, unsigned format);
  CSize GetTextExtent(const CString& text) const;
  ///@}

  /// @name State
  /// Each returns what was in force before. A null pen or font is the default one.
  ///@{

  const CPen* SelectObject(const CPen* pen);
  const CFont* SelectObject(const CFont* font);
  HBITMAP SelectObject(HBITMAP bitmap);
  /// Clips to the region, given in device coordinates; null takes the clip away.
  void SelectClipRgn(const CRgn* region);
  CPoint SetViewportOrg(int x, int y);
  CPoint GetViewportOrg() const;
  int SetROP2(int mix);
  int SetBkMode(int mode);
  unsigned SetTextAlign(unsigned align);
  COLORREF SetTextColor(COLORREF color);
  COLORREF GetTextColor() const;
  /// What margins, pens and marks are multiplied by on this device, besides
  /// LogicalPixel::LogPixelSize: 1 on the screen, more on the page of a printer.
  double GetPixelFactor() const { return dc_ ? dc_->pixelFactor : 1.0; }
  void SetPixelFactor(double factor);
  /// Logical pixels in pixels of this device.
  int LogicalToDevice(int logical) const {
    return LogicalPixel::ToDevice(logical, GetPixelFactor());
  }
  ///@}

  /// @name Pixels
  ///@{

  /// Copies from another context; honours both origins, and a rectangle whose edges are the wrong
  /// way round copies the same pixels as if they were sorted.
  void BitBlt(int x, int y, int width, int height, HDC source, int xSource, int ySource,
              std::uint32_t operation);
  /// CLR_INVALID outside the surface.
  COLORREF GetPixel(CPoint point) const;
  /// LOGPIXELSY, the only one: pixels per inch. Without a surface, a screen's.
  int GetDeviceCaps(int index) const;
  ///@}

 private:
  Device* device() const { return dc_ ? dc_->device : nullptr; }
  CPoint toDevice(int x, int y) const;
  CRect toDevice(const CRect& rect) const;
  Stroke stroke() const;
  const FontRequest& font() const;

  HDC dc_ = nullptr;
};

/// Puts a device context back into the state that it had, with its bitmap, pen and font.
class SavedDC {
 public:
  explicit SavedDC(HDC dc) : dc_(dc), state_(*dc) {}
  ~SavedDC() { *dc_ = state_; }
  SavedDC(const SavedDC&) = delete;
  SavedDC& operator=(const SavedDC&) = delete;

 private:
  const HDC dc_;
  const DeviceContext state_;
};

/// A memory device context without a bitmap, to be freed with DeleteDC.
HDC CreateCompatibleDC(HDC dc);
/// Frees what CreateCompatibleDC made. Null is allowed.
void DeleteDC(HDC dc);

}  // namespace sparlow
