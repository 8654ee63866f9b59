#pragma once

#include "sparlow/data/SampleReader.h"

namespace sparlow {

/// An x that differs by less from a sample's x counts as that sample; absolute, in units of x.
inline constexpr double kSearchTolerance = 1e-15;

/// Bisects the places lo to hi (exclusive, at least one) of a block whose x ascends for value, and
/// returns a place, or -1 when value is outside. Between two samples the result is the upper one if
/// roundUp is true, else the lower one. A range of one sample also finds a value below that sample.
/// -1 for a value that is not a number.
int FindSample(const SampleBlock& block, unsigned lo, unsigned hi, double value, bool roundUp);

/// The sample at value. Between two of them it is the one behind value if roundUp is true, else the
/// one before it, also where they lie in two blocks. -1 before the first sample, unless roundUp is
/// true, and -1 beyond the last one. Where x doesn't ascend, what FindSample returns in the first
/// of the blocks from firstBlock on that has a place.
int FindSampleInBlocks(const SampleReader& samples, double value, bool roundUp,
                       unsigned firstBlock = 0);

/// The first of the blocks 0 to last whose x goes from value or below to value or above; last when
/// there is none before it.
unsigned BlockAround(const SampleReader& samples, unsigned last, double value);

/// First sample from lo upward whose x is not below value; hi if there is none before it. Bisects
/// when x ascends, else walks.
unsigned FirstNotBelow(const SampleReader& samples, unsigned lo, unsigned hi, double value);

/// First sample from hi downward whose x is not above value; lo if there is none before it.
unsigned LastNotAbove(const SampleReader& samples, unsigned lo, unsigned hi, double value);

}  // namespace sparlow
