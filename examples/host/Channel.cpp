#include "examples/host/Channel.h"

#include <cmath>
#include <limits>
#include <utility>

#include "examples/host/Summary.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow::host {

Channel::Channel(std::unique_ptr<SampleSource> source, ErrorLog& log)
    : source_(std::move(source)),
      feeder_(
          *source_, series_, [this] { tellViews(); }, log) {
  series_.Init(source_->Name().c_str());
  series_.SetUnits(source_->Unit().c_str());
}

Channel::~Channel() {
  Stop();
  series_.Term();
}

void Channel::Stop() {
  feeder_.Stop();
  recalculate_ = false;
  if (statistics_.joinable())
    statistics_.join();
}

void Channel::AddListener(HWND view) {
  const std::lock_guard guard(listenersLock_);
  listeners_.push_back(view);
}

void Channel::RemoveListener(HWND view) {
  const std::lock_guard guard(listenersLock_);
  std::erase(listeners_, view);
}

void Channel::tellViews() {
  const std::lock_guard guard(listenersLock_);
  for (const HWND view : listeners_)
    PostMessage(view, WM_UPDATE_GRAPH, 0, 0);
}

void Channel::Recalculate() {
  if (!finished_) {
    recalculateLater_ = true;
    return;
  }
  recalculate_ = true;
  if (calculating_.exchange(true))
    return;
  // The one before has nothing left to do.
  statistics_ = std::jthread([this] {
    constexpr double most = std::numeric_limits<double>::max();
    do {
      while (recalculate_.exchange(false))
        series_.CalculateStatParams(-most, most);
      tellViews();
      calculating_ = false;
      // Asked for again meanwhile, when nobody else could have begun.
    } while (recalculate_ && !calculating_.exchange(true));
  });
}

bool Channel::CatchUp() {
  if (finished_ || !feeder_.Finished())
    return false;
  finished_ = true;
  if (SourceData::nLastSamplesToDraw != 0 && series_.GetFrom() != 0)
    newest_ = {series_.GetFrom(), series_.GetTo()};
  if (recalculateLater_)
    Recalculate();
  return true;
}

bool Channel::LeavesNewest() {
  // A zoom of samples that still come lasts until the next of them only.
  const auto left = std::exchange(newest_, std::nullopt);
  return !finished_ || left == SampleInterval{series_.GetFrom(), series_.GetTo()};
}

std::string Channel::Status() const {
  const SampleReader samples = series_.Read();
  std::string text = feeder_.Finished() ? "finished" : source_->Activity();
  text += ": " + CountSamples(samples.size());
  constexpr double plain = 1000.0;
  constexpr double most = 1e9;
  if (const double rate = SampleRate(samples); rate >= plain && rate <= most)
    text += ", " + Grouped(static_cast<unsigned>(std::lround(rate))) + " per second";
  else if (rate > 0)
    text += ", " + FormatNumber(rate, 4) + " per second";
  return text;
}

}  // namespace sparlow::host
