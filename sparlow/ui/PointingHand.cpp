#include "sparlow/ui/PointingHand.h"

namespace sparlow {

namespace {

constexpr CPoint hotSpot{13, 9};

/// Place of the picture's upper left corner in the shape.
constexpr CPoint corner{7, 8};

/// X is black, a point white, the rest transparent.
constexpr const char* picture[] = {
    "     XX           ",  //
    "    X..X          ",  // the tip, at the hot spot
    "    X..X          ",  //
    "    X..X          ",  //
    "    X..X          ",  //
    "    X..XXX        ",  //
    "    X..X..XXX     ",  //
    "    X..X..X..XX   ",  //
    "XXX X..X..X..X.X  ",  //
    "X..XX..X..X..X..X ",  //
    "X...X........X..X ",  //
    " X..X...........X ",  //
    "  X.X...........X ",  //
    "  X.............X ",  //
    "   X............X ",  //
    "   X...........X  ",  //
    "    X..........X  ",  //
    "    X..........X  ",  //
    "     X........X   ",  //
    "     X........X   ",  //
    "     XXXXXXXXXX   ",
};

}  // namespace

PointerShape PointingHand() {
  PointerShape hand;
  hand.id = IDC_POINTING_HAND;
  hand.hotSpot = hotSpot;
  std::size_t row = corner.y;
  for (const char* line : picture) {
    std::uint32_t bit = 0x80000000u >> corner.x;
    for (const char* pixel = line; *pixel; ++pixel, bit >>= 1) {
      if (*pixel == 'X')
        hand.black[row] |= bit;
      else if (*pixel == '.')
        hand.white[row] |= bit;
    }
    ++row;
  }
  return hand;
}

}  // namespace sparlow
