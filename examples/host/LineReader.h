#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sparlow::host {

/// The lines of a file, a pipe or a terminal, read in large pieces and given without a copy.
/// Threads: one at a time.
class LineReader {
 public:
  enum class Outcome { line, waiting, end, failed };

  LineReader() = default;
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  /// The path that stands for standard input.
  static constexpr std::string_view standardInput = "-";

  /// False when the file can't be read; Failure tells why.
  bool Open(const std::string& path);
  /// Gives the next line without its end, good until the next call. waiting: what comes from a pipe
  /// or a terminal has been given for a twentieth of a second, or nothing came in that time.
  /// failed: the system refuses, a line is longer than maxLine, or this is no UTF-8.
  Outcome Next(std::string_view& line);

  /// Number of the line given last, from 1.
  std::uint64_t LineNumber() const { return lineNumber_; }
  const std::string& Failure() const { return failure_; }
  /// Share of the file that was given, 0 to 1; negative for a pipe.
  double Progress() const;

  static constexpr std::size_t maxLine = 65536;

 private:
  using Clock = std::chrono::steady_clock;

  Outcome fill();
  bool await();
  Outcome fail(std::string why);
  std::string_view take(std::size_t length, std::size_t end);

  int file_ = -1;
  bool isStream_ = false;   // no regular file: more may come at any time
  std::uint64_t size_ = 0;  // of the file; 0 for a stream
  std::uint64_t given_ = 0;
  std::uint64_t lineNumber_ = 0;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  // of what was read and not given yet
  std::size_t end_ = 0;
  bool atEnd_ = false;
  std::optional<Clock::time_point> cameFirst_;  // what has come since waiting was told
  std::string failure_;
};

}  // namespace sparlow::host
