#pragma once

namespace sparlow {

/// Warns the user that something was refused, and waits until the box is closed. Its title is the
/// application's name, a colon and caption; its text is printf-style, cut at 1023 bytes. style:
/// MB_ICON*. Returns the button that closed the box.
/// Threads: any; the box comes up on the window's thread.
[[gnu::format(printf, 3, 4)]] int ShowErrorBox(unsigned style, const char* caption,
                                               const char* format, ...);

}  // namespace sparlow
