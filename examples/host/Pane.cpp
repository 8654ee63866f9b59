#include "examples/host/Pane.h"

#include <algorithm>
#include <utility>

#include "examples/host/Summary.h"
#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/qt/Application.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/ui/GraphMenu.h"

namespace sparlow::host {

namespace {

constexpr int kMarginPercent = 5;

}  // namespace

Pane::Pane(ViewKind kind, GraphColors& colors, int width, int height)
    : kind_(kind), axis_(kMarginPercent, true, 1, false), view_(*PaneView::Make(kind)) {
  View().CreateGraph(&axis_);
  View().SetColors(colors);
  document_.AddView(&View());
  view_.removed = [this](const ViewData* series) { removed(series); };
  qt::Resize(View(), width, height);
}

void Pane::TakeColors(GraphColors& colors) {
  std::vector<COLORREF> before;
  for (const Item& item : series_)
    before.push_back(item.series->GetColor());
  // It gives the active series the one of a single curve.
  View().SetColors(colors);
  if (kind_ == ViewKind::single)
    return;
  for (std::size_t i = 0; i < series_.size(); ++i)
    series_[i].series->SetColor(colors.Visible(before[i]));
  InvalidateRect(window(), nullptr, true);
}

Pane::~Pane() {
  renamed = nullptr;
  const HWND ending = window();
  for (const Item& item : series_)
    item.channel->RemoveListener(ending);
  View().DestroyWindow();
}

void Pane::Document::SetTitle(const char* title) {
  CDocument::SetTitle(title);
  if (pane_.renamed)
    pane_.renamed();
}

void Pane::changed() {
  if (const ViewData* const active = view_.Active())
    document_.SetTitle(active->GetName().c_str());
  PostMessage(window(), WM_UPDATE_GRAPH, 0, 0);
}

bool Pane::Add(Channel& channel) {
  if (!View().AddViewData(&channel.Series()))
    return false;
  series_.push_back({&channel.Series(), &channel, nullptr});
  channel.AddListener(window());
  changed();
  return true;
}

bool Pane::Remove(const Channel& channel) {
  // What the removal takes the active one's place by has told the title before.
  if (!Shows(channel) || !view_.TakeOut(const_cast<ViewData*>(&channel.Series())))
    return false;
  removed(&channel.Series());
  return true;
}

bool Pane::Shows(const Channel& channel) const {
  return std::any_of(series_.begin(), series_.end(),
                     [&](const Item& item) { return item.series == &channel.Series(); });
}

bool Pane::Full() const {
  return Count() >= (kind_ == ViewKind::single ? 1 : MultiGraph::maxSeries);
}

void Pane::RemoveActive() {
  const auto mask = std::find_if(masks_.begin(), masks_.end(), [this](const Mask& each) {
    return each.series == view_.Active();
  });
  if (mask == masks_.end())
    return View().RemoveActiveGraph();
  Calculation& series = *mask->series;
  masks_.erase(mask);
  takeMaskOut(series);
}

/// The view doesn't have it any more.
void Pane::removed(const ViewData* series) {
  const auto item = std::find_if(series_.begin(), series_.end(),
                                 [&](const Item& each) { return each.series == series; });
  if (item == series_.end())
    return;
  if (item->calculation)
    item->calculation->Reset();  // its memory
  else
    item->channel->RemoveListener(window());
  series_.erase(item);
  changed();
}

void Pane::Select(std::size_t index) {
  if (kind_ != ViewKind::single)
    SendMessage(window(), WM_COMMAND, ID_SELECT_GRAPH + index, 0);
}

Channel* Pane::ActiveChannel() const {
  const ViewData* const active = view_.Active();
  for (const Item& item : series_) {
    if (item.series == active)
      return item.channel;
  }
  for (const Mask& mask : masks_) {
    if (mask.series == active)
      return mask.channel;
  }
  return nullptr;
}

bool Pane::AnySamples() const {
  return std::any_of(series_.begin(), series_.end(),
                     [](const Item& item) { return item.channel->Series().Valid(); });
}

std::string Pane::Status() const {
  const Channel* const channel = ActiveChannel();
  const ViewData* const active = view_.Active();
  if (!channel || active == &channel->Series())
    return channel ? channel->Status() : "";
  const auto* const calculation = static_cast<const Calculation*>(active);
  return calculation->Busy() ? "calculating" : "calculated: " + CountSamples(active->GetSize());
}

double Pane::Progress() const {
  const Channel* const channel = ActiveChannel();
  return channel ? channel->Progress() : 1.0;
}

void Pane::Command(ViewCommand command) {
  // While this thread waits for a worker, nobody but a message box is to be served.
  if (UiThread::InWait())
    return;
  if (command == ViewCommand::autoZoom)
    SendMessage(window(), WM_COMMAND, ID_Y_AUTO_ZOOM, 0);
  else
    SendMessage(window(), WM_SPARLOW_COMMAND, static_cast<WPARAM>(command), 0);
}

}  // namespace sparlow::host
