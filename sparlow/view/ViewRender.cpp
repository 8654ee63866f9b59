#include <algorithm>
#include <utility>

#include "sparlow/view/RenderFold.h"

namespace sparlow {

// The samples that a render of this thread has in hand, for the pixel calls that come out of it:
// taking a share of the store for each sample would cost more than the mapping.
class ViewData::SamplesInHand {
 public:
  SamplesInHand(const ViewData* view, const SampleReader* samples)
      : view_(view), samples_(samples), outer_(innermost) {
    innermost = this;
  }
  ~SamplesInHand() { innermost = outer_; }
  SamplesInHand(const SamplesInHand&) = delete;
  SamplesInHand& operator=(const SamplesInHand&) = delete;

  static const SampleReader* Of(const ViewData* view) {
    return innermost && innermost->view_ == view ? innermost->samples_ : nullptr;
  }

 private:
  const ViewData* view_;
  const SampleReader* samples_;
  SamplesInHand* outer_;
  static thread_local SamplesInHand* innermost;
};

thread_local ViewData::SamplesInHand* ViewData::SamplesInHand::innermost = nullptr;

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
  void map(const SampleBlock& block, unsigned sample, unsigned count) {
    const unsigned place = sample & SampleBlock::kMask;
    hor.Map([&](unsigned i) { return block.xAt(place + i); }, count, x);
    ver.Map([&](unsigned i) { return block.yAt(place + i); }, count, y);
  }
};

// A host's pixel, with room for the width of a pen round it.
int nearPixel(int pixel) {
  return std::clamp(pixel, -kFarPixel, kFarPixel);
}

// Whatever a derived class makes of its samples: one by one, so that a render that is stopped asks
// it no more.
struct VirtualPixels : Pixels<1> {
  const ViewData* view;
  const GraphAxis* axis;
  VirtualPixels(const ViewData* mapped, const GraphAxis* axes) : view(mapped), axis(axes) {}
  void map(const SampleBlock&, unsigned sample, unsigned) {
    x[0] = nearPixel(view->xPosGet(sample, axis));
    y[0] = nearPixel(view->yPosGet(sample, axis));
  }
};

// Of a series without events.
const Event never;

template <class OfSample>
int pixelOf(const SampleReader* inHand, const SourceData& series, unsigned sample,
            const GraphAxis* axis, OfSample ofSample) {
  if (!axis)
    return 0;
  if (inHand)
    return sample < inHand->size() ? ofSample(*inHand) : 0;
  const SampleReader samples = series.Read();
  return sample < samples.size() ? ofSample(samples) : 0;
}

}  // namespace

int ViewData::xPosGet(unsigned sample, const GraphAxis* axis) const {
  return pixelOf(SamplesInHand::Of(this), *this, sample, axis,
                 [&](const SampleReader& samples) { return axis->hor.GetPos(samples.x(sample)); });
}

int ViewData::yPosGet(unsigned sample, const GraphAxis* axis) const {
  return pixelOf(SamplesInHand::Of(this), *this, sample, axis, [&](const SampleReader& samples) {
    return axis->ver.GetPosInv(samples.y(sample));
  });
}

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
  const RenderKey key{samples.serial(), range.from, RenderKey::Of(axis->hor),
                      RenderKey::Of(axis->ver)};
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
  return !waveform &&
         continues({samples.serial(), range.from, RenderKey::Of(axis.hor), RenderKey::Of(axis.ver)},
                   range);
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
  if (!mapsByAxes())
    foldWith(fold, VirtualPixels{this, &axis});
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

// A ViewData itself does, also one that was copied from a class which has declared another type.
bool ViewData::mapsByAxes() const {
  const std::type_info& own = typeid(*this);
  return own == typeid(ViewData) || own == *standardMapping_;
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
    const unsigned count = std::min(Pixels::kBatch, most - fold.sample);
    pixels.map(fold.samples.block(fold.sample >> SampleBlock::kShift), fold.sample, count);
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
