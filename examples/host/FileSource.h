#pragma once

#include <atomic>
#include <optional>

#include "examples/host/ErrorLog.h"
#include "examples/host/LineReader.h"
#include "examples/host/SampleSource.h"

namespace sparlow::host {

/// Recorded samples in columns of text: x and y, or y alone at a known rate.
///
/// What is wrong goes to the log with file and line. A sample that isn't finite and one whose x
/// goes back are skipped, the first of each kind is told, and their number at the end. A line that
/// is no sample ends the record; the samples before it are good.
/// Threads: as its base class.
class FileSource : public SampleSource {
 public:
  /// rate: samples per second of a file with one column. log must outlive the source.
  FileSource(std::string path, std::optional<double> rate, std::string unit, ErrorLog& log);

  /// False, and the log is told, when the file can't be opened. Before the first Next.
  bool Open();

  std::string Name() const override;
  std::string Unit() const override { return unit_; }
  std::string Activity() const override { return "reading"; }
  bool Next(std::vector<Sample>& block, const std::stop_token& stop) override;
  double Progress() const override { return progress_; }

 private:
  /// A kind of sample that is skipped: how often that was, and what is told.
  struct Skipped {
    const char* why;
    std::uint64_t count = 0;
  };

  bool takeLine(std::string_view line, std::vector<Sample>& block);
  void takeSample(double first, double second, std::vector<Sample>& block);
  void skip(Skipped& kind);
  void tellMissing();
  bool finish();
  void tellAtLine(std::uint64_t line, const std::string& text);

  const std::string path_;
  const std::optional<double> rate_;
  const std::string unit_;
  ErrorLog& log_;
  LineReader reader_;
  std::uint64_t rows_ = 0;  // lines with numbers, skipped ones too: time goes on for them
  std::uint64_t samples_ = 0;
  double lastX_;
  Skipped notFinite_{"not a finite number"};
  Skipped backward_{"x goes back"};
  bool told_ = false;  // why the record ended early
  std::atomic<double> progress_{0.0};
};

}  // namespace sparlow::host
