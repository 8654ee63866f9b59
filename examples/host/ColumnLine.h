#pragma once

#include <string_view>

namespace sparlow::host {

/// What a line of columns says. Numbers are read the same in every locale: a point for decimals, an
/// exponent if need be, no other base than ten.
/// Threads: a value; it points into the line.
struct ColumnLine {
  enum class Kind {
    nothing,      ///< empty, or a comment
    sample,       ///< as many finite numbers as were wanted
    notFinite,    ///< the same, but one is infinite, too large or not a number
    missing,      ///< the first number and then nothing
    emptyColumn,  ///< two separators with nothing in between, or one in front
    mixed,        ///< a comma and another separator: a decimal comma, most likely
    notNumber,    ///< word is no number
    words         ///< the same, and no other column is a number either
  };

  /// Reads the first columns of a line: 1 or 2 numbers. Further ones are left unread.
  static ColumnLine Parse(std::string_view line, int columns);

  Kind kind = Kind::nothing;
  double first = 0.0;
  double second = 0.0;
  std::string_view word = {};
  bool more = false;  ///< there are further columns
};

}  // namespace sparlow::host
