#include "sparlow/graph/GraphColors.h"

#include <array>
#include <cmath>

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

constexpr int kShades = 16;

int channel(COLORREF color, int shift) {
  return static_cast<int>(color >> shift & 0xFFu);
}

COLORREF mix(COLORREF color, COLORREF other, int shades) {
  COLORREF mixed = 0;
  for (const int shift : {0, 8, 16}) {
    const int sum = channel(color, shift) * (kShades - shades) + channel(other, shift) * shades;
    mixed |= static_cast<COLORREF>(sum / kShades) << shift;
  }
  return mixed;
}

/// Relative luminance, 0 to 1 (W3C, Web Content Accessibility Guidelines 2.1).
double luminance(COLORREF color) {
  constexpr std::array<double, 3> weights{0.2126, 0.7152, 0.0722};
  double sum = 0.0;
  for (std::size_t i = 0; i < weights.size(); ++i)
    sum += weights[i] * std::pow(channel(color, static_cast<int>(8 * i)) / 255.0, 2.2);
  return sum;
}

/// A thin line on a dark ground has to be brighter; on a light one little is enough.
bool isSeen(COLORREF color, COLORREF ground) {
  constexpr double onDark = 3.0, onLight = 1.2, light = 0.5;
  const double line = luminance(color) + 0.05, under = luminance(ground) + 0.05;
  return line > under ? line >= onDark * under : under > light && under >= onLight * line;
}

}  // namespace

COLORREF GraphColors::Visible(COLORREF color) const {
  for (int shades = 0; shades < kShades; ++shades) {
    const COLORREF shade = mix(color, text, shades);
    if (isSeen(shade, backActive) && isSeen(shade, backInactive))
      return shade;
  }
  return text;
}

void GraphColors::LoadScheme(int number) {
  scheme = number;
  const std::size_t column = number >= 1 && number <= 3 ? static_cast<std::size_t>(number) : 0;
  for (const ColorRow& row : table)
    this->*row.color = row.schemes[column];
}

}  // namespace sparlow
