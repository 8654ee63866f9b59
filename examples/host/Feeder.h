#pragma once

#include <atomic>
#include <functional>
#include <thread>

#include "examples/host/ErrorLog.h"
#include "examples/host/SampleSource.h"
#include "sparlow/data/SourceData.h"

namespace sparlow::host {

/// The data thread: takes blocks from a source, gives them to a series in one transfer, and tells
/// as they come, about twenty times a second at most. What fails, and that
/// nothing came, goes to the log.
/// Threads: one, for all operations.
class Feeder {
 public:
  /// source, series and log must outlive the feeder. changed is called on the data thread.
  Feeder(SampleSource& source, SourceData& series, std::function<void()> changed, ErrorLog& log);
  Feeder(const Feeder&) = delete;
  Feeder& operator=(const Feeder&) = delete;
  ~Feeder() { Stop(); }

  void Start();
  /// Ends the thread at the next block; a transfer that runs is given up, without its statistics.
  void Stop();
  /// Asks for an end as though the source had come to its own: the transfer is completed.
  void End() { thread_.request_stop(); }
  /// The transfer is over, and the last change is told.
  bool Finished() const { return finished_; }

 private:
  void run(const std::stop_token& stop);
  template <class Work>
  void tellingFailures(const Work& work);
  void transfer(const std::stop_token& stop);
  void transferBlock();

  SampleSource& source_;
  SourceData& series_;
  const std::function<void()> changed_;
  ErrorLog& log_;
  std::vector<Sample> block_;  // the data thread's
  std::atomic<bool> givenUp_{false};
  std::atomic<bool> finished_{false};
  std::jthread thread_;
};

}  // namespace sparlow::host
