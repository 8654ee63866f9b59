#include "examples/host/LineReader.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

namespace sparlow::host {

namespace {

constexpr std::size_t kBuffer = std::size_t{1} << 20;
constexpr std::chrono::milliseconds kPatience{50};

std::string reason(int error) {
  return std::generic_category().message(error);
}

bool isUtf16(std::string_view text) {
  return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

}  // namespace

LineReader::~LineReader() {
  if (file_ >= 0)
    close(file_);
}

LineReader::Outcome LineReader::fail(std::string why) {
  failure_ = std::move(why);
  return Outcome::failed;
}

bool LineReader::Open(const std::string& path) {
  file_ = path == standardInput ? fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                : open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status {};
  if (file_ < 0 || fstat(file_, &status) != 0) {
    fail(reason(errno));
    return false;
  }
  if (S_ISDIR(status.st_mode)) {
    fail(reason(EISDIR));
    return false;
  }
  isStream_ = !S_ISREG(status.st_mode);
  size_ = isStream_ ? 0 : static_cast<std::uint64_t>(status.st_size);
  buffer_.resize(kBuffer);
  return true;
}

double LineReader::Progress() const {
  if (size_ == 0)
    return -1.0;
  // A file may grow while it is read.
  return std::min(1.0, static_cast<double>(given_) / static_cast<double>(size_));
}

LineReader::Outcome LineReader::Next(std::string_view& line) {
  std::size_t searched = 0;
  for (;;) {
    const char* const start = buffer_.data() + begin_;
    const std::size_t length = end_ - begin_;
    if (lineNumber_ == 0 && isUtf16({start, length}))
      return fail("looks like UTF-16 text");
    if (const void* const newline = std::memchr(start + searched, '\n', length - searched)) {
      const auto found = static_cast<std::size_t>(static_cast<const char*>(newline) - start);
      line = take(found, found + 1);
      return Outcome::line;
    }
    if (length > maxLine)
      return fail("a line of more than 65536 characters: this is no text");
    if (atEnd_) {
      if (length == 0)
        return Outcome::end;
      line = take(length, length);
      return Outcome::line;
    }
    searched = length;
    if (const Outcome outcome = fill(); outcome != Outcome::line)
      return outcome;
  }
}

std::string_view LineReader::take(std::size_t length, std::size_t end) {
  std::string_view line(buffer_.data() + begin_, length);
  begin_ += end;
  given_ += end;
  if (++lineNumber_ == 1 && line.starts_with("\xEF\xBB\xBF"))
    line.remove_prefix(3);
  if (line.ends_with('\r'))
    line.remove_suffix(1);
  return line;
}

/// Waits for something to read. False when it is time to hand over what came before.
bool LineReader::await() {
  auto patience = kPatience;
  if (isStream_ && cameFirst_) {
    const auto ago = Clock::now() - *cameFirst_;
    patience -= std::chrono::duration_cast<std::chrono::milliseconds>(ago);
  }
  pollfd ready{file_, POLLIN, 0};
  const int events = patience.count() > 0 ? poll(&ready, 1, static_cast<int>(patience.count())) : 0;
  if (events > 0 || (events < 0 && errno != EINTR))
    return true;
  cameFirst_.reset();
  return false;
}

LineReader::Outcome LineReader::fill() {
  std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  if (!await())
    return Outcome::waiting;
  const ssize_t got = read(file_, buffer_.data() + end_, buffer_.size() - end_);
  if (got < 0)
    return errno == EINTR || errno == EAGAIN ? Outcome::waiting : fail(reason(errno));
  if (!cameFirst_)
    cameFirst_ = Clock::now();
  atEnd_ = got == 0;
  end_ += static_cast<std::size_t>(got);
  return Outcome::line;
}

}  // namespace sparlow::host
