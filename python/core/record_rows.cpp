#include "record_rows.h"

#include <algorithm>
#include <new>

namespace python {

// Blocks of some size are moved by exchanging pages, not by copying.
void RecordRows::Grow(std::size_t size) {
  constexpr std::size_t firstRecords = 16;
  std::size_t const room = std::max(room_ * 2, size * firstRecords);
  void* const memory = std::realloc(memory_.get(), room);
  if (memory == nullptr) throw std::bad_alloc();
  static_cast<void>(memory_.release());
  memory_.reset(static_cast<std::uint8_t*>(memory));
  room_ = room;
}

RecordRows::Memory RecordRows::Release() {
  if (used_ > 0 && used_ < room_) {
    void* const memory = std::realloc(memory_.get(), used_);
    if (memory != nullptr) {
      static_cast<void>(memory_.release());
      memory_.reset(static_cast<std::uint8_t*>(memory));
    }
  }
  used_ = room_ = 0;
  return std::move(memory_);
}

}  // namespace python
