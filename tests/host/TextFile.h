#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace sparlow::host {

/// A file that exists as long as the object.
/// Threads: a value.
class TextFile {
 public:
  explicit TextFile(std::string_view content)
      : path_(std::filesystem::temp_directory_path() /
              ("sparlow-host-" + std::to_string(getpid()) + "-" + std::to_string(++made_))) {
    std::ofstream(path_, std::ios::binary) << content;
  }
  TextFile(const TextFile&) = delete;
  TextFile& operator=(const TextFile&) = delete;
  ~TextFile() { std::filesystem::remove(path_); }

  std::string path() const { return path_.string(); }

 private:
  static inline int made_ = 0;
  const std::filesystem::path path_;
};

}  // namespace sparlow::host
