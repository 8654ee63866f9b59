#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QString>
#include <string_view>

#include "sparlow/platform/paint/Device.h"

namespace sparlow::qt {

/// A font whose character cell has the height that was asked for, or the next lower one there is.
/// Threads: the window's.
struct CellFont {
  QFont font;
  QFontMetrics metrics;
  int Ascent() const { return metrics.ascent(); }
  int CellHeight() const { return metrics.ascent() + metrics.descent(); }
};

/// The font for a request; it is searched once, and stays valid until ForgetFonts.
const CellFont& FontFor(const FontRequest& request);
/// Fonts must not outlive the application object that they were found by.
void ForgetFonts();

inline QString FromUtf8(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace sparlow::qt
