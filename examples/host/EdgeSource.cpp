#include "examples/host/EdgeSource.h"

#include <algorithm>
#include <utility>

#include "sparlow/platform/base/Text.h"

namespace sparlow::host {

EdgeSource::EdgeSource(std::unique_ptr<SampleSource> samples, std::optional<double> level)
    : samples_(std::move(samples)), level_(level) {}

bool EdgeSource::Next(std::vector<Sample>& block, const std::stop_token& stop) {
  block.clear();
  const bool more = samples_->Next(taken_, stop);
  if (!level_) {
    waiting_.insert(waiting_.end(), taken_.begin(), taken_.end());
    // A record that is stopped or ends early has its edges too.
    if (more && !stop.stop_requested() && waiting_.size() < medianSamples)
      return true;
    findLevel();
    taken_.swap(waiting_);
    waiting_ = {};
  }
  for (const Sample& sample : taken_)
    findEdge(sample, block);
  return more && edges_ < maxEdges;
}

std::string EdgeSource::WhyEmpty() const {
  if (!last_)
    return samples_->WhyEmpty();
  const std::string level = FormatNumber(*level_, 6);
  return samples_->Name() + ": no edges: " +
         (lastEdge_ ? "y crosses " + level + " only once" : "y never crosses " + level);
}

void EdgeSource::findLevel() {
  const std::size_t count = std::min(waiting_.size(), medianSamples);
  std::vector<double> values;
  for (std::size_t i = 0; i < count; ++i)
    values.push_back(waiting_[i].y);
  std::sort(values.begin(), values.end());
  // Between the two in the middle: a signal of two values has a level between them.
  level_ = count == 0 ? 0.0 : (values[(count - 1) / 2] + values[count / 2]) / 2;
}

void EdgeSource::findEdge(const Sample& sample, std::vector<Sample>& edges) {
  const auto before = std::exchange(last_, sample);
  if (!before || edges_ >= maxEdges)
    return;
  const bool rising = sample.y > *level_;
  if (rising == (before->y > *level_))
    return;
  const double share = (*level_ - before->y) / (sample.y - before->y);
  const double time = before->x + share * (sample.x - before->x);
  if (const auto edgeBefore = std::exchange(lastEdge_, time)) {
    edges.push_back({time, time - *edgeBefore, rising});
    ++edges_;
  }
}

}  // namespace sparlow::host
