// Memory for rows that come one by one, and may become very many.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

namespace python {

// Grows without a copy where the system can move pages, and asks for large ones there: a page costs as
// much as the decoding of some records.
class RowMemory {
 public:
  RowMemory() = default;
  RowMemory(RowMemory&& other) noexcept
      : bytes_(std::exchange(other.bytes_, nullptr)),
        room_(std::exchange(other.room_, 0)),
        mapped_(std::exchange(other.mapped_, false)) {}
  RowMemory& operator=(RowMemory&& other) noexcept {
    std::swap(bytes_, other.bytes_);
    std::swap(room_, other.room_);
    std::swap(mapped_, other.mapped_);
    return *this;
  }
  ~RowMemory();

  std::uint8_t* Bytes() const { return bytes_; }
  std::size_t Room() const { return room_; }

  // Makes room for at least so many bytes. Throws std::bad_alloc.
  void Grow(std::size_t room);

  // Gives back what lies behind so many bytes.
  void Cut(std::size_t used);

 private:
  bool GrowByPages(std::size_t room);

  std::uint8_t* bytes_ = nullptr;
  std::size_t room_ = 0;
  bool mapped_ = false;
};

}  // namespace python
