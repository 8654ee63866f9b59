#pragma once

#include <memory>
#include <optional>

#include "examples/host/SampleSource.h"

namespace sparlow::host {

/// The edges of another source: where its y crosses a level. x is the time of the crossing, between
/// two samples on the line that joins them; y is the time since the edge before, so that the first
/// edge of all gives none. The record is full with 8192 edges.
/// Threads: as its base class.
class EdgeSource : public SampleSource {
 public:
  static constexpr unsigned maxEdges = 8192;
  /// Samples whose median is the level when none is given.
  static constexpr std::size_t medianSamples = 200;

  EdgeSource(std::unique_ptr<SampleSource> samples, std::optional<double> level);

  std::string Name() const override { return samples_->Name() + ", edges"; }
  std::string Unit() const override { return "s"; }
  bool IsWaveform() const override { return true; }
  std::string Activity() const override { return samples_->Activity(); }
  bool Next(std::vector<Sample>& block, const std::stop_token& stop) override;
  double Progress() const override { return samples_->Progress(); }
  std::string WhyEmpty() const override;

 private:
  void findLevel();
  void findEdge(const Sample& sample, std::vector<Sample>& edges);

  const std::unique_ptr<SampleSource> samples_;
  std::optional<double> level_;
  std::vector<Sample> taken_;
  std::vector<Sample> waiting_;  // for the level
  std::optional<Sample> last_;
  std::optional<double> lastEdge_;
  unsigned edges_ = 0;
};

}  // namespace sparlow::host
