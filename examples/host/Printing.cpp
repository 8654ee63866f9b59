#include "examples/host/Printing.h"

#include <QPrinter>

#include "sparlow/platform/qt/Application.h"
#include "sparlow/ui/CSingleGraphView.h"

namespace sparlow::host {

namespace {

bool print(CSingleGraphView& view, qt::Page& page) {
  if (!page.IsOpen() || !view.DataValid())
    return false;
  view.Print(page.GetDC(), page.PrintableRect());
  return page.End();
}

}  // namespace

bool PrintToFile(CSingleGraphView& view, const std::string& title, const std::string& path,
                 const Paper& paper) {
  if (!view.DataValid())
    return false;
  qt::Page page(path, {.width = paper.width,
                       .height = paper.height,
                       .pixelsPerInch = paper.pixelsPerInch,
                       .title = title});
  return print(view, page);
}

bool PrintOn(QPrinter& printer, CSingleGraphView& view) {
  qt::Page page(printer);
  return print(view, page);
}

}  // namespace sparlow::host
