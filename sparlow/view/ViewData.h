#pragma once

#include <typeinfo>

#include "sparlow/data/DataLock.h"
#include "sparlow/data/SourceData.h"
#include "sparlow/data/VirtualTable.h"
#include "sparlow/platform/base/Geometry.h"
#include "sparlow/view/ViewColumns.h"

namespace sparlow {

class CDC;

/// A series that can be drawn. Render reduces the samples of the interval to pixel columns, Draw
/// walks the columns alone. A class derived from it may map samples to pixels in its own way.
///
/// Threads: any, unless a group or an operation states otherwise; life and Reset as in SourceData.
/// One render at a time, under threadsMutex when there is more than one thread that renders. A copy
/// waits for a render of its source.
class ViewData : public SourceData, public ViewColumns {
 public:
  ViewData();
  ViewData(const ViewData& other);
  ViewData& operator=(const ViewData& other);

  void Init(const char* seriesName, SourceData* source = nullptr) override;
  void Term() override;
  /// Empties the series and its columns.
  void Reset() override;

  /// @name Rendering
  ///@{

  /// Clears the columns, so that the next render is a full one. Waits for a render.
  void ResetViewData();
  /// Makes the columns of the interval for the axes as they stand. Not full: goes on with the
  /// samples that have come since the last render, unless its columns were made for something else,
  /// which makes it a full one. Returns false when a full render was stopped by terminator or
  /// renderStop: the columns are half written then and the next render is a full one. Without
  /// samples, or with the start of the interval beyond them, there are no columns. Beyond 16384
  /// columns the curve ends. Holds dataMutex for its whole run. A null axis renders nothing.
  /// Threads: a worker or the window's.
  virtual bool Render(GraphAxis* axis, bool full);
  /// A render that isn't full would go on over the columns that there are.
  /// Threads: those that may render.
  bool CanContinueRender(const GraphAxis& axis) const;
  /// Asks a full render, and nobody else at the series, to give up. Whoever sets it clears it.
  OwnRequest renderStop;

  /// Pixel of a sample, counted from the top left of the plot: the way of hor, and of ver
  /// inverted. 0 for a sample that doesn't exist. A class that overrides one of them has a mapping
  /// of its own: a render then asks it for each sample, and for no more than it overrides.
  virtual int xPosGet(unsigned sample, const GraphAxis* axis) const;
  virtual int yPosGet(unsigned sample, const GraphAxis* axis) const;
  /// Pixels of samples in a row, which exist: what a render calls in place of the two above for a
  /// class that has declared it by UsePosGet. The numbers must be theirs.
  /// Threads: those that render.
  virtual void PosGet(unsigned first, unsigned count, const GraphAxis* axis, int* xs,
                      int* ys) const;
  /// What the mapping of a class gives has changed: the next render is a full one. UpdateGraph is
  /// due.
  void MappingChanged() { ++mappingChanges_; }
  /// Samples lie where the axis puts them: xPosGet, yPosGet, both are the ones of this class.
  bool MapsXByAxis() const { return keeps(&ViewData::xPosGet) || isDeclared(); }
  bool MapsYByAxis() const { return keeps(&ViewData::yPosGet) || isDeclared(); }
  bool MapsByAxes() const { return MapsXByAxis() && MapsYByAxis(); }
  /// The samples of the interval in x, as SetIntervalParams gives them, and the range of their y:
  /// exact where SetIntervalParams and yPosGet are those of this class, else as SetIntervalParams
  /// gives it. Of the whole series it is that of all samples since the last Reset.
  IntervalBounds GetBoundsOnShow() const;
  ///@}

  /// @name Cursors
  /// Each stands on a sample, so it stays there when the graph is zoomed or resized.
  /// Threads: placing them, the window's; reading, any.
  ///@{

  /// Places a cursor; a sample beyond the series counts as its last one. Returns true when it has
  /// crossed the other, and the two were exchanged, or it met the other, and the left one now
  /// stands one sample before the right one. Whoever drags then holds the other cursor. Returns
  /// false, and changes nothing, below two samples.
  bool SetLCursor(unsigned sample);
  bool SetRCursor(unsigned sample);
  /// x and y of a cursor's sample; 0 if there is no such sample.
  double xLCursorGet() const;
  double xRCursorGet() const;
  virtual double yLCursorGet() const;
  virtual double yRCursorGet() const;
  /// Pixel of a cursor's sample by xPosGet and yPosGet; 0 if there is no such sample.
  int xLCursorPosGet(const GraphAxis* axis) const;
  int xRCursorPosGet(const GraphAxis* axis) const;
  virtual int yLCursorPosGet(const GraphAxis* axis) const;
  virtual int yRCursorPosGet(const GraphAxis* axis) const;
  /// Samples from cursor to cursor, both included; 0 if one isn't set, below 2 if the right cursor
  /// is not behind the left one.
  virtual int dnCursorGet() const;
  ///@}

