#include "examples/host/Session.h"

#include <QMenuBar>
#include <algorithm>
#include <cstdio>
#include <utility>

#include "examples/host/Summary.h"
#include "sparlow/platform/Windows.h"

namespace sparlow::host {

namespace {

constexpr int kTick = 50;  // milliseconds

/// Pictures that a measurement leaves on its way, and the share of its time that is over then.
struct Stage {
  const char* name;
  double share;
};
constexpr Stage kStages[] = {{"early", 1.0 / 6}, {"midway", 1.0 / 2}};

}  // namespace

Session::Session(qt::Application& application, const HostOptions& options, ErrorLog& log,
                 const volatile std::sig_atomic_t& interrupts)
    : application_(application),
      options_(options),
      log_(log),
      interrupts_(interrupts),
      hasDisplay_(application.HasDisplay()),
      colors_(options.scheme) {
  window_.mayClose = [this] { return mayClose(); };
  window_.activated = [this](int index) { bringForward(index); };
  window_.AddReadouts(infoBar_.Widget());
  addMenus();
  answerViews();
  QObject::connect(&timer_, &QTimer::timeout, &window_, [this] { tick(); });
}

Session::~Session() {
  Graph::SetInfoBar(nullptr);
}

void Session::addMenus() {
  FillMenuBar(*window_.menuBar(), options_.scheme,
              {.command = [this](ViewCommand which) { command(which); },
               .takeScheme = [this](int scheme) { takeScheme(scheme); },
               .repaint =
                   [this] {
                     for (const auto& channel : channels_)
                       InvalidateRect(channel->View().GetSafeHwnd(), nullptr, true);
                   },
               .recalculate =
                   [this] {
                     for (const auto& channel : channels_)
                       channel->Recalculate();
                   },
               .close = [this] { window_.close(); }});
  window_.wheelTurned = [this](int notches) {
    for (int i = 0; i < std::abs(notches); ++i)
      command(notches > 0 ? ViewCommand::zoomIn : ViewCommand::zoomOut);
  };
  infoBar_.cursorMoved = [this] {
    if (Channel* const channel = current(); channel && SourceData::AnalyzeDataBetweenCursors)
      channel->Recalculate();
  };
}

void Session::answerViews() {
  mainWindow_.focused = [this](const CSingleGraphView* view) { bringForward(view); };
  mainWindow_.doubleClicked = [this](const CSingleGraphView* view) {
    bringForward(view);
    command(ViewCommand::showAll);
  };
}

Channel* Session::current() const {
  const auto index = static_cast<std::size_t>(window_.Current());
  return index < channels_.size() ? channels_[index].get() : nullptr;
}

void Session::command(ViewCommand command) {
  if (Channel* const channel = current()) {
    PostMessage(channel->View().GetSafeHwnd(), WM_SPARLOW_COMMAND, static_cast<WPARAM>(command), 0);
  }
}

void Session::takeScheme(int scheme) {
  colors_.LoadScheme(scheme);
  for (const auto& channel : channels_)
    channel->View().SetColors(colors_);
}

void Session::Add(std::unique_ptr<SampleSource> source) {
  channels_.push_back(
      std::make_unique<Channel>(std::move(source), colors_, options_.width, options_.height, log_));
  Channel& channel = *channels_.back();
  window_.AddView(qt::WidgetOf(channel.View()), channel.Name());
}

void Session::Run() {
  Graph::SetInfoBar(infoBar_.GetSafeHwnd());
  bringForward(0);
  window_.ShowFor(options_.width, options_.height);
  clock_.start();
  timer_.start(kTick);
  for (const auto& channel : channels_)
    channel->Feed().Start();
  application_.Exec();
  timer_.stop();
  for (const auto& channel : channels_)
    anySamples_ = anySamples_ || !channel->Samples().empty();
  channels_.clear();
}

void Session::bringForward(int index) {
  for (std::size_t i = 0; i < channels_.size(); ++i)
    channels_[i]->View().SetActive(static_cast<int>(i) == index);
  showReadouts();
}

void Session::bringForward(const CSingleGraphView* view) {
  const auto found = std::find_if(channels_.begin(), channels_.end(),
                                  [&](const auto& channel) { return &channel->View() == view; });
  if (found == channels_.end())
    return;
  const auto index = static_cast<int>(found - channels_.begin());
  // A new tab in front comes back here by itself.
  if (index != window_.Current())
    window_.BringForward(index);
  else
    bringForward(index);
}

void Session::showReadouts() {
  infoBar_.Clear();
  if (Channel* const channel = current())
    PostMessage(channel->View().GetSafeHwnd(), WM_UPDATE_GRAPH, 0, 0);
}

void Session::settleReadouts() {
  // A graph behind the one in front has sent its statistics with its last update.
  const auto settled = std::count_if(
      channels_.begin(), channels_.end(),
      [this](const auto& channel) { return channel.get() != current() && channel->Settled(); });
  if (settled > std::exchange(settled_, settled))
    showReadouts();
}

void Session::tick() {
  if (interrupts_ > 1)
    return application_.Quit();
  if (interrupts_ == 1 && !closing_)
    window_.close();
  if (options_.seconds && static_cast<double>(clock_.elapsed()) > *options_.seconds * 1000)
    endFeeds();
  showStatus();
  stagePictures();
  takePictures();
  if (!finished_ && allFinished())
    finish();
  settleReadouts();
  endIfDone();
}

void Session::showStatus() {
  const Channel* const channel = current();
  if (!channel)
    return;
  window_.SetStatus(channel->Status(), channel->Progress());
  window_.SetComplaint(log_.Last());
}

bool Session::allFinished() const {
  return std::all_of(channels_.begin(), channels_.end(),
                     [](const auto& channel) { return channel->Feed().Finished(); });
}

void Session::endFeeds() {
  closing_ = true;
  for (const auto& channel : channels_)
    channel->Feed().End();
}

bool Session::mayClose() {
  // A measurement is still to be summed up, and pictures are still to be taken.
  const bool work = !finished_
                        ? options_.job == HostOptions::Job::measure || options_.pictures.has_value()
                        : !duePictures_.empty();
  if (closing_ || !work) {
    application_.Quit();
    return true;
  }
  endFeeds();
  return false;
}

/// All samples are there: tells what they are, and asks for the last pictures.
void Session::finish() {
  finished_ = true;
  for (const auto& channel : channels_) {
    channel->View().UpdateGraph();
    const SampleReader samples = channel->Samples();
    anySamples_ = anySamples_ || !samples.empty();
    if (samples.empty())
      continue;
    const std::string line = options_.job == HostOptions::Job::measure && !options_.edges
                                 ? DescribeDelays(samples)
                                 : DescribeSeries(channel->Series());
    std::puts(line.c_str());
  }
  duePictures_.clear();
  askForPictures("finished");
}

void Session::stagePictures() {
  if (options_.job != HostOptions::Job::measure || finished_ ||
      stage_ >= static_cast<int>(std::size(kStages)))
    return;
  const Stage& stage = kStages[stage_];
  if (channels_.front()->Progress() < stage.share)
    return;
  askForPictures(stage.name);
  ++stage_;
}

void Session::askForPictures(const std::string& stage) {
  if (!options_.pictures)
    return;
  const std::filesystem::path folder = *options_.pictures;
  for (std::size_t i = 0; i < channels_.size(); ++i) {
    if (channels_[i]->Samples().empty())
      continue;
    const std::string number = channels_.size() > 1 ? "-" + std::to_string(i + 1) : "";
    duePictures_.push_back({channels_[i].get(), (folder / (stage + number + ".png")).string()});
  }
}

void Session::takePictures() {
  while (!duePictures_.empty()) {
    const DuePicture due = duePictures_.front();
    // A render that is under way ends in its own time; the next tick tries again.
    if (due.channel->View().RenderDue())
      return;
    due.channel->View().SetActive(true);  // with the background of the one in front
    const bool saved = qt::SavePicture(due.channel->View(), due.path);
    bringForward(window_.Current());
    if (saved)
      pictures_.push_back(due.path);
    else
      log_.Tell(due.path + ": the picture can't be written");
    duePictures_.erase(duePictures_.begin());
  }
}

void Session::endIfDone() {
  if (!finished_ || !duePictures_.empty())
    return;
  if (!pictures_.empty()) {
    std::string line = "pictures:";
    for (const std::string& picture : pictures_)
      line += " " + picture;
    std::puts(line.c_str());
    pictures_.clear();
  }
  if (hasDisplay_ && !closing_ && anySamples_)
    return;
  timer_.stop();
  application_.Quit();
}

}  // namespace sparlow::host
