// The walk of qvslm_walk.h over an input and over a cut of it, with all that it promises.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "qvslm_walk.h"

namespace fuzz {

// A record that a walk delivered.
struct WalkedRecord {
  std::uint16_t code;
  bool whole;
  std::int32_t offset;              // of the step that gave it
  std::int32_t behind;              // where the next step begins
  std::vector<std::uint8_t> bytes;  // of the record's size
};

struct WalkedFile {
  std::int32_t startStatus = 0;
  QvWalkEnd end = QV_WALK_GOES_ON;
  std::uint64_t steps = 0;
  std::int64_t began = 0;  // the clock's seconds; a band record without its owner has those between
  std::int64_t ended = 0;
  std::vector<WalkedRecord> records;
};

enum class Counting { None, CensusFirst };

// Walks the file to its end and holds the walk to its promises: it ends within as many steps as the
// file has bytes, and one more; it never goes back; once a record is not whole, none is; its
// records are those of the calls that it makes.
WalkedFile WalkToEnd(const char* path, std::size_t fileSize, Counting counting);

// Walks the cut file too, and holds its whole records against those of the input that it was cut
// from.
void ExpectPrefix(const WalkedFile& input, std::span<const std::uint8_t> bytes,
                  const WalkedFile& cut, std::size_t cutSize);

// Where an input is cut: any place, but always the same one in the same input.
std::size_t CutOf(std::span<const std::uint8_t> bytes);

}  // namespace fuzz
