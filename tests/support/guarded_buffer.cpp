#include "support/guarded_buffer.h"

#include <cstring>

namespace test {

GuardedBuffer::GuardedBuffer(std::size_t size, int fill)
    : pages_(TakeGuardedPages(size)), data_(pages_.start + pages_.size - size), size_(size) {
  Fill(fill);
}

GuardedBuffer::~GuardedBuffer() {
  GiveBack(pages_);
}

void GuardedBuffer::Fill(int value) {
  std::memset(data_, value, size_);
}

}  // namespace test
