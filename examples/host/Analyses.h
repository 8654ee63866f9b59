#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "examples/host/Kinds.h"
#include "sparlow/sparlow.h"

namespace sparlow::host {

/// Series that are worked out from another one: the samples that Analyze chose, one new sample after
/// the other, until somebody asks for an end.
/// Threads: as Analysis; source and name are given once, before the first use.
class Calculation : public Analysis {
 public:
  /// unit is that of y; an empty one is that of the source. x has the source's.
  Calculation(SourceData& source, const std::string& title, const std::string& unit = {});
  ~Calculation() override { Term(); }
  Calculation(const Calculation&) = delete;
  Calculation& operator=(const Calculation&) = delete;

  bool Analyze() override;
  bool ApplyMask() override;
  /// Says that one of the two is going to be run. Any thread.
  void Expect() { due_ = true; }
  /// One of the two runs, or is expected. Any thread.
  bool Busy() const { return due_ || running_; }

 protected:
  bool Calculate() final;
  /// The samples to work on, of which there are some.
  struct Input {
    SampleReader samples;
    unsigned from;
    unsigned end;
  };
  /// Adds the result. False: it was stopped, or there is none.
  virtual bool Work(const Input& input) = 0;

 private:
  class Run;

  std::atomic<bool> due_{false};
  std::atomic<bool> running_{false};
};

/// The mean of up to so many samples around each one.
/// Threads: as Calculation.
class MovingAverage : public Calculation {
 public:
  MovingAverage(SourceData& source, unsigned window);

 protected:
  bool Work(const Input& input) override;

 private:
  const unsigned window_;
};

/// dy/dx by the neighbours of each sample; where they have the same x there is none.
/// Threads: as Calculation.
class Derivative : public Calculation {
 public:
  explicit Derivative(SourceData& source);

 protected:
  bool Work(const Input& input) override;
};

/// How many samples have a y in each of so many equal classes from the lowest to the highest, as a
/// stepped line.
/// Threads: as Calculation.
class Histogram : public Calculation {
 public:
  explicit Histogram(SourceData& source, unsigned classes = 200);

 protected:
  bool Work(const Input& input) override;

 private:
  const unsigned classes_;
};

/// A horizontal line at mean + factor standard deviations of the samples, over their x.
/// Threads: as Calculation.
class DeviationLine : public Calculation {
 public:
  DeviationLine(SourceData& source, int factor);

 protected:
  bool Work(const Input& input) override;

 private:
  const int factor_;
};

/// The overlapping Allan deviation over the averaging time (NIST SP 1065, section 5.2.4; IEEE Std
/// 1139) of samples that are fractional frequencies, for 1, 2, 4, 10, 20, 40 ... samples as far as
/// three such times fit into the series. The samples count as evenly spaced, by the mean distance
/// of their x.
/// Threads: as Calculation.
class AllanDeviation : public Calculation {
 public:
  explicit AllanDeviation(SourceData& source);

 protected:
  bool Work(const Input& input) override;

 private:
  bool deviationOf(const Input& input, double mean, unsigned m, double& deviation) const;
};

/// The calculation of a kind, from a source that has its name and units.
std::unique_ptr<Calculation> MakeAnalysis(AnalysisKind kind, SourceData& source);
std::unique_ptr<Calculation> MakeMask(const MaskKind& kind, SourceData& source);

}  // namespace sparlow::host
