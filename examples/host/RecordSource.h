#pragma once

#include <atomic>
#include <cstdint>

#include "examples/host/ErrorLog.h"
#include "examples/host/SampleSource.h"

namespace sparlow::host {

/// A record that was made before, and is read. What is wrong with it goes to the log with its path
/// in front.
/// Threads: as its base class.
class RecordSource : public SampleSource {
 public:
  std::string Name() const override;
  std::string Unit() const override { return unit_; }
  std::string Activity() const override { return "reading"; }
  double Progress() const override { return progress_; }
  /// Empty, too, when the log was told why the record ended early.
  std::string WhyEmpty() const override { return told_ ? "" : path_ + ": no samples"; }

 protected:
  /// A kind of sample that is left out: what is told of it, and how often it was.
  struct Skipped {
    const char* why;
    std::uint64_t count = 0;
  };

  /// log must outlive the source.
  RecordSource(std::string path, std::string unit, ErrorLog& log);

  /// Tells why the record ends early, or doesn't begin. place is where in the record, with a colon
  /// in front, or empty. Always false, as Open and Next say it.
  bool fail(const std::string& place, const std::string& why);
  /// Counts a sample that is left out; the first of its kind is told.
  void skip(Skipped& kind, const std::string& place);
  /// The end: tells how many samples of a kind were left out.
  void tellSkipped(const Skipped& kind);

  const std::string path_;
  std::atomic<double> progress_{0.0};
  Skipped notFinite_{"not a finite number"};

 private:
  const std::string unit_;
  ErrorLog& log_;
  bool told_ = false;
};

}  // namespace sparlow::host
