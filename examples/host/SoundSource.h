#pragma once

#include <sndfile.h>

#include <atomic>

#include "examples/host/ErrorLog.h"
#include "examples/host/SampleSource.h"

namespace sparlow::host {

/// The first channel of a sound file: x in seconds, y as a share of full scale.
///
/// What is wrong goes to the log. A sample that isn't finite is skipped; the first one is told, and
/// their number at the end. The samples before the end of a file that is cut off are good.
/// Threads: as its base class.
class SoundSource : public SampleSource {
 public:
  /// log must outlive the source. An empty unit is full scale, FS.
  SoundSource(std::string path, std::string unit, ErrorLog& log);
  ~SoundSource() override;

  /// By its name, since a file of text needs none in particular.
  static bool IsSound(const std::string& path);
  /// False, and the log is told, when the file can't be opened or is no sound. Before the first
  /// Next.
  bool Open();

  std::string Name() const override;
  std::string Unit() const override { return unit_; }
  std::string Activity() const override { return "reading"; }
  bool Next(std::vector<Sample>& block, const std::stop_token& stop) override;
  double Progress() const override { return progress_; }

 private:
  bool tell(const std::string& text);
  std::uint64_t promisedBytes() const;
  void takeFrame(double value, std::vector<Sample>& block);
  bool finish();

  const std::string path_;
  const std::string unit_;
  ErrorLog& log_;
  SNDFILE* file_ = nullptr;
  SF_INFO info_{};
  std::vector<double> frames_;
  sf_count_t read_ = 0;
  std::uint64_t notFinite_ = 0;
  bool cutOff_ = false;  // the file is shorter than its head says
  std::atomic<double> progress_{0.0};
};

}  // namespace sparlow::host
