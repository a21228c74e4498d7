// Records of one kind, one behind the other, in memory that grows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace python {

struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};

class RecordRows {
 public:
  using Memory = std::unique_ptr<std::uint8_t, FreeMemory>;

  // Throws std::bad_alloc. The size of a record is the same in each call.
  void Append(const void* record, std::size_t size) {
    if (room_ - used_ < size) Grow(size);
    std::memcpy(memory_.get() + used_, record, size);
    used_ += size;
  }

  std::size_t Bytes() const { return used_; }

  // Hands the memory over, cut to what is used of it, and begins anew.
  Memory Release();

 private:
  void Grow(std::size_t size);

  Memory memory_;
  std::size_t used_ = 0;
  std::size_t room_ = 0;
};

}  // namespace python
