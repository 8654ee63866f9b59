// One graph on a page, by the same painting code as on the screen, and the way back to the screen.

#include <vector>

#include "sparlow/data/DataLock.h"
#include "sparlow/graph/GraphPainter.h"
#include "sparlow/graph/GraphParts.h"
#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

/// The looks of paper for as long as it lives: dark on white, with pens and margins for a printer's
/// resolution.
class Graph::PaperLooks {
 public:
  explicit PaperLooks(Graph& graph) : graph_(graph), colors_(graph.colors) {
    for (ViewData* const series : graph.AllSeries()) {
      traces_.emplace_back(series, series->GetColor());
      // One for a dark screen may not be seen on paper.
      series->SetColor(paper_.Visible(series->GetColor()));
    }
    constexpr double pixelsOnPaper = 7;
    graph.pixelFactor = pixelsOnPaper;
    graph.SetColors(&paper_);
  }
  ~PaperLooks() {
    graph_.pixelFactor = 1.0;
    // Whatever becomes of the data, points of the window are the window's again.
    graph_.layOut();
    graph_.SetColors(colors_);
    // Those of several series aren't the scheme's.
    for (const auto& [series, color] : traces_)
      series->SetColor(color);
  }
  PaperLooks(const PaperLooks&) = delete;
  PaperLooks& operator=(const PaperLooks&) = delete;

 private:
  Graph& graph_;
  GraphColors* const colors_;
  GraphColors paper_;
  std::vector<std::pair<ViewData*, COLORREF>> traces_;
};

void Graph::Print(CDC* dc, const CRect& rect) {
  if (!dc || !dc->GetSafeHdc() || !DataAndAxisValid())
    return;
  const WindowHold hold(hWnd);
  CRect area = rect;
  area.NormalizeRect();
  bool tooLarge = false;
  {
    const RenderPipeline::Turn turn(parts->pipeline, RenderPipeline::Turn::stopsRender);
    const UiThread::AnswerBoxes answered(this);
    while (turn && DataAndAxisValid() && !tryPrint(dc, area, &tooLarge)) {
    }
  }
  if (!DataAndAxisValid())
    return;
  sbRender();
  if (!update())
    parts->pipeline.Ask(true, true);
  warnTooLarge(tooLarge);
}

bool Graph::tryPrint(CDC* dc, const CRect& area, bool* tooLarge) {
  std::vector<std::unique_ptr<DataLock>> noAnalysis;
  for (const ViewData* const series : AllSeries()) {
    noAnalysis.push_back(std::make_unique<DataLock>(series->threadsMutex, std::try_to_lock));
    if (*noAnalysis.back())
      continue;
    // With none of the others: its analysis may need one of them.
    noAnalysis.clear();
    const DataLock analysed(series->threadsMutex);
    return false;
  }
  try {
    *tooLarge = printFrame(dc, area);
  } catch (...) {
    // The window isn't to be painted by the layout of the page.
    parts->pipeline.Ask(true, false);
    throw;
  }
  return true;
}

bool Graph::printFrame(CDC* dc, const CRect& area) {
  const PaperLooks paper(*this);
  SetGraphArea(area);
  RenderSecondaryGraphs();
  RenderGraph(true);
  // Whatever a host draws or throws, its context gets its font, origin and clip back.
  const SavedDC before(dc->GetSafeHdc());
  CFont font;
  GraphPainter::CreateTextFont(&font, dc);
  dc->SelectObject(&font);
  GraphToDC(dc, area);
  if (active)
    drawMarkers(dc->GetSafeHdc(), nullptr, area);
  return layout.TooLarge();
}

}  // namespace sparlow
