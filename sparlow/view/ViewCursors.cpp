#include <algorithm>
#include <cstdint>
#include <limits>

#include "sparlow/data/Error.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

bool isSample(int cursor, unsigned size) {
  return cursor >= 0 && static_cast<unsigned>(cursor) < size;
}

// Of the samples in hand: the thread that feeds may begin a new data set at any time.
double valueAt(const SampleReader& samples, int cursor,
               double (SampleReader::*value)(unsigned) const) {
  return isSample(cursor, samples.size()) ? (samples.*value)(static_cast<unsigned>(cursor)) : 0.0;
}

int pixelAt(const ViewData& view, int cursor, const GraphAxis* axis,
            int (ViewData::*pixel)(unsigned, const GraphAxis*) const) {
  return isSample(cursor, view.GetSize()) ? (view.*pixel)(static_cast<unsigned>(cursor), axis) : 0;
}

}  // namespace

bool ViewData::SetLCursor(unsigned sample) {
  return placeCursor(Side::left, sample, nSamples);
}

bool ViewData::SetRCursor(unsigned sample) {
  return placeCursor(Side::right, sample, nSamples);
}

int ViewData::dnCursorGet() const {
  const std::int64_t left = iLCursor, right = iRCursor;
  if (left == -1 || right == -1)
    return 0;
  return static_cast<int>(std::clamp<std::int64_t>(
      right - left + 1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

double ViewData::xLCursorGet() const {
  return valueAt(Read(), iLCursor, &SampleReader::x);
}

double ViewData::xRCursorGet() const {
  return valueAt(Read(), iRCursor, &SampleReader::x);
}

double ViewData::yLCursorGet() const {
  return valueAt(Read(), iLCursor, &SampleReader::y);
}

double ViewData::yRCursorGet() const {
  return valueAt(Read(), iRCursor, &SampleReader::y);
}

int ViewData::xLCursorPosGet(const GraphAxis* axis) const {
  return pixelAt(*this, iLCursor, axis, &ViewData::xPosGet);
}

int ViewData::xRCursorPosGet(const GraphAxis* axis) const {
  return pixelAt(*this, iRCursor, axis, &ViewData::xPosGet);
}

int ViewData::yLCursorPosGet(const GraphAxis* axis) const {
  return pixelAt(*this, iLCursor, axis, &ViewData::yPosGet);
}

int ViewData::yRCursorPosGet(const GraphAxis* axis) const {
  return pixelAt(*this, iRCursor, axis, &ViewData::yPosGet);
}

void ViewData::CopyTo(ViewData* destination) const {
  if (!destination || destination == this)
    return;
  const SampleReader samples = Read();
  // Edges don't go over, and the limit of those who have some isn't theirs.
  destination->waveform = false;
  destination->Reset();
  for (unsigned i = 0; i < samples.size(); ++i)
    destination->Add(samples.x(i), samples.y(i), false);
  destination->AdjustSizeTo();
  destination->CalculateStatParams(std::numeric_limits<double>::lowest(),
                                   std::numeric_limits<double>::max());
}

void ViewData::Verify() const {
  if (nColumns == 0)
    throw Error(Error::kNotRendered);
}

}  // namespace sparlow
