#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "sparlow/platform/base/Geometry.h"
#include "sparlow/view/ViewData.h"
#include "tests/support/FoldModel.h"

namespace sparlow::test {

/// A view that is set up and taken down with its object; T is ViewData or a class like it.
template <class T>
struct Live : T {
  Live() { T::Init("view"); }
  ~Live() override { T::Term(); }
  Live(const Live&) = delete;
  Live& operator=(const Live&) = delete;

  /// One sample for each pixel of an axis that unitAxis made.
  void add(const std::vector<CPoint>& pixels) {
    for (const CPoint& p : pixels)
      this->Add(p.x, -p.y);
  }
  void fill(const std::vector<CPoint>& pixels) {
    this->Reset();
    add(pixels);
    this->AdjustSizeTo();
  }
};

/// One pixel for each unit of x, and of y downward from 0: GetPosInv(-y) is y.
inline GraphAxis unitAxis() {
  GraphAxis axis;
  axis.hor.scale = axis.ver.scale = 1.0;
  return axis;
}

}  // namespace sparlow::test
