#pragma once

#include "sparlow/platform/paint/CDC.h"

namespace sparlow {

/// A pen in a device context for as long as it lives.
class SelectedPen {
 public:
  SelectedPen(CDC* dc, int style, int width, COLORREF color)
      : dc_(dc), pen_(style, width, color), before_(dc->SelectObject(&pen_)) {}
  ~SelectedPen() { dc_->SelectObject(before_); }
  SelectedPen(const SelectedPen&) = delete;
  SelectedPen& operator=(const SelectedPen&) = delete;

 private:
  CDC* const dc_;
  const CPen pen_;
  const CPen* const before_;
};

}  // namespace sparlow
