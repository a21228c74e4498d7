// A buffer whose end is the end of readable memory: one byte more faults.
#pragma once

#include <cstddef>
#include <cstdint>

#include "support/system_calls.h"

namespace test {

class GuardedBuffer {
 public:
  // Every byte holds fill. The size is rounded to nothing: the buffer ends exactly there.
  explicit GuardedBuffer(std::size_t size, int fill = 0);
  ~GuardedBuffer();
  GuardedBuffer(const GuardedBuffer&) = delete;
  GuardedBuffer& operator=(const GuardedBuffer&) = delete;

  std::uint8_t* Data() const { return data_; }
  std::size_t Size() const { return size_; }
  void Fill(int value);

 private:
  GuardedPages pages_;
  std::uint8_t* data_;
  std::size_t size_;
};

}  // namespace test
