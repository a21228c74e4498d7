// A whole translation in a fresh context, with all that a host may expect of each step.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "qvslmtranslate.h"

namespace fuzz {

// How a translation ended, as far as its first end of data.
enum class Outcome {
  NotStarted,      // the start failed
  ReachedEnd,      // the first end record came
  Failed,          // a step met the end of the file or an item that cannot be read
  StoodStill,      // an item yields neither a record nor a way behind it
  WasTooManySteps  // not followed to its end
};

// What was delivered before the first end of data.
struct Delivered {
  Outcome outcome = Outcome::NotStarted;
  std::array<std::uint32_t, 73> records{};  // by type code
  std::uint32_t streamEntries = 0;
  std::uint32_t blockImages = 0;       // blocks that are there, in all records of code 9
  std::uint32_t emptyFirstBlocks = 0;  // list blocks of code 21 that begin with a 0 byte
};

struct Translation {
  std::int32_t startStatus = 0;
  Delivered delivered;
  // Status and record of every step, but for times that may be those of the clock.
  std::vector<std::uint8_t> log;
};

enum class ContextUse {
  Steady,  // one buffer throughout
  Moved    // the bytes are copied to another buffer before each step, and the old ones overwritten
};

// intervalSize is that of the struct that code 1 stands for in this file.
Translation Translate(const char* path, std::size_t fileSize, ContextUse use,
                      std::size_t intervalSize = sizeof(QvBandInterval));

}  // namespace fuzz
