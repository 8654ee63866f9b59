#pragma once

#include <optional>

#include "examples/host/ColumnLine.h"
#include "examples/host/LineReader.h"
#include "examples/host/RecordSource.h"

namespace sparlow::host {

/// Recorded samples in columns of text: x and y, or y alone at a known rate.
///
/// What is wrong goes to the log with file and line. A sample that isn't finite and one whose x
/// goes back are skipped, the first of each kind is told, and their number at the end. A line that
/// is no sample ends the record; the samples before it are good. Before the first sample there may
/// be a line that heads the columns.
/// Threads: as its base class.
class FileSource : public RecordSource {
 public:
  /// path: - is standard input. rate: samples per second of a file with one column. log must
  /// outlive the source.
  FileSource(std::string path, std::optional<double> rate, std::string unit, ErrorLog& log);

  /// False, and the log is told, when the file can't be opened. Before the first Next.
  bool Open();

  bool Next(std::vector<Sample>& block, const std::stop_token& stop) override;

 private:
  /// A line that is a head of the columns if numbers follow.
  struct Head {
    std::uint64_t line;
    std::string word;
  };

  bool takeLine(std::string_view line, std::vector<Sample>& block);
  void takeSample(double first, double second, std::vector<Sample>& block);
  bool refuse(const ColumnLine& parsed);
  std::string whyMissing();
  bool finish();
  bool failAtLine(std::uint64_t line, const std::string& why);

  const std::string file_;  // what path was given
  const std::optional<double> rate_;
  LineReader reader_;
  std::uint64_t rows_ = 0;  // lines with numbers, skipped ones too: time goes on for them
  std::uint64_t samples_ = 0;
  double lastX_;
  std::optional<Head> head_;
  Skipped backward_{"x goes back"};
};

}  // namespace sparlow::host
