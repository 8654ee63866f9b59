#include "sparlow/view/ViewData.h"

namespace sparlow {

ViewData::ViewData() {
  noteOwnTable();
}

ViewData::ViewData(const ViewData& other) : ViewData(other, DataLock(other.dataMutex)) {}

// The lock spans the copying of both bases, so that it is one state of the source.
ViewData::ViewData(const ViewData& other, const DataLock& /*held*/)
    : SourceData(other),
      ViewColumns(other),
      color(other.color),
      standardMapping_(other.standardMapping_),
      rowMapping_(other.rowMapping_) {
  noteOwnTable();
}

ViewData& ViewData::operator=(const ViewData& other) {
  if (this == &other)
    return *this;
  const DataLock data(other.dataMutex);
  SourceData::operator=(other);
  ViewColumns::operator=(other);
  color = other.color;
  return *this;
}

void ViewData::Init(const char* seriesName, SourceData* source) {
  SourceData::Init(seriesName, source);
  ResetViewData();
  sparse = false;
  nextColumn = 0;
  nextSample = 0;
}

void ViewData::Term() {
  SourceData::Term();
  ResetViewData();
}

void ViewData::Reset() {
  // In one hold: no render comes between the samples' going and the columns'.
  const DataLock data(dataMutex);
  SourceData::Reset();
  ResetViewData();
}

void ViewData::ResetViewData() {
  const DataLock data(dataMutex);
  const std::lock_guard<OwnMutex> lock(columnsLock_);
  clear();
}

void ViewData::SetDrawStyle(int line, int point) {
  const bool known = line >= 0 && line <= 2 && point >= 0 && point <= 1;
  DrawStyle = known && (line != 0 || point != 0) ? (line << 8) + point : 0x100;
}

void ViewData::SetDrawStyle(int packed) {
  SetDrawStyle((packed >> 8) & 0xFF, packed & 0xFF);
}

}  // namespace sparlow
