#include "examples/host/Session.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "examples/host/Summary.h"

namespace sparlow::host {

namespace {

constexpr int kTick = 50;  // milliseconds

}  // namespace

Session::Session(qt::Application& application, const HostOptions& options, ErrorLog& log,
                 const volatile std::sig_atomic_t& interrupts)
    : application_(application),
      options_(options),
      log_(log),
      interrupts_(interrupts),
      hasDisplay_(application.HasDisplay()),
      panes_(window_, options),
      pictures_(options.pictures, log),
      pdfDue_(options.pdf.has_value()) {
  addMenus();
  window_.mayClose = [this] { return mayClose(); };
  QObject::connect(&timer_, &QTimer::timeout, &window_, [this] { tick(); });
}

Session::~Session() {
  takeDown();
}

void Session::Add(std::unique_ptr<SampleSource> source) {
  channels_.push_back(std::make_unique<Channel>(std::move(source), log_));
  panes_.Show(*channels_.back());
}

void Session::Run() {
  panes_.Begin();
  window_.ShowFor(options_.width, options_.height);
  clock_.start();
  timer_.start(kTick);
  for (const auto& channel : channels_)
    channel->Feed().Start();
  application_.Exec();
  timer_.stop();
  lookForSamples();
  takeDown();
}

void Session::takeDown() {
  for (const auto& channel : channels_)
    channel->Stop();
  panes_.End();
  channels_.clear();
}

void Session::tick() {
  if (interrupts_ > 1)
    return quit();
  if (interrupts_ == 1)
    end();
  if (options_.seconds && static_cast<double>(clock_.elapsed()) > *options_.seconds * 1000)
    endFeeds();
  for (const auto& channel : channels_) {
    if (channel->CatchUp())
      panes_.SamplesHaveCome(*channel);
  }
  panes_.CatchUp();
  showStatus();
  if (!finished_ && allFinished())
    finish();
  else if (!finished_ && options_.job == HostOptions::Job::measure)
    pictures_.Reached(channels_.front()->Progress(), panes_.All());
  if (pictures_.Take(panes_.All()))
    panes_.ShowCurrent();
  printWhenDone();
  endIfDone();
}

void Session::showStatus() {
  const Pane* const pane = panes_.Current();
  if (!pane)
    return;
  window_.SetStatus(pane->Status(), pane->Progress());
  window_.SetComplaint(log_.Last());
}

bool Session::allFinished() const {
  return std::all_of(channels_.begin(), channels_.end(),
                     [](const auto& channel) { return channel->Feed().Finished(); });
}

void Session::endFeeds() {
  for (const auto& channel : channels_)
    channel->Feed().End();
}

void Session::lookForSamples() {
  for (const auto& channel : channels_)
    anySamples_ = anySamples_ || !channel->Samples().empty();
}

/// All samples are there: tells what they are, and asks for the last pictures.
void Session::finish() {
  finished_ = true;
  lookForSamples();
  for (const auto& channel : channels_) {
    const SampleReader samples = channel->Samples();
    if (samples.empty())
      continue;
    const std::string line = options_.job == HostOptions::Job::measure && !options_.edges
                                 ? DescribeDelays(samples)
                                 : DescribeSeries(channel->Series());
    std::puts(line.c_str());
  }
  pictures_.Drop();
  pictures_.Ask("finished", panes_.All());
}

void Session::end() {
  ending_ = true;
  endFeeds();
}

bool Session::mayClose() {
  closedByUser_ = true;
  lookForSamples();
  // A measurement is still to be summed up, and pictures are still to be taken.
  const bool work = finished_ ? pictures_.Due() || pdfDue_
                              : anySamples_ && (options_.job == HostOptions::Job::measure ||
                                                options_.pictures || options_.pdf);
  const bool again = std::exchange(ending_, true);
  if (work && !again) {
    endFeeds();
    return false;
  }
  quit();
  return true;
}

void Session::printWhenDone() {
  const Pane* const pane = panes_.Current();
  if (!finished_ || !pdfDue_ || !pane || (pane->AnySamples() && !pane->Settled()))
    return;
  pdfDue_ = false;
  if (pane->AnySamples())
    printTo(*options_.pdf);
}

void Session::endIfDone() {
  if (!finished_ || pictures_.Due() || pdfDue_ || !panes_.Settled())
    return;
  pictures_.Print();
  // What was shown stays, and so does the window of a user who stopped what was to come.
  if (ending_ || !hasDisplay_ || !(anySamples_ || stoppedByUser_))
    quit();
}

void Session::quit() {
  timer_.stop();
  application_.Quit();
}

}  // namespace sparlow::host
