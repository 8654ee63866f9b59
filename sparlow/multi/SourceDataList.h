#pragma once

namespace sparlow {

class ViewData;

/// A short list of series, in the order in which they were added. It doesn't own them.
/// Threads: one at a time; a copy is a list of its own.
class SourceDataList {
 public:
  static constexpr int capacity = 10;

  /// A walk: the first series, and after each the next; null at the end.
  ViewData* GetFirst(int& pos) const {
    if (count == 0)
      return nullptr;
    pos = 0;
    return items[0];
  }
  ViewData* GetNext(int& pos) const { return GetAt(++pos); }
  /// Null for an index that isn't there.
  ViewData* GetAt(int index) const { return index >= 0 && index < count ? items[index] : nullptr; }
  /// Index of a series, -1 for one that isn't in the list.
  int Find(const ViewData* data) const {
    for (int i = 0; i < count; ++i) {
      if (items[i] == data)
        return i;
    }
    return -1;
  }
  bool Holds(const ViewData* data) const { return Find(data) >= 0; }

  /// Null, and nothing changes, when the list is full.
  ViewData* Add(ViewData* data) {
    if (count >= capacity)
      return nullptr;
    return items[count++] = data;
  }
  /// The later ones move down by one. An index that isn't there is ignored.
  void RemoveAt(int index) {
    if (!GetAt(index))
      return;
    for (--count; index < count; ++index)
      items[index] = items[index + 1];
  }

  ViewData* const* begin() const { return items; }
  ViewData* const* end() const { return items + count; }

  int count = 0;
  ViewData* items[capacity] = {};
};

}  // namespace sparlow
