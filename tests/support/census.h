// Compares the census of a file with the counts that it should have.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

#include "support/temp_file.h"
#include "support/translation.h"

namespace test {

using CensusCounts = std::array<std::uint32_t, 41>;
static_assert(sizeof(QvRecordCensus) == sizeof(CensusCounts));

struct Count {
  int offset;  // in the census, in bytes
  std::uint32_t count;
};

inline CensusCounts AsArray(const QvRecordCensus& census) {
  CensusCounts counts;
  std::memcpy(counts.data(), &census, sizeof counts);
  return counts;
}

// The given counts; all others are 0.
inline CensusCounts CountsOf(const std::vector<Count>& expected) {
  CensusCounts counts{};
  for (const Count& count : expected) {
    counts.at(static_cast<std::size_t>(count.offset / 4)) = count.count;
  }
  return counts;
}

// Counts the file as it stands, with nothing behind it.
inline void ExpectCensus(const samples::DataFile& file, const std::vector<Count>& expected,
                         int status = QV_OK) {
  TempFile const stored(file);
  Session session;
  EXPECT_EQ(session.Census(stored.Path()), status);
  EXPECT_EQ(AsArray(session.Counts()), CountsOf(expected));
}

}  // namespace test
