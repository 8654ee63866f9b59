#pragma once

#include <gtest/gtest.h>

#include <limits>

#include "sparlow/data/SourceData.h"

namespace sparlow::test {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// A series that is set up and taken down with its object.
struct Series : SourceData {
  Series() { SourceData::Init("series"); }
  ~Series() override { SourceData::Term(); }
  Series(const Series&) = delete;
  Series& operator=(const Series&) = delete;

  /// x = 0, 1, 2, ... and y = x, all on show.
  void fillRamp(unsigned samples) {
    Reset();
    for (unsigned i = 0; i < samples; ++i)
      Add(i, i);
    AdjustSizeTo();
  }
};

}  // namespace sparlow::test
