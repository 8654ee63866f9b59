#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "examples/host/ErrorLog.h"
#include "examples/host/SampleSource.h"

namespace sparlow::host {

using Samples = std::vector<Sample>;
using Lines = std::vector<std::string>;

inline Samples ReadAll(SampleSource& source) {
  Samples all, block;
  for (bool more = true; more;) {
    more = source.Next(block, std::stop_token());
    all.insert(all.end(), block.begin(), block.end());
  }
  return all;
}

/// What became of a record: its samples, and the lines that were told, without its path.
struct Reading {
  Samples samples;
  Lines told;
};

template <class Source, class... More>
Reading ReadFile(const std::string& path, const More&... more) {
  std::stringstream told;
  ErrorLog log(told);
  Reading result;
  Source source(path, more..., "V", log);
  if (source.Open())
    result.samples = ReadAll(source);
  const std::string head = "sparlow-host: " + path;
  for (std::string line; std::getline(told, line);)
    result.told.push_back(line.starts_with(head) ? line.substr(head.size()) : line);
  return result;
}

/// Gives a list of values in blocks of 1000.
class ListSource : public SampleSource {
 public:
  explicit ListSource(std::vector<double> values, double rate = 1.0, std::string name = "list")
      : values_(std::move(values)), rate_(rate), name_(std::move(name)) {}
  std::string Name() const override { return name_; }
  std::string Unit() const override { return "V"; }
  std::string Activity() const override { return ""; }
  bool Next(Samples& block, const std::stop_token&) override {
    block.clear();
    for (; block.size() < 1000 && at_ < values_.size(); ++at_)
      block.push_back({static_cast<double>(at_) / rate_, values_[at_]});
    return at_ < values_.size();
  }
  double Progress() const override { return -1.0; }

 private:
  const std::vector<double> values_;
  const double rate_;
  const std::string name_;
  std::size_t at_ = 0;
};

}  // namespace sparlow::host
