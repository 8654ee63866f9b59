#include "examples/host/Feeder.h"

#include <chrono>
#include <new>

#include "sparlow/data/Error.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/platform/Windows.h"

namespace sparlow::host {

Feeder::Feeder(SampleSource& source, SourceData& series, HWND view, ErrorLog& log)
    : source_(source), series_(series), view_(view), log_(log) {}

void Feeder::Stop() {
  givenUp_ = true;
  thread_.request_stop();
  if (thread_.joinable())
    thread_.join();
}

void Feeder::Start() {
  thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
}

void Feeder::run(const std::stop_token& stop) {
  series_.InitDataTransfer(source_.IsWaveform());
  bool outOfMemory = false;
  try {
    transfer(stop);
  } catch (const Error&) {
    outOfMemory = true;
  } catch (const std::bad_alloc&) {
    outOfMemory = true;
  }
  if (outOfMemory) {
    log_.Tell(source_.Name() + ": no memory for more than " + std::to_string(series_.GetSize()) +
              " samples");
  }
  if (givenUp_)
    return;
  series_.TermDataTransfer();
  PostMessage(view_, WM_UPDATE_GRAPH, 0, 0);
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
      PostMessage(view_, WM_UPDATE_GRAPH, 0, 0);
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
