// What the menus do to a session.

#include <QFileDialog>
#include <QMenuBar>
#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <cstdio>

#include "examples/host/HostMenu.h"
#include "examples/host/Printing.h"
#include "examples/host/Session.h"

namespace sparlow::host {

void Session::addMenus() {
  FillMenuBar(*window_.menuBar(), options_.scheme,
              {.view = [this] { return panes_.CurrentView(); },
               .command = [this](ViewCommand which) { panes_.Command(which); },
               .takeScheme = [this](int scheme) { panes_.TakeScheme(scheme); },
               .repaint = [this] { panes_.Repaint(); },
               .recalculate =
                   [this] {
                     for (const auto& channel : channels_)
                       channel->Recalculate();
                     panes_.RecalculateAll();
                   },
               .takeNewest = [this](unsigned newest) { takeNewest(newest); },
               .feeding =
                   [this] {
                     Channel* const channel = panes_.CurrentChannel();
                     return channel && !channel->Feed().Finished();
                   },
               .stop = [this] { stop(); },
               .print = [this] { print(); },
               .exportPdf = [this] { exportPdf(); },
               .close = [this] { window_.close(); }});
  addSeriesMenus();
}

void Session::addSeriesMenus() {
  // With the pane in front, if there is one.
  const auto inPane = [this](const auto& action) {
    return [this, action](const auto&... argument) {
      if (Pane* const pane = panes_.Current())
        action(*pane, argument...);
    };
  };
  AddSeriesMenus(
      *window_.menuBar(), options_.view,
      {.sources = [this] { return sources(); },
       .put = [this](std::size_t source, bool on) { panes_.Put(*channels_.at(source), on); },
       .addAverage = inPane([](Pane& pane, unsigned samples) { pane.AddAverage(samples); }),
       .removeActive = inPane([](Pane& pane) { pane.RemoveActive(); }),
       .addMask = inPane([](Pane& pane, const MaskKind& mask) {
         pane.AddMask(mask);
         pane.RecalculateMasks();
       }),
       .removeLastMask = inPane([](Pane& pane) { pane.RemoveLastMask(); }),
       .removeAllMasks = inPane([](Pane& pane) { pane.RemoveAllMasks(); }),
       .anyMask = [this] { return panes_.Current() && panes_.Current()->AnyMask(); },
       .analyse = [this](AnalysisKind kind) { panes_.Analyse(kind); },
       .recalculate =
           [this] {
             if (Channel* const channel = panes_.CurrentChannel())
               channel->Recalculate();
             panes_.Recalculate();
           }});
}

std::vector<SourceItem> Session::sources() const {
  std::vector<SourceItem> items;
  const Pane* const pane = panes_.Current();
  for (const auto& channel : channels_) {
    const bool shown = pane && pane->Shows(*channel);
    const bool several = pane && pane->Kind() != ViewKind::single;
    items.push_back({channel->Name(), shown, several && (!shown || pane->Count() > 1)});
  }
  return items;
}

void Session::takeNewest(unsigned newest) {
  const unsigned before = SourceData::nLastSamplesToDraw;
  SourceData::nLastSamplesToDraw = newest;
  if (newest == 0 && before != 0)
    panes_.ShowAllAgain();
}

void Session::stop() {
  stoppedByUser_ = true;
  if (Channel* const channel = panes_.CurrentChannel())
    channel->Feed().End();
}

void Session::print() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setResolution(options_.paper.pixelsPerInch);
  printer.setPageOrientation(QPageLayout::Landscape);
  if (const Pane* const pane = panes_.Current())
    printer.setDocName(QString::fromStdString(pane->Title()));
  QPrintDialog dialog(&printer, &window_);
  if (dialog.exec() != QDialog::Accepted)
    return;
  // Another one may have come to the front meanwhile.
  if (const Pane* const pane = panes_.Current(); pane && !PrintOn(printer, pane->View()))
    log_.Tell("the page can't be printed");
}

void Session::exportPdf() {
  const QString path = QFileDialog::getSaveFileName(
      &window_, QStringLiteral("Export PDF"), QStringLiteral("graph.pdf"),
      QStringLiteral("PDF files (*.pdf);;All files (*)"));
  if (!path.isEmpty())
    printTo(path.toStdString());
}

void Session::printTo(const std::string& path) {
  const Pane* const pane = panes_.Current();
  if (!pane)
    return;
  if (PrintToFile(pane->View(), pane->Title(), path, options_.paper))
    std::puts(("printed: " + path).c_str());
  else
    log_.Tell(path + ": the page can't be printed");
}

}  // namespace sparlow::host