  /// Replaces the samples of another series by the x and y of these, all on show, with the cursors
  /// at their ends and the statistics worked out. Nothing else goes over. Null and the series
  /// itself are ignored. Throws what Add throws: the destination then has the samples up to there.
  /// Threads: the one that feeds the destination.
  void CopyTo(ViewData* destination) const;

  /// @name Drawing
  /// Threads: the one that paints.
  ///@{

  /// Draws the curve, with lines of twice the width if bold is true. Any height does. The draw
  /// style counts only while sparse is true; a denser curve is a line with a stroke for each
  /// column.
  virtual void Draw(CDC* dc, int height, bool bold) const;
  /// Draws a short diagonal stroke for each column of a waveform, by the edges that were rendered.
  void DrawWaveform(CDC* dc, COLORREF falling, COLORREF rising) const;
  void SetColor(COLORREF newColor) { color = newColor; }
  COLORREF GetColor() const { return color; }

  /// Style of all sparse curves. line: 0 none, 1 and 2 a line; point: 0 none, 1 a filled square.
  /// Any other pair, and neither line nor point, give line 1 and point 0. Packed: line in bits 8 to
  /// 15, point in bits 0 to 7.
  static void SetDrawStyle(int line, int point);
  static void SetDrawStyle(int packed);
  static int GetDrawStyle() { return DrawStyle; }
  static int GetLineStyle() { return (DrawStyle >> 8) & 0xFF; }
  static int GetPointStyle() { return DrawStyle & 0xFF; }
  ///@}

  CopyableAtomic<COLORREF> color = COLORREF{0};

 protected:
  /// For derived classes that work on the columns: throws Error with code 0xFF03 if there are none.
  void Verify() const;
  /// Fills one entry through xPosGet and yPosGet.
  void SetViewData(unsigned column, unsigned sample, const GraphAxis* axis);
  /// Declares, from its constructor, that a derived class leaves xPosGet and yPosGet as they are
  /// here. It holds for objects of exactly that type. Only for compilers of which VirtualTable
  /// knows nothing: with all others a render sees by itself what a class has overridden.
  void UseStandardMapping(const std::type_info& type) { standardMapping_ = &type; }
  /// Declares, from its constructor, that a derived class with a mapping of its own gives many
  /// pixels in one PosGet faster than one by one. It holds for objects of exactly that type: one
  /// that is derived further may map in another way, and is asked for each sample unless it
  /// declares itself.
  void UsePosGet(const std::type_info& type) { rowMapping_ = &type; }

 private:
  struct Column;
  struct Fold;
  struct Range {
    unsigned from;
    unsigned end;
  };

  ViewData(const ViewData& other, const DataLock& held);
  Range rangeOf(const SampleReader& samples) const;
  bool continues(const RenderKey& key, Range range) const;
  void setMadeFor(const RenderKey& key);
  void renderWaveform(const SampleReader& samples, const GraphAxis& axis);
  bool renderPlain(Fold& fold, const GraphAxis& axis, const RenderKey& key);
  // The object's class leaves a virtual function as it is here.
  template <class Function>
  bool keeps(Function function) const {
    return VirtualTable::Same(VirtualTable(*this), ownTable, function);
  }
  void noteOwnTable();
  bool isDeclared() const;
  void foldByOwnMapping(Fold& fold, const GraphAxis& axis);
  RenderKey keyOf(const SampleReader& samples, unsigned from, const GraphAxis& axis) const;
  void foldByAxes(Fold& fold, const GraphAxis& axis);
  static bool isDense(const Fold& fold, const GraphAxis& axis);
  // Returns false when the samples are to be folded one by one.
  bool renderDense(Fold& fold, const GraphAxis& axis);
  template <class Ver>
  void foldDense(Fold& fold, const LinearMapping& hor, const Ver& ver);
  template <class Ver>
  bool addRange(Column& column, const SampleReader& samples, const Ver& ver, unsigned from,
                unsigned end) const;
  bool stopRequested() const;
  template <class Pixels>
  void foldWith(Fold& fold, Pixels pixels);
  void foldBatch(Fold& fold, Column& column, const int* xs, const int* ys, unsigned count);
  Column columnAt(unsigned i) const;
  void putColumn(unsigned i, const Column& column);

  static inline CopyableAtomic<int> DrawStyle{0x100};
  static inline VirtualTable ownTable;  // of a ViewData itself
  const std::type_info* standardMapping_ = &typeid(ViewData);
  const std::type_info* rowMapping_ = &typeid(ViewData);
  CopyableAtomic<unsigned> mappingChanges_ = 0u;
};

}  // namespace sparlow
