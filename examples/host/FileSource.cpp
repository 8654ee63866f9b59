#include "examples/host/FileSource.h"

#include <limits>
#include <utility>

namespace sparlow::host {

namespace {

constexpr std::size_t kBlock = 65536;

/// What is told of a word from a file that may hold anything: fit for a terminal.
std::string notNumber(std::string_view word) {
  constexpr std::size_t limit = 30;
  std::string text(word.substr(0, limit));
  for (char& c : text) {
    if (c < ' ' || c > '~')
      c = '?';
  }
  return "'" + text + (word.size() > limit ? "..." : "") + "' is not a number";
}

}  // namespace

FileSource::FileSource(std::string path, std::optional<double> rate, std::string unit,
                       ErrorLog& log)
    : RecordSource(path == LineReader::standardInput ? "standard input" : path, std::move(unit),
                   log),
      file_(std::move(path)),
      rate_(rate),
      lastX_(-std::numeric_limits<double>::infinity()) {}

bool FileSource::Open() {
  return reader_.Open(file_) || fail("", reader_.Failure());
}

bool FileSource::failAtLine(std::uint64_t line, const std::string& why) {
  return fail(":" + std::to_string(line), why);
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
        failAtLine(reader_.LineNumber() + 1, reader_.Failure());
        return finish();
      case Outcome::end:
        if (rows_ == 0 && head_)
          failAtLine(head_->line, notNumber(head_->word));
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
  if (parsed.kind == Kind::words && rows_ == 0 && !head_) {
    head_ = {reader_.LineNumber(), std::string(parsed.word)};
    return true;
  }
  if (parsed.kind != Kind::sample && parsed.kind != Kind::notFinite)
    return refuse(parsed);
  if (rate_ && parsed.more)
    return failAtLine(reader_.LineNumber(),
                      "a second column, and --rate is for files that have one");
  ++rows_;
  if (parsed.kind == Kind::sample)
    takeSample(parsed.first, parsed.second, block);
  else
    skip(notFinite_, ":" + std::to_string(reader_.LineNumber()));
  return true;
}

/// A line that is no sample.
bool FileSource::refuse(const ColumnLine& parsed) {
  using Kind = ColumnLine::Kind;
  const std::uint64_t line = reader_.LineNumber();
  switch (parsed.kind) {
    case Kind::missing:
      return failAtLine(line, whyMissing());
    case Kind::emptyColumn:
      return failAtLine(line, "a column is empty");
    case Kind::mixed:
      return failAtLine(line, "a comma and another separator in one line; decimals need a point");
    default:
      break;
  }
  // Words below words: the first of them were no head.
  return rows_ == 0 && head_ && parsed.kind == Kind::words
             ? failAtLine(head_->line, notNumber(head_->word))
             : failAtLine(line, notNumber(parsed.word));
}

void FileSource::takeSample(double first, double second, std::vector<Sample>& block) {
  const Sample sample =
      rate_ ? Sample{static_cast<double>(rows_ - 1) / *rate_, first} : Sample{first, second};
  if (sample.x < lastX_)
    return skip(backward_, ":" + std::to_string(reader_.LineNumber()));
  lastX_ = sample.x;
  ++samples_;
  block.push_back(sample);
}

std::string FileSource::whyMissing() {
  std::string_view next;
  if (samples_ == 0)
    return "x without y; a file of one column needs --rate";
  const bool isLast = reader_.Next(next) == LineReader::Outcome::end;
  return isLast ? "the file ends after x, without y" : "x without y";
}

bool FileSource::finish() {
  tellSkipped(notFinite_);
  tellSkipped(backward_);
  progress_ = 1.0;
  return false;
}

}  // namespace sparlow::host
