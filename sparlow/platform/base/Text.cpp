#include "sparlow/platform/base/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdarg>
#include <cstdio>

namespace sparlow {

namespace {

bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0u) == 0x80u;
}

/// Bytes of the UTF-8 sequence that begins at text[0], 0 if none does.
std::size_t sequenceLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  std::size_t length = 0;
  if (lead < 0x80)
    return 1;
  if (lead >= 0xC2 && lead < 0xE0)
    length = 2;
  else if (lead >= 0xE0 && lead < 0xF0)
    length = 3;
  else if (lead >= 0xF0 && lead < 0xF5)
    length = 4;
  if (length == 0 || text.size() < length)
    return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if (!isContinuation(text[i]))
      return 0;
  }
  const auto second = static_cast<unsigned char>(text[1]);
  const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
  const bool surrogate = lead == 0xED && second >= 0xA0;
  const bool beyondUnicode = lead == 0xF4 && second >= 0x90;
  return overlong || surrogate || beyondUnicode ? 0 : length;
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = sequenceLength(text);
    if (length == 0)
      return false;
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace

CString FormatText(const char* format, ...) {
  if (!format)
    return {};
  std::va_list arguments;
  va_start(arguments, format);
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, arguments);
  va_end(arguments);
  CString text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
  if (length > 0)
    std::vsnprintf(text.data(), text.size() + 1, format, again);
  va_end(again);
  return text;
}

CString FormatNumber(double value, int digits) {
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general,
                                 std::clamp(digits, 1, 17));
  return CString(text, end.ptr);
}

CString ToUtf8(std::string_view bytes) {
  if (isUtf8(bytes))
    return CString(bytes);
  CString text;
  text.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      text += c;
    } else {
      text += static_cast<char>(0xC0u | (byte >> 6));
      text += static_cast<char>(0x80u | (byte & 0x3Fu));
    }
  }
  return text;
}

std::string_view CutText(std::string_view text, std::size_t limit) {
  if (text.size() <= limit)
    return text;
  // Only a sequence that is whole in the text can be torn by the cut; stray bytes are Latin-1.
  for (std::size_t back = 1; back <= 3 && back <= limit; ++back) {
    const std::size_t start = limit - back;
    if (isContinuation(text[start]))
      continue;
    const std::size_t length = sequenceLength(text.substr(start));
    return text.substr(0, length > back ? start : limit);
  }
  return text.substr(0, limit);
}

}  // namespace sparlow
