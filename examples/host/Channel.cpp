#include "examples/host/Channel.h"

#include <cmath>
#include <stdexcept>

#include "examples/host/Summary.h"
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
  view_->DestroyWindow();
  series_.Term();
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
