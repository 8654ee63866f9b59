// What a pane has worked out from its series.

#include <algorithm>
#include <utility>

#include "examples/host/Pane.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow::host {

Calculation& Pane::keep(std::unique_ptr<Calculation> calculation) {
  return *calculations_.emplace_back(std::move(calculation));
}

bool Pane::addCalculation(Channel& channel, std::unique_ptr<Calculation> calculation) {
  Calculation& series = keep(std::move(calculation));
  if (!View().AddViewData(&series))
    return false;
  series_.push_back({&series, &channel, &series});
  Recalculate();
  return true;
}

void Pane::Analyse(Channel& channel, AnalysisKind kind) {
  analysed_ = &channel;
  analysis_ = kind;
  axis_.hor.log = axis_.ver.log = kind == AnalysisKind::allan;
  addCalculation(channel, MakeAnalysis(kind, channel.Series()));
  changed();
}

bool Pane::IsAnalysis(const Channel& channel, AnalysisKind kind) const {
  return analysed_ == &channel && analysis_ == kind;
}

void Pane::AddAverage(unsigned window) {
  Channel* const channel = ActiveChannel();
  if (!channel || kind_ == ViewKind::single)
    return;
  const ViewData* const active = view_.Active();
  const auto place = std::find_if(series_.begin(), series_.end(),
                                  [&](const Item& item) { return item.series == active; });
  const auto index = static_cast<std::size_t>(place - series_.begin());
  if (!addCalculation(*channel, std::make_unique<MovingAverage>(channel->Series(), window)))
    return;
  // Without samples yet, it would leave the graph empty; and it doesn't grow with new ones.
  Select(index < series_.size() - 1 ? index : 0);
}

void Pane::addMask(Channel& channel, const MaskKind& kind) {
  Calculation& series = keep(MakeMask(kind, channel.Series()));
  if (view_.Masks()->AddMaskData(&series))
    masks_.push_back({&series, &channel, kind});
}

void Pane::AddMask(const MaskKind& kind) {
  if (Channel* const channel = ActiveChannel(); channel && view_.Masks())
    addMask(*channel, kind);
}

void Pane::takeMaskOut(Calculation& mask) {
  view_.Masks()->RemoveMaskData(&mask);
  mask.Reset();  // its memory
  changed();
}

void Pane::RemoveLastMask() {
  if (masks_.empty())
    return;
  Calculation& series = *masks_.back().series;
  masks_.pop_back();
  takeMaskOut(series);
}

void Pane::RemoveAllMasks() {
  while (!masks_.empty())
    RemoveLastMask();
}

void Pane::Recalculate() {
  bool any = false;
  for (const Item& item : series_) {
    if (!item.calculation)
      continue;
    item.calculation->Expect();
    any = true;
  }
  if (!any)
    return;
  PostMessage(window(), WM_RECALC_ANALYSIS, 0, 0);
  updateIsDue();
}

void Pane::RecalculateMasks() {
  bool any = false;
  for (const Mask& mask : masks_) {
    // The library leaves out one that has samples; of one that is at work nobody knows yet.
    if (mask.series->Busy() || mask.series->Valid())
      continue;
    mask.series->Expect();
    any = true;
  }
  if (!any)
    return;
  PostMessage(window(), WM_RECALC_MASK, 0, 0);
  updateIsDue();
}

void Pane::RenewMasks() {
  const std::vector<Mask> masks = masks_;
  RemoveAllMasks();
  for (const Mask& mask : masks)
    addMask(*mask.channel, mask.kind);
  RecalculateMasks();
}

void Pane::SamplesHaveCome(const Channel& channel) {
  const auto isOf = [&](const auto& each) { return each.channel == &channel; };
  if (std::any_of(series_.begin(), series_.end(), isOf)) {
    Recalculate();
    updateIsDue();
  }
  if (std::any_of(masks_.begin(), masks_.end(), isOf))
    RenewMasks();
}

bool Pane::busy() const {
  const auto atWork = [](const Calculation* calculation) {
    return calculation && calculation->Busy();
  };
  return std::any_of(series_.begin(), series_.end(),
                     [&](const Item& item) { return atWork(item.calculation); }) ||
         std::any_of(masks_.begin(), masks_.end(),
                     [&](const Mask& mask) { return atWork(mask.series); });
}

void Pane::updateIsDue() {
  updated_ = false;
  quiet_ = 0;
}

void Pane::CatchUp() {
  if (busy() || View().RenderDue()) {
    quiet_ = 0;
  } else if (!updated_) {
    // The worker's own message may not have come yet.
    updateIsDue();
    updated_ = true;
    View().UpdateGraph();
  } else if (quiet_ < kQuiet) {
    ++quiet_;
  }
}

}  // namespace sparlow::host
