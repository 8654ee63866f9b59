#pragma once

#include <sndfile.h>

#include "examples/host/RecordSource.h"

namespace sparlow::host {

/// The first channel of a sound file: x in seconds, y as a share of full scale.
///
/// What is wrong goes to the log. A sample that isn't finite is skipped; the first one is told, and
/// their number at the end. The samples before the end of a file that is cut off are good.
/// Threads: as its base class.
class SoundSource : public RecordSource {
 public:
  /// log must outlive the source. An empty unit is full scale, FS.
  SoundSource(std::string path, std::string unit, ErrorLog& log);
  ~SoundSource() override;

  /// By its name, since a file of text needs none in particular.
  static bool IsSound(const std::string& path);
  /// False, and the log is told, when the file can't be opened or is no sound. Before the first
  /// Next.
  bool Open();

  bool Next(std::vector<Sample>& block, const std::stop_token& stop) override;

 private:
  std::uint64_t promisedBytes() const;
  void takeFrame(double value, std::vector<Sample>& block);
  bool finish();

  SNDFILE* file_ = nullptr;
  SF_INFO info_{};
  std::vector<double> frames_;
  sf_count_t read_ = 0;
  bool cutOff_ = false;  // the file is shorter than its head says
};

}  // namespace sparlow::host
