#include "sparlow/platform/paint/CDC.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void ViewData::Draw(CDC* dc, int /*height*/, bool bold) const {
  if (!dc)
    return;
  const std::lock_guard<OwnMutex> lock(columnsLock_);
  const unsigned columns = nColumns;
  const int width = dc->LogicalToDevice(bold ? 2 : 1);
  const COLORREF curve = color;
  const CPen pen(PS_SOLID, width, curve);
  const CPen* const before = dc->SelectObject(&pen);
  const bool joined = !sparse || GetLineStyle() != 0;
  const bool squares = sparse && GetPointStyle() == 1;
  if (columns != 0)
    dc->MoveTo(xPos[0], yPos[0]);
  for (unsigned i = 0; i < columns; ++i) {
    const int x = xPos[i], y = yPos[i];
    if (joined)
      dc->LineTo(x, y);
    else
      dc->MoveTo(x, y);
    if (squares) {
      dc->FillSolidRect({x - width, y - width, x + width + 1, y + width + 1}, curve);
      continue;
    }
    // A column of one pixel is where its line has ended.
    if (!joined || yMinPos[i] != yMaxPos[i]) {
      dc->MoveTo(x, yMinPos[i]);
      dc->LineTo(x, yMaxPos[i]);
    }
    // The line to the next column goes on at the latest sample, which lies on the stroke.
    dc->MoveTo(x, yLastPos[i]);
  }
  dc->SelectObject(before);
}

void ViewData::DrawWaveform(CDC* dc, COLORREF falling, COLORREF rising) const {
  if (!dc)
    return;
  const std::lock_guard<OwnMutex> lock(columnsLock_);
  const int width = dc->LogicalToDevice(2);
  const CPen fallingPen(PS_SOLID, width, falling);
  const CPen risingPen(PS_SOLID, width, rising);
  const int d = dc->LogicalToDevice(1) <= 1 ? 2 : 8;
  const unsigned columns = nColumns;
  for (unsigned i = 0; i < columns; ++i) {
    const int x = xPos[i], y = yPos[i];
    const bool rises = rising_[i];
    const CPen* const before = dc->SelectObject(rises ? &risingPen : &fallingPen);
    dc->MoveTo(rises ? x + d : x - d, y - d);
    dc->LineTo(rises ? x - d : x + d, y + d);
    dc->SelectObject(before);
  }
}

}  // namespace sparlow
