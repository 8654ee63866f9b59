#pragma once

#include <stop_token>
#include <string>
#include <vector>

namespace sparlow::host {

/// One point of a record: x in seconds, y in the unit of its source. An edge also has a direction.
/// Threads: a value.
struct Sample {
  double x;
  double y;
  bool rising = false;
  friend bool operator==(const Sample&, const Sample&) = default;
};

/// Where samples come from: a measurement, a file, a generator.
/// Threads: Next, one data thread; all others, any.
class SampleSource {
 public:
  SampleSource() = default;
  SampleSource(const SampleSource&) = delete;
  SampleSource& operator=(const SampleSource&) = delete;
  virtual ~SampleSource() = default;

  /// Name of the series.
  virtual std::string Name() const = 0;
  /// Unit of y; may be empty.
  virtual std::string Unit() const = 0;
  /// The samples are edges; there are at most 8192.
  virtual bool IsWaveform() const { return false; }
  /// What goes on while samples come, as a word for the status bar.
  virtual std::string Activity() const = 0;
  /// Puts the next samples, x ascending, in place of what block holds; it may find none for the
  /// moment. False when the source has come to its end, with the last samples in block. Returns
  /// soon when stop is requested.
  virtual bool Next(std::vector<Sample>& block, const std::stop_token& stop) = 0;
  /// Share of the record that has come, 0 to 1; negative when nobody knows.
  virtual double Progress() const = 0;
  /// A line for the log about a source that has ended without a sample; empty when the log has one.
  /// The data thread.
  virtual std::string WhyEmpty() const { return Name() + ": no samples"; }
};

}  // namespace sparlow::host
