#include "examples/host/Pictures.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <utility>

#include "sparlow/platform/qt/Application.h"

namespace sparlow::host {

namespace {

/// A picture that a measurement leaves on its way, and the share of its time that is over then.
struct Stage {
  const char* name;
  double share;
};
constexpr Stage kStages[] = {{"early", 1.0 / 6}, {"midway", 1.0 / 2}};

}  // namespace

Pictures::Pictures(std::optional<std::string> folder, ErrorLog& log)
    : folder_(std::move(folder)), log_(log) {}

void Pictures::Reached(double share, const List& panes) {
  if (stage_ < std::size(kStages) && share >= kStages[stage_].share)
    Ask(kStages[stage_++].name, panes);
}

void Pictures::Ask(const std::string& stage, const List& panes) {
  if (!folder_)
    return;
  const std::filesystem::path folder = *folder_;
  for (std::size_t i = 0; i < panes.size(); ++i) {
    if (!panes[i]->AnySamples())
      continue;
    const std::string number = panes.size() > 1 ? "-" + std::to_string(i + 1) : "";
    due_.push_back({panes[i].get(), (folder / (stage + number + ".png")).string()});
  }
}

bool Pictures::Take(const List& panes) {
  bool any = false;
  while (!due_.empty()) {
    const auto [due, path] = due_.front();
    const auto found = std::find_if(panes.begin(), panes.end(),
                                    [pane = due](const auto& each) { return each.get() == pane; });
    // What is under way ends in its own time; the next call tries again.
    if (found != panes.end() && !(*found)->Settled())
      break;
    due_.erase(due_.begin());
    if (found == panes.end())
      continue;
    any = true;
    CSingleGraphView& view = (*found)->View();
    view.SetActive(true);  // with the background of the one in front
    if (qt::SavePicture(view, path))
      taken_.push_back(path);
    else
      log_.Tell(path + ": the picture can't be written");
    view.SetActive(false);
  }
  return any;
}

void Pictures::Print() {
  if (taken_.empty())
    return;
  std::string line = "pictures:";
  for (const std::string& picture : std::exchange(taken_, {}))
    line += " " + picture;
  std::puts(line.c_str());
}

}  // namespace sparlow::host
