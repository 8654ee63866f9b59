#include "sparlow/data/BlockTable.h"

#include <algorithm>
#include <new>
#include <utility>

#include "sparlow/data/Error.h"
#include "sparlow/data/SampleBlock.h"

namespace sparlow {

BlockTable::Table::Table(unsigned most) : size(most), entries(new BlockEntry[most]) {}

BlockTable::Table::~Table() = default;

BlockTable::BlockTable() : newest_(makeTable(kFirstSize)) {}

BlockTable::~BlockTable() {
  for (unsigned b = 0; b < nBlocks_; ++b)
    std::destroy_at(newest_->entries[b].block);
}

std::unique_ptr<BlockTable::Table> BlockTable::makeTable(unsigned size) {
  try {
    return std::make_unique<Table>(size);
  } catch (const std::bad_alloc&) {
    throw Error(Error::kNoTableMemory);
  }
}

SampleBlock* BlockTable::Grow(bool withSlopes) {
  std::unique_ptr<Table> table = nBlocks_ == Room() ? makeTable(2 * Room()) : nullptr;
  auto* const block = new (memory_.Take()) SampleBlock(withSlopes);
  if (table) {
    std::copy_n(newest_->entries.get(), nBlocks_, table->entries.get());
    table->older = std::move(newest_);
    newest_ = std::move(table);
  }
  newest_->entries[nBlocks_++].block = block;
  return block;
}

std::size_t BlockTable::Bytes() const {
  std::size_t bytes = sizeof(*this) + memory_.Bytes();
  for (const Table* table = newest_.get(); table; table = table->older.get())
    bytes += sizeof(*table) + table->size * sizeof(BlockEntry);
  return bytes;
}

}  // namespace sparlow
