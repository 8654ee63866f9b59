#pragma once

#include <typeinfo>

#include "sparlow/view/ViewData.h"

namespace sparlow::test {

/// A view that is set up and taken down with its object; T is ViewData or a class like it.
template <class T>
struct Live : T {
  Live() {
    T::UseStandardMapping(typeid(Live));
    T::Init("view");
  }
  ~Live() override { T::Term(); }
  Live(const Live&) = delete;
  Live& operator=(const Live&) = delete;
};

/// One pixel for each unit of x, and of y downward from 0: GetPosInv(-y) is y.
inline GraphAxis unitAxis() {
  GraphAxis axis;
  axis.hor.scale = axis.ver.scale = 1.0;
  return axis;
}

}  // namespace sparlow::test
