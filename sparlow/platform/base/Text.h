#pragma once

#include <string>
#include <string_view>

namespace sparlow {

/// The platform's text value. Texts are bytes; what they mean on a screen is what ToUtf8 gives.
using CString = std::string;

/// A printf-style text. A null format gives an empty text.
[[gnu::format(printf, 1, 2)]] CString FormatText(const char* format, ...);

/// A number with at most so many significant digits, with a point for its decimals whatever locale
/// a host has chosen.
CString FormatNumber(double value, int digits);

/// The text as UTF-8: valid UTF-8 is taken as it is, anything else as Latin-1.
CString ToUtf8(std::string_view bytes);

/// The longest beginning of a text that has at most limit bytes and doesn't end inside a UTF-8
/// sequence.
std::string_view CutText(std::string_view text, std::size_t limit);

}  // namespace sparlow
