#include "examples/host/ColumnLine.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace sparlow::host {

namespace {

using Kind = ColumnLine::Kind;

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}
bool isSeparator(char c) {
  return c == ',' || c == ';';
}
bool beginsComment(char c) {
  return c == '#' || c == '%';
}

void skipBlanks(std::string_view& rest) {
  while (!rest.empty() && isBlank(rest.front()))
    rest.remove_prefix(1);
}

/// True when nothing but a comment is left.
bool isOver(std::string_view rest) {
  return rest.empty() || beginsComment(rest.front());
}

/// The value of a number that no double holds: 0 when it is too small.
double outOfRange(std::string_view number) {
  const std::size_t exponent = number.find_first_of("eE");
  const bool small = exponent != std::string_view::npos
                         ? number.substr(exponent + 1).starts_with('-')
                         : number.find_first_of("123456789") > number.find('.');
  return small ? 0.0 : std::numeric_limits<double>::infinity();
}

/// Takes a number from the front of rest; false when there is a word.
bool takeNumber(std::string_view& rest, double& value) {
  const char* from = rest.data();
  const char* const end = from + rest.size();
  if (rest.size() > 1 && rest[0] == '+' && rest[1] != '-')
    ++from;
  const auto [stop, error] = std::from_chars(from, end, value);
  if (error == std::errc::invalid_argument)
    return false;
  if (stop != end && !isBlank(*stop) && !isSeparator(*stop) && !beginsComment(*stop))
    return false;
  if (error == std::errc::result_out_of_range)
    value = outOfRange({from, static_cast<std::size_t>(stop - from)});
  rest.remove_prefix(static_cast<std::size_t>(stop - rest.data()));
  return true;
}

/// Takes what separates two columns: a comma or a semicolon, with blanks around it or not, a tab, or
/// a blank. Of the last two, a tab counts; '\0' for blanks alone, and at the end of the line.
char takeSeparator(std::string_view& rest) {
  const std::string_view before = rest;
  skipBlanks(rest);
  if (!rest.empty() && isSeparator(rest.front())) {
    const char separator = rest.front();
    rest.remove_prefix(1);
    skipBlanks(rest);
    return separator;
  }
  const std::string_view blanks = before.substr(0, before.size() - rest.size());
  return !isOver(rest) && blanks.find('\t') != std::string_view::npos ? '\t' : '\0';
}

/// No column is a number. Where something else separates columns, blanks are part of them.
bool isWords(std::string_view line) {
  constexpr std::string_view all = ",;\t";
  const std::string_view separators = line.find_first_of(all) == std::string_view::npos ? " " : all;
  for (std::size_t end = 0; end != std::string_view::npos;) {
    end = line.find_first_of(separators);
    std::string_view column = line.substr(0, end);
    line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    skipBlanks(column);
    double value = 0;
    if (!takeNumber(column, value))
      continue;
    skipBlanks(column);
    if (isOver(column))
      return false;
  }
  return true;
}

std::string_view firstWord(std::string_view rest) {
  return rest.substr(0, rest.find_first_of(" \t,;"));
}

}  // namespace

ColumnLine ColumnLine::Parse(std::string_view line, int columns) {
  ColumnLine result;
  skipBlanks(line);
  if (isOver(line) || line.front() == ';')
    return result;
  double* const values[] = {&result.first, &result.second};
  const std::string_view whole = line;
  bool commas = false;
  bool others = false;
  for (int i = 0; i < columns; ++i) {
    if (isOver(line)) {
      result.kind = Kind::missing;
      return result;
    }
    if (isSeparator(line.front())) {
      result.kind = Kind::emptyColumn;
      return result;
    }
    if (!takeNumber(line, *values[i])) {
      result.kind = isWords(whole) ? Kind::words : Kind::notNumber;
      result.word = firstWord(line);
      return result;
    }
    const char separator = takeSeparator(line);
    commas = commas || separator == ',';
    others = others || separator == ';' || separator == '\t';
    if (commas && others) {
      result.kind = Kind::mixed;
      return result;
    }
  }
  result.more = !isOver(line);
  result.kind =
      std::isfinite(result.first) && std::isfinite(result.second) ? Kind::sample : Kind::notFinite;
  return result;
}

}  // namespace sparlow::host
