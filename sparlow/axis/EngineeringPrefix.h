#pragma once

#include <cstddef>
#include <string>

namespace sparlow {

/// @file
/// A power here is the exponent that a value is multiplied by for display: the negative of the
/// prefix's own exponent, so kilo is -3 and milli +3. Unit texts may be null, which is no unit.

/// Chars that a unit text takes at most, its NUL included.
inline constexpr std::size_t kUnitChars = 16;

/// 10 raised to power, by repeated squaring; for a negative power the reciprocal of that. Infinite
/// from 309 on.
double PowerOfTen(int power);

/// value x 10^power as it is shown. Also right where 10^power alone is beyond a double.
double TimesPowerOfTen(double value, int power);

/// The power, a multiple of 3, that brings the magnitude of value into [1, 1000). 0 for 0, for an
/// infinite value and for one that is not a number.
int FindPower(double value);

/// FindPower as far as the unit takes prefixes: none without a unit, with per cent and with degrees
/// (the sign in Latin-1 or UTF-8); seconds, or whatever begins in a small s, only those below 1.
int FindUnitPower(double value, const char* unit);

/// The unit with the prefix of power in front: "kHz" for -3 and "Hz". Powers without a prefix are
/// spelled out: "e-15s" for 15 and "s". Cut at 15 chars, but never inside a UTF-8 sequence.
std::string PrefixedUnit(int power, const char* unit);

/// Brings value into engineering form, in place, and writes the unit with its prefix to text, which
/// holds at least 16 chars: 0.0000125 with "s" becomes 12.5 and "us".
void FormatUnitValue(double& value, char* text, const char* unit);

/// Copies a unit text into a buffer of kUnitChars, NUL-terminated and cut as PrefixedUnit does. The
/// two may overlap.
void CopyUnitText(char* buffer, const char* text);

}  // namespace sparlow
