#include "sparlow/platform/paint/CDC.h"

#include <limits>
#include <utility>

#include "sparlow/platform/paint/LineClip.h"

namespace sparlow {

namespace {

const CPen defaultPen(PS_SOLID, 1, 0x000000);
const CFont defaultFont;

/// A sum of two coordinates that can't overflow, whatever a host passes.
int addSaturated(int a, int b) {
  constexpr std::int64_t limit = 1 << 30;
  return static_cast<int>(std::clamp(static_cast<std::int64_t>(a) + b, -limit, limit));
}

CRect withinDeviceLimit(const CRect& rect) {
  const auto fit = [](int c) {
    return std::clamp(c, -deviceCoordinateLimit, deviceCoordinateLimit);
  };
  return {fit(rect.left), fit(rect.top), fit(rect.right), fit(rect.bottom)};
}

}  // namespace

int MulDiv(int a, int b, int c) {
  if (c == 0)
    return -1;
  const std::int64_t product = static_cast<std::int64_t>(a) * b;
  const std::int64_t half = (c < 0 ? -static_cast<std::int64_t>(c) : c) / 2;
  const std::int64_t result = (product + (product < 0 ? -half : half)) / c;
  return result < std::numeric_limits<int>::min() || result > std::numeric_limits<int>::max()
             ? -1
             : static_cast<int>(result);
}

void CDC::SetPixelFactor(double factor) {
  if (dc_)
    dc_->pixelFactor = factor;
}

HDC CDC::Detach() {
  return std::exchange(dc_, nullptr);
}

CPoint CDC::toDevice(int x, int y) const {
  return {addSaturated(x, dc_->origin.x), addSaturated(y, dc_->origin.y)};
}

CRect CDC::toDevice(const CRect& rect) const {
  const CPoint topLeft = toDevice(rect.left, rect.top);
  const CPoint bottomRight = toDevice(rect.right, rect.bottom);
  return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

Stroke CDC::stroke() const {
  Stroke stroke = (dc_->pen ? dc_->pen : &defaultPen)->stroke();
  stroke.mix = dc_->mix;
  return stroke;
}

const FontRequest& CDC::font() const {
  return (dc_ && dc_->font ? dc_->font : &defaultFont)->request();
}

void CDC::MoveTo(int x, int y) {
  if (dc_)
    dc_->current = {x, y};
}

void CDC::LineTo(int x, int y) {
  if (!device())
    return;
  CPoint from = toDevice(dc_->current.x, dc_->current.y);
  CPoint to = toDevice(x, y);
  dc_->current = {x, y};
  if (ClipToDeviceLimit(from, to))
    device()->Line(from, to, stroke(), dc_->clip);
}

void CDC::FillSolidRect(const CRect& rect, COLORREF color) {
  if (device())
    device()->FillRect(withinDeviceLimit(toDevice(rect)), color, dc_->clip);
}

void CDC::Rectangle(const CRect& rect) {
  if (device())
    device()->Rectangle(withinDeviceLimit(toDevice(rect)), stroke(), dc_->brushColor, dc_->clip);
}

void CDC::Ellipse(const CRect& rect) {
  if (device())
    device()->Ellipse(withinDeviceLimit(toDevice(rect)), stroke(), dc_->brushColor, dc_->clip);
}

HBITMAP CDC::SelectObject(HBITMAP bitmap) {
  if (!dc_)
    return nullptr;
  dc_->device = bitmap ? bitmap->surface.get() : nullptr;
  return std::exchange(dc_->bitmap, bitmap);
}

const CPen* CDC::SelectObject(const CPen* pen) {
  return dc_ ? std::exchange(dc_->pen, pen) : nullptr;
}

const CFont* CDC::SelectObject(const CFont* font) {
  return dc_ ? std::exchange(dc_->font, font) : nullptr;
}

void CDC::SelectClipRgn(const CRgn* region) {
  if (!dc_)
    return;
  if (region)
    dc_->clip = region->rect();
  else
    dc_->clip.reset();
}

CPoint CDC::SetViewportOrg(int x, int y) {
  return dc_ ? std::exchange(dc_->origin, CPoint{x, y}) : CPoint{};
}

CPoint CDC::GetViewportOrg() const {
  return dc_ ? dc_->origin : CPoint{};
}

int CDC::SetROP2(int mix) {
  return dc_ ? std::exchange(dc_->mix, mix) : 0;
}

int CDC::SetBkMode(int mode) {
  return dc_ ? std::exchange(dc_->backgroundMode, mode) : 0;
}

unsigned CDC::SetTextAlign(unsigned align) {
  return dc_ ? std::exchange(dc_->textAlign, align) : 0;
}

COLORREF CDC::SetTextColor(COLORREF color) {
  return dc_ ? std::exchange(dc_->textColor, color) : 0;
}

COLORREF CDC::GetTextColor() const {
  return dc_ ? dc_->textColor : 0;
}

void CDC::BitBlt(int x, int y, int width, int height, HDC source, int xSource, int ySource,
                 std::uint32_t operation) {
  if (!device() || !source || !source->device || operation != SRCCOPY)
    return;
  CRect to = toDevice({x, y, addSaturated(x, width), addSaturated(y, height)});
  CPoint from = {addSaturated(xSource, source->origin.x), addSaturated(ySource, source->origin.y)};
  from.x = addSaturated(from.x, std::min(width, 0));
  from.y = addSaturated(from.y, std::min(height, 0));
  to.NormalizeRect();
  // Only what lies on both surfaces is copied, so that peers needn't look.
  const CSize size = device()->Size();
  const CSize sourceSize = source->device->Size();
  CRect visible = to.Intersect({0, 0, size.cx, size.cy});
  visible = visible.Intersect({to.left - from.x, to.top - from.y, to.left - from.x + sourceSize.cx,
                               to.top - from.y + sourceSize.cy});
  if (visible.IsRectEmpty())
    return;
  device()->Copy(visible, *source->device,
                 {from.x + visible.left - to.left, from.y + visible.top - to.top}, dc_->clip);
}

COLORREF CDC::GetPixel(CPoint point) const {
  return device() ? device()->PixelAt(toDevice(point.x, point.y)) : 0xFFFFFFFFu;
}

int CDC::GetDeviceCaps(int index) const {
  if (index != LOGPIXELSY)
    return 0;
  return device() ? device()->PixelsPerInch() : 96;
}

HDC CreateCompatibleDC(HDC) {
  return new DeviceContext(nullptr);
}

void DeleteDC(HDC dc) {
  delete dc;
}

}  // namespace sparlow
