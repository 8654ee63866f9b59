#include <algorithm>
#include <utility>

#include "sparlow/view/RenderFold.h"
#include "sparlow/view/SamplesInHand.h"

namespace sparlow {

namespace {

// Pixels of samples in a row.
template <unsigned kMost>
struct Pixels {
  static constexpr unsigned kBatch = kMost;
  int x[kMost];
  int y[kMost];
};

// The library's own mapping, with the axes' ways taken out of them once. It maps many samples at a
// time, since one division after another would take most of the time of a render.
template <class Hor, class Ver>
struct AxisPixels : Pixels<SampleBlock::kRunSamples> {
  Hor hor;
  Ver ver;
  AxisPixels(const Hor& horizontal, const Ver& vertical) : hor(horizontal), ver(vertical) {}
  unsigned map(const SampleBlock& block, unsigned sample, unsigned count) {
    const unsigned place = sample & SampleBlock::kMask;
    hor.Map([&](unsigned i) { return block.xAt(place + i); }, count, x);
    ver.Map([&](unsigned i) { return block.yAt(place + i); }, count, y);
    return count;
  }
};

// A host's pixel, with room for the width of a pen round it.
int nearPixel(int pixel) {
  return std::clamp(pixel, -kFarPixel, kFarPixel);
}

// What a class overrides is asked, and the rest comes from the axes. Asking may take long, so a render
// that is told to stop asks no more.
template <class Stop>
struct OwnPixels : Pixels<SampleBlock::kRunSamples> {
  const ViewData* view;
  const GraphAxis* axis;
  bool ownX, ownY;
  Stop stopRequested;
  OwnPixels(const ViewData* mapped, const GraphAxis* axes, bool xIsOwn, bool yIsOwn, Stop stop)
      : view(mapped), axis(axes), ownX(xIsOwn), ownY(yIsOwn), stopRequested(stop) {}
  unsigned map(const SampleBlock& block, unsigned sample, unsigned most) {
    unsigned count = 0;
    do {
      if (ownX)
        x[count] = nearPixel(view->xPosGet(sample + count, axis));
      if (ownY)
        y[count] = nearPixel(view->yPosGet(sample + count, axis));
      ++count;
    } while (count < most && !stopRequested());
    const unsigned place = sample & SampleBlock::kMask;
    for (unsigned i = 0; !ownX && i < count; ++i)
      x[i] = axis->hor.GetPos(block.xAt(place + i));
    for (unsigned i = 0; !ownY && i < count; ++i)
      y[i] = axis->ver.GetPosInv(block.yAt(place + i));
    return count;
  }
};

// The same, many at a time, by a class that can do that.
struct RowPixels : Pixels<SampleBlock::kRunSamples> {
  const ViewData* view;
  const GraphAxis* axis;
  RowPixels(const ViewData* mapped, const GraphAxis* axes) : view(mapped), axis(axes) {}
  unsigned map(const SampleBlock&, unsigned sample, unsigned count) {
    view->PosGet(sample, count, axis, x, y);
    std::transform(x, x + count, x, nearPixel);
    std::transform(y, y + count, y, nearPixel);
    return count;
  }
};

// Of a series without events.
const Event never;

}  // namespace

void ViewData::SetViewData(unsigned column, unsigned sample, const GraphAxis* axis) {
  if (column >= kMaxColumns)
    return;
  xPos[column] = nearPixel(xPosGet(sample, axis));
  yPos[column] = yLastPos[column] = yMinPos[column] = yMaxPos[column] =
      nearPixel(yPosGet(sample, axis));
}

bool ViewData::Render(GraphAxis* axis, bool full) {
  if (!axis)
    return true;
  const DataLock data(dataMutex);
  const SampleReader samples = Read();
  const SamplesInHand inHand(this, &samples);
  if (waveform) {
    renderWaveform(samples, *axis);
    return true;
  }
  const Range range = rangeOf(samples);
  if (range.from >= samples.size()) {
    ResetViewData();
    return true;
  }
  const RenderKey key = keyOf(samples, range.from, *axis);
  if (!full && !continues(key, range)) {
    ResetViewData();
    full = true;
  }
  Fold fold{samples, full ? range.from : nextSample.load(), range.end, full ? 0 : nextColumn.load(),
            full};
  return renderPlain(fold, *axis, key);
}

// The start as it was set: an interval that ends before it still shows the sample there.
ViewData::Range ViewData::rangeOf(const SampleReader& samples) const {
  return {nFrom, std::min(GetTo(), samples.size())};
}

bool ViewData::continues(const RenderKey& key, Range range) const {
  const std::lock_guard<OwnMutex> lock(columnsLock_);
  const bool some = nextColumn >= 1 && nextColumn <= kMaxColumns;
  return some && madeFor_.dataSet != 0 && madeFor_ == key &&
         nextSample <= std::max(range.end, range.from + 1);
}

bool ViewData::CanContinueRender(const GraphAxis& axis) const {
  const SampleReader samples = Read();
  const Range range = rangeOf(samples);
  return !waveform && continues(keyOf(samples, range.from, axis), range);
}

RenderKey ViewData::keyOf(const SampleReader& samples, unsigned from, const GraphAxis& axis) const {
  return {samples.serial(),        samples.changes(),      mappingChanges_, from,
          RenderKey::Of(axis.hor), RenderKey::Of(axis.ver)};
}

void ViewData::setMadeFor(const RenderKey& key) {
  const std::lock_guard<OwnMutex> lock(columnsLock_);
  madeFor_ = key;
}

void ViewData::renderWaveform(const SampleReader& samples, const GraphAxis& axis) {
  const SampleInterval interval = GetInterval();
  const unsigned end = std::min(interval.end, samples.size());
  const unsigned columns = end > interval.from ? std::min(end - interval.from, kMaxColumns) : 0;
  setMadeFor({});
  rising_.reset();
  hasRising_ = true;
  for (unsigned i = 0; i < columns; ++i) {
    SetViewData(i, interval.from + i, &axis);
    rising_[i] = samples.slope(interval.from + i);
  }
  nColumns = columns;
}

bool ViewData::renderPlain(Fold& fold, const GraphAxis& axis, const RenderKey& key) {
  setMadeFor({});
  if (fold.full) {
    if (std::exchange(hasRising_, false))
      rising_.reset();
    nextSample = 0;
  }
  if (!MapsByAxes())
    foldByOwnMapping(fold, axis);
  else if (!renderDense(fold, axis))
    foldByAxes(fold, axis);
  if (fold.full)
    sparse = fold.alone;
  nextColumn = fold.column;
  if (fold.stopped)
    return false;
  nextSample = fold.sample;
  nColumns = fold.column;
  setMadeFor(key);
  return true;
}

void ViewData::foldByOwnMapping(Fold& fold, const GraphAxis& axis) {
  if (typeid(*this) == *rowMapping_)
    return foldWith(fold, RowPixels{this, &axis});
  const auto stop = [this, stoppable = fold.full] { return stoppable && stopRequested(); };
  foldWith(fold, OwnPixels{this, &axis, !MapsXByAxis(), !MapsYByAxis(), stop});
}

void ViewData::foldByAxes(Fold& fold, const GraphAxis& axis) {
  const AxisData &hor = axis.hor, &ver = axis.ver;
  if (hor.log && ver.log)
    foldWith(fold, AxisPixels<LogMapping, LogMapping>{hor.HorLog(), ver.VerLog()});
  else if (hor.log)
    foldWith(fold, AxisPixels<LogMapping, LinearMapping>{hor.HorLog(), ver.VerLinear()});
  else if (ver.log)
    foldWith(fold, AxisPixels<LinearMapping, LogMapping>{hor.HorLinear(), ver.VerLog()});
  else
    foldWith(fold, AxisPixels<LinearMapping, LinearMapping>{hor.HorLinear(), ver.VerLinear()});
}

// The column in work stays out of the arrays until the next one begins, so that a sample on it
// costs no memory beyond its own.
template <class Pixels>
void ViewData::foldWith(Fold& fold, Pixels pixels) {
  Column work;
  bool begins = fold.full;
  if (!begins)
    work = columnAt(fold.column - 1);
  while ((begins || fold.sample < fold.end) && fold.column < kMaxColumns && !fold.stopped) {
    const unsigned blockEnd = std::min(fold.end, (fold.sample | SampleBlock::kMask) + 1);
    const unsigned most = begins ? std::max(blockEnd, fold.sample + 1) : blockEnd;
    const unsigned count = pixels.map(fold.samples.block(fold.sample >> SampleBlock::kShift),
                                      fold.sample, std::min(Pixels::kBatch, most - fold.sample));
    const unsigned begun = begins ? 1 : 0;
    if (std::exchange(begins, false)) {
      const int y = pixels.y[0];
      work = {pixels.x[0], y, y, y, y};
      fold.column = 1;
      ++fold.sample;
    }
    foldBatch(fold, work, pixels.x + begun, pixels.y + begun, count - begun);
  }
  putColumn(fold.column - 1, work);
}

void ViewData::foldBatch(Fold& fold, Column& column, const int* xs, const int* ys, unsigned count) {
  const Event& stop = terminator ? *terminator : never;
  const bool stoppable = fold.full;
  const unsigned before = fold.column;
  // One by one, so that each has a register.
  int x = column.x, first = column.first, last = column.last, min = column.min, max = column.max;
  unsigned next = before, i = 0;
  while (i < count && next < kMaxColumns) {
    const int y = ys[i];
    if (xs[i] == x) {
      min = std::min(min, y);
      max = std::max(max, y);
    } else {
      putColumn(next - 1, {x, first, last, min, max});
      x = xs[i];
      first = min = max = y;
      ++next;
    }
    last = y;
    ++i;
    if (stoppable && (renderStop.relaxed() || stop.IsSet())) {
      fold.stopped = true;
      break;
    }
  }
  column = {x, first, last, min, max};
  fold.alone = fold.alone && next - before == i;
  fold.column = next;
  fold.sample += i;
}

ViewData::Column ViewData::columnAt(unsigned i) const {
  return {xPos[i], yPos[i], yLastPos[i], yMinPos[i], yMaxPos[i]};
}

}  // namespace sparlow
