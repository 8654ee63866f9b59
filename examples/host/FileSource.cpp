#include "examples/host/FileSource.h"

#include <filesystem>
#include <limits>
#include <utility>

#include "examples/host/ColumnLine.h"

namespace sparlow::host {

namespace {

constexpr std::size_t kBlock = 65536;

/// A word from a file that may hold anything, fit for a terminal.
std::string printable(std::string_view word) {
  constexpr std::size_t limit = 30;
  std::string text(word.substr(0, limit));
  for (char& c : text) {
    if (c < ' ' || c > '~')
      c = '?';
  }
  return word.size() > limit ? text + "..." : text;
}

}  // namespace

FileSource::FileSource(std::string path, std::optional<double> rate, std::string unit,
                       ErrorLog& log)
    : path_(std::move(path)),
      rate_(rate),
      unit_(std::move(unit)),
      log_(log),
      lastX_(-std::numeric_limits<double>::infinity()) {}

std::string FileSource::Name() const {
  return std::filesystem::path(path_).filename().string();
}

bool FileSource::Open() {
  if (reader_.Open(path_))
    return true;
  log_.Tell(path_ + ": " + reader_.Failure());
  return false;
}

void FileSource::tellAtLine(std::uint64_t line, const std::string& text) {
  log_.Tell(path_ + ":" + std::to_string(line) + ": " + text);
}

bool FileSource::Next(std::vector<Sample>& block, const std::stop_token& stop) {
  using Outcome = LineReader::Outcome;
  block.clear();
  block.reserve(kBlock);
  std::string_view line;
  while (block.size() < kBlock && !stop.stop_requested()) {
    switch (reader_.Next(line)) {
      case Outcome::line:
        if (!takeLine(line, block))
          return finish();
        break;
      case Outcome::waiting:
        progress_ = reader_.Progress();
        return true;
      case Outcome::failed:
        told_ = true;
        tellAtLine(reader_.LineNumber() + 1, reader_.Failure());
        return finish();
      case Outcome::end:
        return finish();
    }
  }
  progress_ = reader_.Progress();
  return true;
}

bool FileSource::takeLine(std::string_view line, std::vector<Sample>& block) {
  using Kind = ColumnLine::Kind;
  const ColumnLine parsed = ColumnLine::Parse(line, rate_ ? 1 : 2);
  if (parsed.kind == Kind::nothing)
    return true;
  if (parsed.kind == Kind::sample || parsed.kind == Kind::notFinite) {
    if (rate_ && parsed.more) {
      told_ = true;
      tellAtLine(reader_.LineNumber(), "a second column, and --rate is for files that have one");
      return false;
    }
    ++rows_;
    if (parsed.kind == Kind::sample)
      takeSample(parsed.first, parsed.second, block);
    else
      skip(notFinite_);
    return true;
  }
  told_ = true;
  if (parsed.kind == Kind::missing)
    tellMissing();
  else if (parsed.kind == Kind::emptyColumn)
    tellAtLine(reader_.LineNumber(), "a column is empty");
  else
    tellAtLine(reader_.LineNumber(), "'" + printable(parsed.word) + "' is not a number");
  return false;
}

void FileSource::takeSample(double first, double second, std::vector<Sample>& block) {
  const Sample sample =
      rate_ ? Sample{static_cast<double>(rows_ - 1) / *rate_, first} : Sample{first, second};
  if (sample.x < lastX_)
    return skip(backward_);
  lastX_ = sample.x;
  ++samples_;
  block.push_back(sample);
}

void FileSource::skip(Skipped& kind) {
  if (kind.count++ == 0)
    tellAtLine(reader_.LineNumber(), std::string(kind.why) + ", skipped");
}

void FileSource::tellMissing() {
  const std::uint64_t line = reader_.LineNumber();
  std::string_view next;
  if (samples_ == 0)
    tellAtLine(line, "x without y; a file of one column needs --rate");
  else if (reader_.Next(next) == LineReader::Outcome::end)
    tellAtLine(line, "the file ends after x, without y");
  else
    tellAtLine(line, "x without y");
}

bool FileSource::finish() {
  for (const Skipped* const kind : {&notFinite_, &backward_}) {
    if (kind->count != 0) {
      log_.Tell(path_ + ": " + std::to_string(kind->count) +
                (kind->count == 1 ? " sample skipped: " : " samples skipped: ") + kind->why);
    }
  }
  if (samples_ == 0 && !told_)
    log_.Tell(path_ + ": no samples");
  progress_ = 1.0;
  return false;
}

}  // namespace sparlow::host
