#include "row_memory.h"

#include <cstdlib>
#include <cstring>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace python {

RowMemory::~RowMemory() {
#if defined(__linux__)
  if (mapped_) {
    munmap(bytes_, room_);
    return;
  }
#endif
  std::free(bytes_);
}

void RowMemory::Grow(std::size_t room) {
  if (GrowByPages(room)) return;
  void* const bytes = std::realloc(bytes_, room);
  if (bytes == nullptr) throw std::bad_alloc();
  bytes_ = static_cast<std::uint8_t*>(bytes);
  room_ = room;
}

#if defined(__linux__)

namespace {

constexpr std::size_t kLargePage = std::size_t{1} << 21;

constexpr std::size_t Rounded(std::size_t size, std::size_t unit) {
  return (size + unit - 1) / unit * unit;
}

// Pages from the start of a large one on; null without memory.
std::uint8_t* MapLargePages(std::size_t size) {
  std::size_t const more = size + kLargePage;
  void* const all = mmap(nullptr, more, PROT_READ | PROT_WRITE,
                         MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (all == MAP_FAILED) return nullptr;
  auto* const bytes = static_cast<std::uint8_t*>(all);
  std::size_t const ahead = Rounded(reinterpret_cast<std::uintptr_t>(all), kLargePage) -
                            reinterpret_cast<std::uintptr_t>(all);
  if (ahead > 0) munmap(bytes, ahead);
  if (ahead < kLargePage) munmap(bytes + ahead + size, kLargePage - ahead);
  return bytes + ahead;
}

}  // namespace

bool RowMemory::GrowByPages(std::size_t room) {
  if (!mapped_ && room < kLargePage) return false;
  std::size_t const size = Rounded(room, kLargePage);
  std::uint8_t* const bytes = MapLargePages(size);
  if (bytes == nullptr) throw std::bad_alloc();
  if (!mapped_) {
    if (room_ > 0) std::memcpy(bytes, bytes_, room_);
    std::free(bytes_);
  } else if (mremap(bytes_, room_, room_, MREMAP_MAYMOVE | MREMAP_FIXED, bytes) == MAP_FAILED) {
    munmap(bytes, size);
    throw std::bad_alloc();
  }
  // Where there are no large pages, small ones serve.
  static_cast<void>(madvise(bytes, size, MADV_HUGEPAGE));
  bytes_ = bytes;
  room_ = size;
  mapped_ = true;
  return true;
}

void RowMemory::Cut(std::size_t used) {
  constexpr std::size_t smallPage = 4096;
  std::size_t const kept = Rounded(used, smallPage);
  if (mapped_) {
    if (kept > 0 && kept < room_ && munmap(bytes_ + kept, room_ - kept) == 0) room_ = kept;
  } else if (used > 0 && used < room_) {
    void* const bytes = std::realloc(bytes_, used);
    if (bytes != nullptr) bytes_ = static_cast<std::uint8_t*>(bytes);
  }
}

#else

bool RowMemory::GrowByPages(std::size_t) {
  return false;
}

void RowMemory::Cut(std::size_t used) {
  if (used == 0 || used >= room_) return;
  void* const bytes = std::realloc(bytes_, used);
  if (bytes != nullptr) bytes_ = static_cast<std::uint8_t*>(bytes);
}

#endif

}  // namespace python
