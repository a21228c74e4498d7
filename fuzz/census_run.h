// A census in a fresh context, and what it promises by itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "qvslmtranslate.h"

namespace fuzz {

struct Census {
  std::int32_t status;
  QvRecordCensus counts;

  bool operator==(const Census& other) const {
    return status == other.status && std::memcmp(&counts, &other.counts, sizeof counts) == 0;
  }
};

Census RunCensus(const char* path, std::size_t fileSize);

}  // namespace fuzz
