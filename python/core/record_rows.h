// Records of one kind, one behind the other, in memory that grows.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

#include "row_memory.h"

namespace python {

class RecordRows {
 public:
  // Throws std::bad_alloc. The size of a record is the same in each call.
  void Append(const void* record, std::size_t size) {
    if (memory_.Room() - used_ < size) memory_.Grow(std::max(memory_.Room() * 2, size * kFirst));
    std::memcpy(memory_.Bytes() + used_, record, size);
    used_ += size;
  }

  std::size_t Bytes() const { return used_; }

  // Hands the memory over, cut to what is used of it.
  RowMemory Release() {
    memory_.Cut(used_);
    used_ = 0;
    return std::move(memory_);
  }

 private:
  static constexpr std::size_t kFirst = 16;  // records

  RowMemory memory_;
  std::size_t used_ = 0;
};

}  // namespace python
