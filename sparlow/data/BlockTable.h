#pragma once

#include <cstddef>
#include <memory>

#include "sparlow/data/BlockMemory.h"

namespace sparlow {

struct BlockEntry;
struct SampleBlock;

/// The blocks of a store and the table that lists them.
/// Threads: one grows it. What Entries() once gave may be read by any as long as this lives.
class BlockTable {
 public:
  static constexpr unsigned kFirstSize = 1024;

  /// Without a block. Throws Error with code 0xFF04 when there is no memory for a table.
  BlockTable();
  ~BlockTable();
  BlockTable(const BlockTable&) = delete;
  BlockTable& operator=(const BlockTable&) = delete;

  BlockEntry* Entries() const { return newest_->entries.get(); }
  unsigned Count() const { return nBlocks_; }
  /// Blocks that the table lists before it is to move.
  unsigned Room() const { return newest_->size; }
  /// Makes one more block, and a table of twice the size if there is no room left. Throws as the
  /// constructor does, std::bad_alloc when there is no memory for the block, and then has changed
  /// nothing.
  SampleBlock* Grow(bool withSlopes);
  /// Bytes of tables and blocks, but for slopes.
  std::size_t Bytes() const;

 private:
  // A table that has grown out of use may still be read, so the newer one keeps it.
  struct Table {
    explicit Table(unsigned most);
    ~Table();
    unsigned size;
    std::unique_ptr<BlockEntry[]> entries;
    std::unique_ptr<Table> older;
  };
  static std::unique_ptr<Table> makeTable(unsigned size);

  unsigned nBlocks_ = 0;
  BlockMemory memory_;
  std::unique_ptr<Table> newest_;
};

}  // namespace sparlow
