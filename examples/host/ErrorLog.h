#pragma once

#include <mutex>
#include <ostream>
#include <string>

namespace sparlow::host {

/// Tells what is wrong with the input, a line each, and remembers that something was.
/// Threads: any.
class ErrorLog {
 public:
  /// out must outlive the log and is written to by nobody else meanwhile.
  explicit ErrorLog(std::ostream& out) : out_(out) {}

  void Tell(const std::string& text) {
    const std::lock_guard guard(lock_);
    // One write a line, so that the lines of two programs don't mix.
    out_ << "sparlow-host: " + text + "\n" << std::flush;
    ++count_;
    last_ = text;
  }

  int Count() const {
    const std::lock_guard guard(lock_);
    return count_;
  }

  /// The line told last; empty when there was none.
  std::string Last() const {
    const std::lock_guard guard(lock_);
    return last_;
  }

 private:
  mutable std::mutex lock_;
  std::ostream& out_;
  int count_ = 0;
  std::string last_;
};

}  // namespace sparlow::host
