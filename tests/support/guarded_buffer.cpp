#include "support/guarded_buffer.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <new>

namespace test {

GuardedBuffer::GuardedBuffer(std::size_t size, int fill) : size_(size) {
  auto const page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  std::size_t const readable = (size + page - 1) / page * page;
  mapped_ = readable + page;
  void* const mapping =
      mmap(nullptr, mapped_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapping == MAP_FAILED) throw std::bad_alloc();
  mapping_ = static_cast<std::uint8_t*>(mapping);
  mprotect(mapping_ + readable, page, PROT_NONE);
  data_ = mapping_ + readable - size;
  Fill(fill);
}

GuardedBuffer::~GuardedBuffer() {
  munmap(mapping_, mapped_);
}

void GuardedBuffer::Fill(int value) {
  std::memset(data_, value, size_);
}

}  // namespace test
