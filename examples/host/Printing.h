#pragma once

#include <string>

class QPrinter;

namespace sparlow {
class CSingleGraphView;
}

namespace sparlow::host {

/// Paper of a PDF file: its size in millimetres, and its resolution.
/// Threads: a value.
struct Paper {
  double width = 297;
  double height = 210;
  int pixelsPerInch = 600;
};

// Each prints a view on one page. False when it can't be written, or there is nothing to print.
// Threads: the window's.

/// Into a PDF file, which takes the place of an older one.
bool PrintToFile(CSingleGraphView& view, const std::string& title, const std::string& path,
                 const Paper& paper);
/// On the printer, in its present settings.
bool PrintOn(QPrinter& printer, CSingleGraphView& view);

}  // namespace sparlow::host
