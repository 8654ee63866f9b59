#include "examples/host/Feeder.h"

#include <chrono>
#include <exception>
#include <new>
#include <utility>

#include "sparlow/data/Error.h"

namespace sparlow::host {

Feeder::Feeder(SampleSource& source, SourceData& series, std::function<void()> changed,
               ErrorLog& log)
    : source_(source), series_(series), changed_(std::move(changed)), log_(log) {}

void Feeder::Stop() {
  givenUp_ = true;
  thread_.request_stop();
  if (thread_.joinable())
    thread_.join();
}

void Feeder::Start() {
  thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
}

template <class Work>
void Feeder::tellingFailures(const Work& work) {
  const auto tell = [this](const std::string& why) { log_.Tell(source_.Name() + ": " + why); };
  const auto tellFull = [&] {
    tell("no memory for more than " + std::to_string(series_.GetSize()) + " samples");
  };
  try {
    work();
  } catch (const Error&) {
    tellFull();
  } catch (const std::bad_alloc&) {
    tellFull();
  } catch (const std::exception& error) {
    tell(error.what());
  }
}

void Feeder::run(const std::stop_token& stop) {
  tellingFailures([&] {
    series_.InitDataTransfer(source_.IsWaveform());
    transfer(stop);
    if (series_.GetSize() != 0 || givenUp_)
      return;
    if (const std::string why = source_.WhyEmpty(); !why.empty())
      log_.Tell(why);
  });
  if (givenUp_)
    return;
  tellingFailures([&] { series_.TermDataTransfer(); });
  changed_();
  finished_ = true;
}

void Feeder::transfer(const std::stop_token& stop) {
  using Clock = std::chrono::steady_clock;
  constexpr std::chrono::milliseconds pause{45};
  Clock::time_point posted;
  bool more = true;
  while (more && !stop.stop_requested()) {
    more = source_.Next(block_, stop);
    if (block_.empty())
      continue;
    transferBlock();
    // A graph that is behind would only be told the same again.
    if (const auto now = Clock::now(); now - posted >= pause) {
      posted = now;
      changed_();
    }
  }
}

void Feeder::transferBlock() {
  series_.InitBlockTransfer();
  for (const Sample& sample : block_)
    series_.Add(sample.x, sample.y, sample.rising);
  series_.TermBlockTransfer();
}

}  // namespace sparlow::host
