// The text operations of CDC.

#include "sparlow/platform/paint/CDC.h"

namespace sparlow {

void CDC::TextOut(int x, int y, const CString& text) {
  if (!device() || text.empty())
    return;
  const CString utf8 = ToUtf8(text);
  const CSize extent = device()->TextExtent(utf8, font());
  CPoint topLeft = toDevice(x, y);
  const unsigned align = dc_->textAlign;
  if ((align & TA_CENTER) == TA_CENTER)
    topLeft.x -= extent.cx / 2;
  else if ((align & TA_RIGHT) == TA_RIGHT)
    topLeft.x -= extent.cx;
  if ((align & TA_BASELINE) == TA_BASELINE)
    topLeft.y -= device()->TextAscent(font());
  else if ((align & TA_BOTTOM) == TA_BOTTOM)
    topLeft.y -= extent.cy;
  const CRect cell{topLeft.x, topLeft.y, topLeft.x + extent.cx, topLeft.y + extent.cy};
  const CSize size = device()->Size();
  if (cell.Intersect({0, 0, size.cx, size.cy}).IsRectEmpty())
    return;
  if (dc_->backgroundMode == OPAQUE)
    device()->FillRect(cell, dc_->backgroundColor, dc_->clip);
  device()->Text(topLeft, utf8, font(), dc_->textColor, dc_->clip);
}

void CDC::DrawText(const CString& text, const CRect& rect, unsigned format) {
  if (!device())
    return;
  CString shown = ToUtf8(text);
  if ((format & DT_WORD_ELLIPSIS) != 0 && GetTextExtent(shown).cx > rect.Width()) {
    const CString ellipsis = "...";
    while (!shown.empty() && GetTextExtent(shown + ellipsis).cx > rect.Width())
      shown = CutText(shown, shown.size() - 1);
    shown += ellipsis;
  }
  const unsigned align = SetTextAlign(TA_LEFT | TA_TOP);
  const Device::Clip clip = dc_->clip;
  const CRect area = toDevice(rect);
  dc_->clip = clip ? clip->Intersect(area) : area;
  TextOut(rect.left, rect.top, shown);
  dc_->clip = clip;
  SetTextAlign(align);
}

CSize CDC::GetTextExtent(const CString& text) const {
  return device() ? device()->TextExtent(ToUtf8(text), font()) : CSize{};
}

}  // namespace sparlow
