#include "examples/host/Channel.h"

#include <cmath>
#include <limits>
#include <stdexcept>

#include "examples/host/Summary.h"
#include "sparlow/platform/Windows.h"
#include "sparlow/platform/qt/Application.h"

namespace sparlow::host {

namespace {

constexpr int kMarginPercent = 5;

CSingleGraphView* createView() {
  auto* const view = static_cast<CSingleGraphView*>(CSingleGraphView::CreateObject());
  if (!view->Create())
    throw std::runtime_error("the window system makes no window");
  return view;
}

/// A count with its thousands set apart.
std::string grouped(unsigned count) {
  std::string text = std::to_string(count);
  for (std::size_t at = text.size(); at > 3;)
    text.insert(at -= 3, ",");
  return text;
}

}  // namespace

Channel::Channel(std::unique_ptr<SampleSource> source, GraphColors& colors, int width, int height,
                 ErrorLog& log)
    : source_(std::move(source)),
      axis_(kMarginPercent, true, 1, false),
      view_(createView()),
      feeder_(*source_, series_, view_->GetSafeHwnd(), log) {
  series_.Init(source_->Name().c_str());
  series_.SetUnits(source_->Unit().c_str());
  view_->CreateGraph(&axis_);
  view_->SetColors(colors);
  view_->AddViewData(&series_);
  qt::Resize(*view_, width, height);
}

Channel::~Channel() {
  feeder_.Stop();
  recalculate_ = false;
  if (statistics_.joinable())
    statistics_.join();
  view_->DestroyWindow();
  series_.Term();
}

bool Channel::Settled() const {
  return feeder_.Finished() && !calculating_ && !view_->RenderDue();
}

void Channel::Recalculate() {
  if (!feeder_.Finished())
    return;
  recalculate_ = true;
  if (calculating_.exchange(true))
    return;
  // The one before has nothing left to do.
  statistics_ = std::jthread([this] {
    constexpr double most = std::numeric_limits<double>::max();
    do {
      while (recalculate_.exchange(false))
        series_.CalculateStatParams(-most, most);
      PostMessage(view_->GetSafeHwnd(), WM_UPDATE_GRAPH, 0, 0);
      calculating_ = false;
      // Asked for again meanwhile, when nobody else could have begun.
    } while (recalculate_ && !calculating_.exchange(true));
  });
}

std::string Channel::Status() const {
  const SampleReader samples = series_.Read();
  std::string text = feeder_.Finished() ? "finished" : source_->Activity();
  text += ": " + grouped(samples.size()) + (samples.size() == 1 ? " sample" : " samples");
  constexpr double plain = 1000.0;
  constexpr double most = 1e9;
  if (const double rate = SampleRate(samples); rate >= plain && rate <= most)
    text += ", " + grouped(static_cast<unsigned>(std::lround(rate))) + " per second";
  else if (rate > 0)
    text += ", " + FormatNumber(rate, 4) + " per second";
  return text;
}

}  // namespace sparlow::host
