#include "examples/host/Panes.h"

#include <algorithm>
#include <utility>

#include "sparlow/platform/qt/Application.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow::host {

Panes::Panes(HostWindow& window, const HostOptions& options)
    : window_(window), options_(options), colors_(options.scheme) {
  window_.AddReadouts(infoBar_.Widget());
  answerWindow();
  answerViews();
}

Panes::~Panes() {
  Graph::SetInfoBar(nullptr);
  End();
}

void Panes::answerViews() {
  mainWindow_.focused = [this](const CSingleGraphView* view) { bringForward(view); };
  mainWindow_.doubleClicked = [this](const CSingleGraphView* view) {
    bringForward(view);
    Command(ViewCommand::showAll);
  };
  infoBar_.cursorMoved = [this] {
    if (Channel* const channel = CurrentChannel(); channel && SourceData::AnalyzeDataBetweenCursors)
      channel->Recalculate();
  };
}

void Panes::answerWindow() {
  window_.activated = [this](int index) { bringForward(static_cast<std::size_t>(index)); };
  window_.wheelTurned = [this](int notches) {
    for (int i = 0; i < std::abs(notches); ++i)
      Command(notches > 0 ? ViewCommand::zoomIn : ViewCommand::zoomOut);
  };
  // Posted: the menu runs an event loop, which isn't for the inside of the key's own event.
  window_.scrolled = [this](UINT message, int code) {
    PostMessage(CurrentView(), message, static_cast<WPARAM>(code), 0);
  };
  window_.menuWanted = [this] {
    CRect area;
    if (!GetClientRect(CurrentView(), &area))
      return;
    const CPoint middle{area.Width() / 2, area.Height() / 2};
    PostMessage(CurrentView(), WM_RBUTTONDOWN, 0, PackPoint(middle));
  };
}

Pane& Panes::open(ViewKind kind) {
  panes_.push_back(std::make_unique<Pane>(kind, colors_, options_.width, options_.height));
  Pane& pane = *panes_.back();
  window_.AddView(qt::WidgetOf(pane.View()));
  pane.renamed = [this, &pane] {
    if (const std::size_t index = indexOf(pane); index < panes_.size())
      window_.Rename(static_cast<int>(index), pane.Title());
  };
  return pane;
}

void Panes::close(const Pane& pane) {
  const std::size_t index = indexOf(pane);
  const auto ending = std::move(panes_.at(index));
  panes_.erase(panes_.begin() + static_cast<std::ptrdiff_t>(index));
  // Another tab in front comes back here by itself.
  window_.RemoveView(static_cast<int>(index));
}

void Panes::Show(Channel& channel) {
  const bool fits = options_.view != ViewKind::single && !panes_.empty() && !panes_.back()->Full();
  Pane& pane = fits ? *panes_.back() : open(options_.view);
  pane.Add(channel);
  // The first one stays the active one.
  if (fits)
    pane.Select(0);
  if (pane.Count() == 1) {
    for (const MaskKind& mask : options_.masks)
      pane.AddMask(mask);
  }
}

void Panes::Begin() {
  Graph::SetInfoBar(infoBar_.GetSafeHwnd());
  bringForward(std::size_t{0});
  if (Channel* const channel = CurrentChannel(); channel && options_.analysis)
    analyse(*channel, *options_.analysis);
}

void Panes::End() {
  // Taken first: whoever asks meanwhile finds none.
  const List ending = std::exchange(panes_, {});
}

void Panes::CatchUp() {
  for (const auto& pane : panes_)
    pane->CatchUp();
  // A graph behind the one in front has sent its statistics with its last update.
  const auto settled = std::count_if(panes_.begin(), panes_.end(), [this](const auto& pane) {
    const Channel* const channel = pane->ActiveChannel();
    return pane.get() != Current() && channel && channel->Settled() && pane->Settled();
  });
  if (settled > std::exchange(settled_, settled))
    showReadouts();
}

bool Panes::Settled() const {
  return std::all_of(panes_.begin(), panes_.end(),
                     [](const auto& pane) { return pane->Settled(); });
}

Pane* Panes::Current() const {
  const auto index = static_cast<std::size_t>(window_.Current());
  return index < panes_.size() ? panes_[index].get() : nullptr;
}

std::size_t Panes::indexOf(const Pane& pane) const {
  const auto found = std::find_if(panes_.begin(), panes_.end(),
                                  [&](const auto& each) { return each.get() == &pane; });
  return static_cast<std::size_t>(found - panes_.begin());
}

void Panes::bringForward(std::size_t index) {
  for (std::size_t i = 0; i < panes_.size(); ++i)
    panes_[i]->View().SetActive(i == index);
  showReadouts();
}

void Panes::bringForward(const CSingleGraphView* view) {
  const auto found = std::find_if(panes_.begin(), panes_.end(),
                                  [&](const auto& pane) { return &pane->View() == view; });
  if (found == panes_.end())
    return;
  const auto index = static_cast<int>(found - panes_.begin());
  // A new tab in front comes back here by itself.
  if (index != window_.Current())
    window_.BringForward(index);
  else
    bringForward(static_cast<std::size_t>(index));
}

void Panes::ShowCurrent() {
  bringForward(static_cast<std::size_t>(window_.Current()));
}

void Panes::showReadouts() {
  infoBar_.Clear();
  PostMessage(CurrentView(), WM_UPDATE_GRAPH, 0, 0);
}

void Panes::Command(ViewCommand command) {
  if (Pane* const pane = Current())
    pane->Command(command);
}

void Panes::TakeScheme(int scheme) {
  colors_.LoadScheme(scheme);
  for (const auto& pane : panes_)
    pane->TakeColors(colors_);
}

void Panes::Repaint() {
  for (const auto& pane : panes_)
    InvalidateRect(pane->View().GetSafeHwnd(), nullptr, true);
}

void Panes::ShowAllAgain() {
  for (const auto& pane : panes_) {
    if (Channel* const channel = pane->ActiveChannel(); channel && channel->LeavesNewest())
      pane->Command(ViewCommand::showAll);
  }
}

void Panes::Put(Channel& channel, bool on) {
  Pane* const pane = Current();
  if (!pane || pane->Kind() == ViewKind::single || pane->Shows(channel) == on)
    return;
  if (!on) {
    pane->Remove(channel);
    return;
  }
  if (!pane->Full()) {
    for (const auto& other : panes_) {
      if (!other->Shows(channel) || other->Remove(channel))
        continue;
      // It was all that the other one had.
      close(*other);
      break;
    }
  }
  pane->Add(channel);
}

void Panes::Analyse(AnalysisKind kind) {
  if (Channel* const channel = CurrentChannel())
    analyse(*channel, kind);
}

void Panes::analyse(Channel& channel, AnalysisKind kind) {
  const auto found = std::find_if(panes_.begin(), panes_.end(), [&](const auto& pane) {
    return pane->IsAnalysis(channel, kind);
  });
  const bool isNew = found == panes_.end();
  Pane& pane = isNew ? open(ViewKind::single) : **found;
  if (isNew)
    pane.Analyse(channel, kind);
  else
    pane.Recalculate();
  window_.BringForward(static_cast<int>(indexOf(pane)));
}

void Panes::Recalculate() {
  Pane* const pane = Current();
  if (!pane)
    return;
  pane->Recalculate();
  pane->RenewMasks();
}

void Panes::RecalculateAll() {
  for (const auto& pane : panes_)
    pane->Recalculate();
}

void Panes::SamplesHaveCome(const Channel& channel) {
  for (const auto& pane : panes_)
    pane->SamplesHaveCome(channel);
}

}  // namespace sparlow::host
