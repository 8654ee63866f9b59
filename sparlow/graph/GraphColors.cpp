#include "sparlow/graph/GraphColors.h"

#include <array>

namespace sparlow {

namespace {

/// The four columns of one colour; 0x00BBGGRR.
using Row = std::array<COLORREF, 4>;

struct ColorRow {
  COLORREF GraphColors::*color;
  Row schemes;
};

constexpr ColorRow table[] = {
    {&GraphColors::trace, {0x505050, 0x00FFFF, 0x00FFFF, 0x00FF00}},
    {&GraphColors::aux1, {0xFCCCCC, 0xD0E040, 0xD6E357, 0x009700}},
    {&GraphColors::edgeFalling, {0x00C0FF, 0x00C0FF, 0x0000FF, 0x00FF00}},
    {&GraphColors::edgeRising, {0x0020FF, 0x0020FF, 0x00FFFF, 0x00FF00}},
    {&GraphColors::aux2, {0x7F0000, 0x7F0000, 0x00FFFF, 0x00FF00}},
    {&GraphColors::aux3, {0x000000, 0x00FFFF, 0x00FFFF, 0x00FF00}},
    {&GraphColors::text, {0x000000, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF}},
    {&GraphColors::backActive, {0xFFFFFF, 0x5E0000, 0x4E4E4E, 0x000000}},
    {&GraphColors::backInactive, {0xE0E0E0, 0x350000, 0x000000, 0x505050}},
    {&GraphColors::cursorLeft, {0x0000FF, 0xFF0000, 0x0000FF, 0x0000FF}},
    {&GraphColors::cursorRight, {0x00A000, 0x62FF62, 0x00FF00, 0xFF0000}},
    {&GraphColors::aux4, {0x00C0FF, 0x00FF00, 0xFF0000, 0xFF0000}},
    {&GraphColors::grid, {0xBCBCBC, 0xC0C0C0, 0xC60000, 0x666666}},
    {&GraphColors::frame, {0x000000, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF}},
    {&GraphColors::fixedAxis, {0x0000FF, 0x0000FF, 0x0000FF, 0x0000FF}},
    {&GraphColors::aux5, {0xA7A7A7, 0x2F7F7F, 0x27A6A6, 0x007F00}},
};

}  // namespace

void GraphColors::LoadScheme(int number) {
  scheme = number;
  const std::size_t column = number >= 1 && number <= 3 ? static_cast<std::size_t>(number) : 0;
  for (const ColorRow& row : table)
    this->*row.color = row.schemes[column];
}

}  // namespace sparlow
