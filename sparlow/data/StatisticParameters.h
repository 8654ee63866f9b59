#pragma once

namespace sparlow {

class SourceData;

/// Six numbers about the y values of a series, in units of y. They are worked out from the samples
/// of its analysed range, GetAnalyzeFrom to GetAnalyzeTo, whose y lies in a window.
///
/// An operation that calculates follows a series that grows meanwhile, and keeps to the data set
/// that it began with. Sums go over the samples in index order, in double. Values whose sum or sum
/// of squares is beyond a double give what the arithmetic gives: an infinity or no number.
struct StatisticParameters {
  double mean = 0.0;
  double min = 0.0;
  double max = 0.0;
  double span = 0.0;      ///< max - min
  double stdDev = 0.0;    ///< of the samples themselves: the denominator is their number
  double allanDev = 0.0;  ///< of neighbouring samples, as CalculateAllanDev has it

  /// All six 0.
  void Reset() { *this = {}; }

  /// All six, from the samples with yLow <= y <= yHigh; a limit that is not a number limits
  /// nothing. Without such a sample, or without a series, min and max are 1 and the others 0.
  void Calculate(const SourceData* series, double yLow, double yHigh);

  /// @name The steps of Calculate
  /// Each sets what its name states. CalculateMinMax comes first and CalculateMean second: those
  /// that follow take min to max as their window, whatever yLow and yHigh are, and stdDev needs
  /// mean.
  ///@{
  void CalculateMinMax(const SourceData* series, double yLow, double yHigh);
  void CalculateMean(const SourceData* series, double yLow, double yHigh);
  void CalculateStdDev(const SourceData* series, double yLow, double yHigh);
  /// The two-sample deviation sqrt(sum (y[i] - y[i - 1])^2 / (2 M)) over the M samples that count
  /// and have a sample before them, which need not count itself nor lie in the analysed range. The
  /// samples are taken as frequency readings, each averaged over their spacing, without dead time:
  /// IEEE Std 1139; W. J. Riley, "Handbook of Frequency Stability Analysis", NIST SP 1065, 5.2.1.
  void CalculateAllanDev(const SourceData* series, double yLow, double yHigh);
  ///@}
};

}  // namespace sparlow
