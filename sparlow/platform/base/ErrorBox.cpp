#include "sparlow/platform/base/ErrorBox.h"

#include <cstdarg>
#include <cstdio>
#include <string>

#include "sparlow/platform/base/Text.h"
#include "sparlow/platform/base/UiThread.h"

namespace sparlow {

int ShowErrorBox(unsigned style, const char* caption, const char* format, ...) {
  constexpr std::size_t bufferSize = 1024;
  // One byte more than is shown, so that a sequence that is cut can be told from a whole one.
  char text[bufferSize + 1] = "";
  if (format) {
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
  }
  const std::string title = GetApplicationName() + ": " + (caption ? caption : "");
  return UiThread::ShowBox(
      {std::string(CutText(text, bufferSize - 1)), title, style | MB_TASKMODAL});
}

}  // namespace sparlow
