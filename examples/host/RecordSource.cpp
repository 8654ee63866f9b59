#include "examples/host/RecordSource.h"

#include <filesystem>
#include <utility>

namespace sparlow::host {

RecordSource::RecordSource(std::string path, std::string unit, ErrorLog& log)
    : path_(std::move(path)), unit_(std::move(unit)), log_(log) {}

std::string RecordSource::Name() const {
  return std::filesystem::path(path_).filename().string();
}

bool RecordSource::fail(const std::string& place, const std::string& why) {
  told_ = true;
  log_.Tell(path_ + place + ": " + why);
  return false;
}

void RecordSource::skip(Skipped& kind, const std::string& place) {
  if (kind.count++ == 0)
    log_.Tell(path_ + place + ": " + kind.why + ", skipped");
}

void RecordSource::tellSkipped(const Skipped& kind) {
  if (kind.count == 0)
    return;
  const char* const samples = kind.count == 1 ? " sample" : " samples";
  log_.Tell(path_ + ": " + std::to_string(kind.count) + samples + " skipped: " + kind.why);
}

}  // namespace sparlow::host
