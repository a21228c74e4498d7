// Setup blocks, the bodies of 'M' items, for the tests of their records.
#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string_view>
#include <vector>

#include "support/item_bodies.h"
#include "support/record_image.h"

namespace test {

constexpr int kSetupItem = 77;  // 'M'
constexpr std::size_t kSetupSize = 219;
constexpr std::size_t kSetupSize431 = 186;
constexpr std::size_t kSetupModePosition = 39;

// A block in which the byte at each position is the position itself, but for the mode and the first
// byte.
inline samples::Body NumberedSetup(int mode, std::size_t size = kSetupSize) {
  return CountingBody(size).Set(kSetupModePosition, {mode});
}

// A block of zeros but for the mode.
inline samples::Body EmptySetup(int mode, std::size_t size = kSetupSize) {
  return samples::Body().Fill(size).Set(kSetupModePosition, {mode});
}

// The 304 bytes that every form begins with, for a numbered block at site 7.
inline RecordImage NumberedSetupImage(int code, int model, int mode, std::size_t size = 304) {
  RecordImage image(size);
  image.U16(0, code).U16(2, 7).U16(10, model).U16(12, CountedByte(0));
  for (std::size_t i = 0; i < 8; ++i) image.U8(14 + i, static_cast<int>(1 + i));
  for (std::size_t i = 0; i < 30; ++i) image.U8(24 + i, static_cast<int>(9 + i));
  return image.U16(56, mode).U16(58, 40).U16(60, 41);
}

// A u16 field of the record and the block position that it shows.
struct ByteRow {
  int Offset;
  int Position;
};
inline void PutBytes(RecordImage& image, std::span<const ByteRow> rows) {
  for (const ByteRow& row : rows) image.U16(static_cast<std::size_t>(row.Offset), row.Position);
}

struct TextRow {
  int Offset;
  std::string_view Text;
};
inline void PutTexts(RecordImage& image, std::span<const TextRow> rows) {
  for (const TextRow& row : rows) image.Chars(static_cast<std::size_t>(row.Offset), row.Text);
}

// A file of this head in which a settings block names site 7, and the setup follows it.
inline void ExpectSetup(samples::DataFile head, const samples::Body& block, int code,
                        const RecordImage& image) {
  Translation const run(head.Q(157, "7").Item(kSetupItem, block).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, code, 15}));
  EXPECT_EQ(run.Records(code).at(0).status, 0);
  EXPECT_EQ(Difference(image, run.Records(code).at(0)), "");
}

}  // namespace test
