#include "examples/host/SoundSource.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace sparlow::host {

namespace {

constexpr sf_count_t kBlock = 65536;

constexpr std::string_view kEndings[] = {".wav", ".flac", ".ogg", ".oga", ".opus", ".mp3",
                                         ".aif", ".aiff", ".au",  ".snd", ".caf",  ".w64"};

}  // namespace

SoundSource::SoundSource(std::string path, std::string unit, ErrorLog& log)
    : RecordSource(std::move(path), unit.empty() ? "FS" : std::move(unit), log) {}

SoundSource::~SoundSource() {
  if (file_)
    sf_close(file_);
}

bool SoundSource::IsSound(const std::string& path) {
  std::string ending = std::filesystem::path(path).extension().string();
  for (char& c : ending)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return std::find(std::begin(kEndings), std::end(kEndings), ending) != std::end(kEndings);
}

/// What a RIFF file says its size is; 0 for other files, and for one written to a pipe.
std::uint64_t SoundSource::promisedBytes() const {
  unsigned char head[8] = {};
  std::ifstream file(path_, std::ios::binary);
  if (!file.read(reinterpret_cast<char*>(head), sizeof head) || std::memcmp(head, "RIFF", 4) != 0)
    return 0;
  const std::uint32_t size = head[4] | head[5] << 8 | head[6] << 16 | std::uint32_t{head[7]} << 24;
  constexpr std::uint32_t unknown = 0x7FFFFF00;
  return size >= unknown ? 0 : std::uint64_t{size} + 8;
}

bool SoundSource::Open() {
  // The library says "System error" where the system knows better.
  std::error_code error;
  if (std::filesystem::is_directory(path_, error))
    return fail("", std::strerror(EISDIR));
  errno = 0;
  if (!std::ifstream(path_, std::ios::binary))
    return fail("", std::strerror(errno != 0 ? errno : EIO));
  file_ = sf_open(path_.c_str(), SFM_READ, &info_);
  if (!file_)
    return fail("", sf_strerror(nullptr));
  if (info_.samplerate <= 0 || info_.channels <= 0)
    return fail("", "no sample rate or no channels");
  const std::uint64_t size = std::filesystem::file_size(path_, error);
  cutOff_ = !error && promisedBytes() > size;
  frames_.resize(static_cast<std::size_t>(std::max<sf_count_t>(1, kBlock / info_.channels)) *
                 static_cast<std::size_t>(info_.channels));
  return true;
}

bool SoundSource::Next(std::vector<Sample>& block, const std::stop_token&) {
  block.clear();
  const auto channels = static_cast<std::size_t>(info_.channels);
  const auto wanted = static_cast<sf_count_t>(frames_.size() / channels);
  const sf_count_t got = sf_readf_double(file_, frames_.data(), wanted);
  block.reserve(static_cast<std::size_t>(std::max<sf_count_t>(got, 0)));
  for (sf_count_t i = 0; i < got; ++i)
    takeFrame(frames_[static_cast<std::size_t>(i) * channels], block);
  if (got < wanted)
    return finish();
  if (info_.frames > 0)
    progress_ = static_cast<double>(read_) / static_cast<double>(info_.frames);
  return true;
}

void SoundSource::takeFrame(double value, std::vector<Sample>& block) {
  const double time = static_cast<double>(read_++) / info_.samplerate;
  if (std::isfinite(value))
    block.push_back({time, value});
  else
    skip(notFinite_, ": sample " + std::to_string(read_));
}

bool SoundSource::finish() {
  tellSkipped(notFinite_);
  if (sf_error(file_) != SF_ERR_NO_ERROR)
    fail(": after sample " + std::to_string(read_), sf_strerror(file_));
  else if (cutOff_ || read_ < info_.frames)
    fail("", "the file is cut off after sample " + std::to_string(read_));
  progress_ = 1.0;
  return false;
}

}  // namespace sparlow::host
