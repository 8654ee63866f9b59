#pragma once

#include "sparlow/data/SampleReader.h"

namespace sparlow {

/// An x that differs by less from a sample's x counts as that sample; absolute, in units of x.
inline constexpr double kSearchTolerance = 1e-15;

/// Bisects the places lo to hi (exclusive, at least one) of a block whose x ascends for value, and
/// gives a place, or -1 when value is outside. Between two samples the result is the upper one if
/// roundUp is true, else the lower one. A range of one sample also finds a value below that sample.
/// -1 for a value that is not a number.
int FindSample(const SampleBlock& block, unsigned lo, unsigned hi, double value, bool roundUp);

/// A place as FindSample gives it in the first of the blocks b to last that has one, as the sample of
/// the series, and which block that was; -1 and no block's number when none has. Where x ascends, at
/// the cost of a few blocks, however many they are.
int FindSampleInBlocks(const SampleReader& samples, unsigned& b, unsigned last, double value,
                       bool roundUp);

/// The first of the blocks 0 to last whose x goes from value or below to value or above; last when
/// there is none before it.
unsigned BlockAround(const SampleReader& samples, unsigned last, double value);

/// First sample from lo upward whose x is not below value; hi if there is none before it. Bisects
/// when x ascends, else walks.
unsigned FirstNotBelow(const SampleReader& samples, unsigned lo, unsigned hi, double value);

/// First sample from hi downward whose x is not above value; lo if there is none before it.
unsigned LastNotAbove(const SampleReader& samples, unsigned lo, unsigned hi, double value);

}  // namespace sparlow
