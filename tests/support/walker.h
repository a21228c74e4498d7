// A walk of qvslm_walk.h with buffers of its own, and what it tells of each record.
//
//   Walker walker;
//   EXPECT_EQ(walker.Tell(bytes), (Tale{{QV_SETTINGS, 0, 1}, {QV_END, 8, 1}}));
//   EXPECT_EQ(walker.Walk().End, QV_WALK_AT_END);
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "qvslm_walk.h"
#include "support/guarded_buffer.h"
#include "support/item_bodies.h"
#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace test {

// What a walk tells of a record.
struct Told {
  int code;
  int offset;
  int whole;
  unsigned missing = 0;
  int isShort = 0;
  bool operator==(const Told&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Told& told) {
  return out << "{code " << told.code << ", offset " << told.offset << ", whole " << told.whole
             << ", missing " << told.missing << ", short " << told.isShort << "}";
}

using Tale = std::vector<Told>;

// Buffers for walks, full of 0xEE at first.
class Walker {
 public:
  ~Walker() {
    // The library must not remember a context that is gone.
    Session const last;
  }

  int Open(const std::string& path, QvRecordCensus* census = nullptr) {
    return QvWalkOpen(&walk_, path.c_str(), context_.Data(), record_.Data(), census);
  }
  int Next() { return QvWalkNext(&walk_); }
  void Close() const { QvWalkClose(&walk_); }
  const QvWalk& Walk() const { return walk_; }
  const GuardedBuffer& Record() const { return record_; }
  const GuardedBuffer& Context() const { return context_; }
  std::string Why() const { return QvWalkWhy(&walk_); }

  // To the end.
  Tale Tell() {
    Tale tale;
    while (Next() != 0) {
      tale.push_back({walk_.Code, walk_.Offset, walk_.Whole, walk_.Missing, walk_.Short});
      records.emplace_back(record_.Data(), record_.Data() + record_.Size());
      EXPECT_EQ(walk_.Records, tale.size());
    }
    EXPECT_EQ(walk_.Code, QV_NO_RECORD);
    Close();
    return tale;
  }
  Tale Tell(const std::string& bytes) {
    TempFile const file(bytes);
    Open(file.Path());
    return Tell();
  }

  std::vector<std::vector<std::uint8_t>> records;  // those told of

 private:
  QvWalk walk_{};
  GuardedBuffer context_{QV_GetBufferSize(), 0xEE};
  GuardedBuffer record_{QV_OUTPUT_RECORD_SIZE, 0xEE};
};

// Long enough for the look at the tail.
inline std::string Long(const samples::DataFile& file) {
  std::string bytes = file.Bytes();
  if (bytes.size() < 2600) bytes.resize(2600, '\0');
  return bytes;
}

// Settings at 98, an item without a record at 106, a level mark at 112, the end at 125.
inline samples::DataFile Plain() {
  return General()
      .Q(157, "3")
      .Item(kSkipped, samples::Body().Fill(3))
      .Item(5, MarkAt({2024, 6, 21}))
      .EndOfData();
}

// Settings at 0, a level mark at 8, another at 21 (its body at 24) to 34.
inline std::string TwoMarks(std::size_t size) {
  return samples::DataFile()
      .Q(157, "3")
      .Item(5, MarkAt({2024, 6, 21}))
      .Item(5, MarkAt({2024, 6, 22}))
      .Bytes()
      .substr(0, size);
}

}  // namespace test
