#pragma once

#include "sparlow/platform/window/Resources.h"

namespace sparlow {

/// Number of the pointer that shows over a curve which a click would make the active one.
inline constexpr int IDC_POINTING_HAND = 102;

/// A hand whose forefinger points up, to its hot spot.
PointerShape PointingHand();

}  // namespace sparlow
