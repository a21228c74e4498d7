// The small field forms byte by byte. Internal: some forms stand only in large setup items, and
// what a decoder does behind a record's end shows there alone.
#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>

#include "fields/levels.h"
#include "fields/stream_levels.h"

namespace {

using namespace qvslm;

constexpr f32 kMarker = 999.0F;

class Levels : public testing::Test {
 protected:
  Levels() { CurrentContext = &context_; }
  ~Levels() override { CurrentContext = nullptr; }

  // Puts the bytes in hand; those behind them must not be read.
  void Record(std::initializer_list<int> bytes) {
    std::memset(context_.RecordBuffer, 0xA5, sizeof context_.RecordBuffer);
    u32 count = 0;
    for (int const byte : bytes) context_.RecordBuffer[count++] = static_cast<u8>(byte);
    context_.RecordLength = count;
  }

  template <class Result>
  Result Decode(void (*decoder)(BodyFields&, Result&), std::initializer_list<int> bytes) {
    Record(bytes);
    BodyFields fields;
    Result result{};
    decoder(fields, result);
    EXPECT_EQ(fields.Place(), static_cast<i32>(bytes.size())) << "all bytes are taken";
    EXPECT_EQ(fields.Status(), 0);
    return result;
  }

  alignas(8) TranslateContext context_{};
};

TEST_F(Levels, MarkerIsThatOfTheHost) {
  u32 bits = 0;
  std::memcpy(&bits, &kNoLevel, sizeof bits);
  EXPECT_EQ(bits, 0x4479C000U);
}

TEST_F(Levels, WholeNumbers) {
  EXPECT_EQ(Decode(DecodeU8, {0x00}), 0U);
  EXPECT_EQ(Decode(DecodeU8, {0xFE}), 254U);
  EXPECT_EQ(Decode(DecodeU16, {0x12, 0x34}), 0x1234U);
  EXPECT_EQ(Decode(DecodeU16, {0xFF, 0xFE}), 65534U);
  EXPECT_EQ(Decode(DecodeU16Short, {0x12, 0x34}), 0x1234);
  EXPECT_EQ(Decode(DecodeU16Short, {0xFF, 0xFE}), 65534);
  Record({0x12, 0x34, 0x56, 0xFF, 0xFF, 0xFE});
  BodyFields fields;
  EXPECT_EQ(DecodeU24(fields), 0x123456);
  EXPECT_EQ(DecodeU24(fields), 16777214);
}

TEST_F(Levels, EventByte) {
  for (int byte = 0; byte < 256; ++byte) {
    Record({byte});
    u16 event = 0xFFFF;
    u16 detail = 0xFFFF;
    BodyFields fields;
    DecodeEventByte(fields, event, detail);
    EXPECT_EQ(event, byte & 0x70) << byte;
    EXPECT_EQ(detail, byte & 0x0F) << byte;
  }
}

TEST_F(Levels, StatusByte) {
  for (int byte = 0; byte < 256; ++byte) {
    u16 flag = 0xFFFF;
    u16 code = 0xFFFF;
    Record({byte});
    BodyFields fields;
    DecodeStatusByte(fields, flag, code);
    EXPECT_EQ(flag, byte & 0x20) << byte;
    EXPECT_EQ(code, byte >= 128 ? 128 : byte & 0x07) << byte;
  }
}

TEST_F(Levels, Fixed16) {
  EXPECT_EQ(Decode(DecodeFixed16, {0, 0}), 0.0F);
  EXPECT_EQ(Decode(DecodeFixed16, {75, 128}), 75.5F);
  EXPECT_EQ(Decode(DecodeFixed16, {0, 1}), 0.00390625F);
  EXPECT_EQ(Decode(DecodeFixed16, {255, 255}), 255.99609375F);
  context_.LevelOffset = 10;
  EXPECT_EQ(Decode(DecodeFixed16, {75, 0}), 75.0F);
}

TEST_F(Levels, SignedFixed16) {
  EXPECT_EQ(Decode(DecodeSignedFixed16, {0xFF, 0x80}), -0.5F);
  EXPECT_EQ(Decode(DecodeSignedFixed16, {0xC0, 0x00}), -64.0F);
  EXPECT_EQ(Decode(DecodeSignedFixed16, {0xBF, 0x00}), 191.0F);
  EXPECT_EQ(Decode(DecodeSignedFixed16, {0xBF, 0xFF}), 191.99609375F);
  EXPECT_EQ(Decode(DecodeSignedFixed16, {0xC0, 0xFF}), -63.00390625F);
  EXPECT_EQ(Decode(DecodeSignedFixed16, {0xFF, 0x00}), -1.0F);
  EXPECT_EQ(Decode(DecodeSignedFixed16, {0x00, 0x80}), 0.5F);
  EXPECT_EQ(Decode(DecodeSignedFixed16, {0x80, 0x00}), 128.0F);
}

TEST_F(Levels, Fixed24) {
  EXPECT_EQ(Decode(DecodeFixed24, {0, 0, 0}), 0.0F);
  EXPECT_EQ(Decode(DecodeFixed24, {5, 0x80, 0x00}), 5.5F);
  EXPECT_EQ(Decode(DecodeFixed24, {255, 0x40, 0x00}), 255.25F);
  EXPECT_EQ(Decode(DecodeFixed24, {0, 0, 1}), 0.0000152587890625F);
  EXPECT_EQ(Decode(DecodeFixed24, {200, 0xFF, 0xFF}), 200.9999847412109375F);
}

TEST_F(Levels, Level) {
  EXPECT_EQ(Decode(DecodeLevel, {0x4B, 0x80}), 75.5F);
  EXPECT_EQ(Decode(DecodeLevel, {0x4B, 0x00}), kMarker);
  EXPECT_EQ(Decode(DecodeLevel, {0x00, 0x00}), kMarker);
  EXPECT_EQ(Decode(DecodeLevel, {0xFF, 0x00}), kMarker);
  EXPECT_EQ(Decode(DecodeLevel, {0x00, 0x01}), 0.00390625F);
  context_.LevelOffset = 1.5F;
  EXPECT_EQ(Decode(DecodeLevel, {0x4B, 0x80}), 77.0F);
  EXPECT_EQ(Decode(DecodeLevel, {0x4B, 0x00}), kMarker);
  context_.LevelOffset = -80.25F;
  EXPECT_EQ(Decode(DecodeLevel, {0x4B, 0x80}), -4.75F);
}

TEST_F(Levels, LevelZeroMarked) {
  EXPECT_EQ(Decode(DecodeLevelZeroMarked, {0x4B, 0x80}), 75.5F);
  EXPECT_EQ(Decode(DecodeLevelZeroMarked, {0x4B, 0x00}), 75.0F);
  EXPECT_EQ(Decode(DecodeLevelZeroMarked, {0x00, 0x80}), 0.5F);
  EXPECT_EQ(Decode(DecodeLevelZeroMarked, {0x00, 0x00}), kMarker);
  context_.LevelOffset = 1.5F;
  EXPECT_EQ(Decode(DecodeLevelZeroMarked, {0x4B, 0x00}), 76.5F);
  EXPECT_EQ(Decode(DecodeLevelZeroMarked, {0x00, 0x00}), kMarker);
}

// Value 2 of the second byte clear: negative. Value 1 clear: 0. Both bits also count as fraction.
TEST_F(Levels, FlaggedLevel) {
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {60, 3}), 60.01171875F);
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {60, 1}), -60.00390625F);
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {60, 2}), 0.0F);
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {60, 0}), 0.0F);
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {60, 0x83}), 60.51171875F);
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {60, 0x81}), -60.50390625F);
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {60, 0xFC}), 0.0F);
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {0, 0}), 0.0F);
  context_.LevelOffset = 10;
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {60, 3}), 70.01171875F);
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {60, 1}), -70.00390625F);  // the offset comes first
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {0, 3}), 10.01171875F);
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {60, 2}), 0.0F);
  EXPECT_EQ(Decode(DecodeFlaggedLevel, {0, 0}), 0.0F);
}

TEST_F(Levels, ScaledByte) {
  auto const scaled = [this](f32 low, f32 high, int byte) {
    AuxiliaryChannel channel{};
    channel.Low = low;
    channel.High = high;
    Record({byte});
    BodyFields fields;
    f32 result = -1;
    DecodeScaledByte(fields, channel, result);
    return result;
  };
  EXPECT_EQ(scaled(0, 256, 200), 200.0F);
  EXPECT_EQ(scaled(-10, 54, 0), -10.0F);
  EXPECT_EQ(scaled(-10, 54, 128), 22.0F);
  EXPECT_EQ(scaled(-10, 54, 255), 53.75F);
  EXPECT_EQ(scaled(54, -10, 128), 22.0F);
  EXPECT_EQ(scaled(0, 0, 77), 0.0F);
}

TEST_F(Levels, Span) {
  for (int const model : {431, 480, 486, 500}) {
    context_.Model = static_cast<i16>(model);
    EXPECT_EQ(Decode(DecodeSpan, {0xFF, 0xFF}), 12477.81F) << model;
    EXPECT_EQ(Decode(DecodeSpan, {0x80, 0x00}), 6239.0F) << model;
    EXPECT_EQ(Decode(DecodeSpan, {0x00, 0x01}), 0.19039917F) << model;
    EXPECT_EQ(Decode(DecodeSpan, {0x01, 0x00}), 48.7421875F) << model;
    EXPECT_EQ(Decode(DecodeSpan, {0x00, 0x00}), 0.0F) << model;
  }
  context_.Model = kModel442;
  EXPECT_EQ(Decode(DecodeSpan, {0xFF, 0xFF}), 65535.0F);
  EXPECT_EQ(Decode(DecodeSpan, {0x01, 0x02}), 258.0F);
}

TEST_F(Levels, Durations) {
  struct {
    i32 kind;
    std::initializer_list<int> bytes;
    f32 seconds;
  } const rows[] = {
      {3, {0, 0, 0}, 0.0F},
      {3, {59, 0x80, 0x00}, 59.5F},
      {3, {255, 0x00, 0x80}, 255.001953125F},
      {5, {0, 0, 0, 0, 0}, 0.0F},
      {5, {0, 1, 2, 3, 128}, 3723.5F},       // 1 h 2 min 3.5 s
      {5, {1, 0, 0, 0, 0}, 921600.0F},       // 256 h
      {5, {0, 0, 255, 255, 64}, 15555.25F},  // minutes and seconds above 59 count as they are
      {6, {0, 1, 2, 3, 0x80, 0x00}, 3723.5F},
      {6, {0, 0, 0, 0, 0x01, 0x00}, 0.00390625F},
      {6, {2, 1, 0, 0, 0, 0}, 1846800.0F},  // 513 h
  };
  for (const auto& row : rows) {
    Record(row.bytes);
    BodyFields fields;
    f32 result = -1;
    DecodeDuration(fields, result, row.kind);
    EXPECT_EQ(result, row.seconds) << row.kind;
    EXPECT_EQ(fields.Place(), row.kind);
  }
  EXPECT_EQ(Decode(DecodeDuration5, {0, 1, 2, 3, 128}), 3723.5F);
}

TEST_F(Levels, DurationsOfOtherKinds) {
  for (i32 const kind : {-1, 0, 1, 2, 4, 7, 100}) {
    Record({1, 2, 3, 4, 5, 6, 7});
    BodyFields fields;
    f32 result = -1;
    DecodeDuration(fields, result, kind);
    EXPECT_EQ(result, 0.0F) << kind;
    EXPECT_EQ(fields.Place(), 0) << kind;
  }
}

// Behind the end the bytes are 0; the arithmetic goes on, and the reader has the status.
TEST_F(Levels, BehindTheEnd) {
  context_.LevelOffset = 5;
  auto const behind = [this](void (*decoder)(BodyFields&, f32&), std::initializer_list<int> bytes) {
    Record(bytes);
    BodyFields fields;
    f32 result = -1;
    decoder(fields, result);
    EXPECT_EQ(fields.Status(), QV_RECORD_TOO_SHORT);
    return result;
  };
  EXPECT_EQ(behind(DecodeLevel, {}), kMarker);
  EXPECT_EQ(behind(DecodeLevel, {75}), kMarker);
  EXPECT_EQ(behind(DecodeLevelZeroMarked, {}), kMarker);
  EXPECT_EQ(behind(DecodeLevelZeroMarked, {75}), 80.0F);
  EXPECT_EQ(behind(DecodeFixed16, {}), 0.0F);
  EXPECT_EQ(behind(DecodeFixed16, {75}), 75.0F);
  EXPECT_EQ(behind(DecodeSignedFixed16, {0xFF}), -1.0F);
  EXPECT_EQ(behind(DecodeFixed24, {5, 0x80}), 5.5F);
  EXPECT_EQ(behind(DecodeFlaggedLevel, {75}), 0.0F);
  EXPECT_EQ(behind(DecodeSpan, {}), 0.0F);
  EXPECT_EQ(behind(DecodeDuration5, {0, 1, 2}), 3720.0F);
}

// Sums in single precision are those of double precision, rounded.
TEST_F(Levels, SumsAreThoseOfDoublePrecision) {
  Record({0, 0});
  for (f32 const offset : {0.1F, 10.3F, -37.7F, 119.99F, 1e-7F, 3e7F, -1e-30F, 3.4e38F}) {
    context_.LevelOffset = offset;
    for (u32 word = 1; word < 65536; ++word) {
      context_.RecordBuffer[0] = static_cast<u8>(word >> 8);
      context_.RecordBuffer[1] = static_cast<u8>(word & 0xFF);
      f64 const sum = word / 256.0 + static_cast<f64>(offset);
      BodyFields fields;
      f32 level = -1;
      DecodeLevel(fields, level);
      ASSERT_EQ(level, word % 256 == 0 ? kMarker : static_cast<f32>(sum)) << word << " " << offset;
    }
  }
}

// Stream levels end with the status of a missing byte, and leave the result as it was.
TEST_F(Levels, StreamLevelsBehindTheEnd) {
  context_.Model = kDefaultModel;
  f32 result = -1;
  auto const first = [&](std::initializer_list<int> bytes) {
    Record(bytes);
    BodyFields fields;
    return DecodeStreamLevel(fields, 75, result);
  };
  auto const second = [&](std::initializer_list<int> bytes) {
    Record(bytes);
    BodyFields fields;
    return DecodeStreamLevel2(fields, result);
  };
  EXPECT_EQ(first({}), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(second({}), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(second({40}), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(result, -1.0F);
  context_.WholeDbStream = 1;
  EXPECT_EQ(first({}), 0);
  EXPECT_EQ(result, 75.0F);
  EXPECT_EQ(second({}), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(result, 75.0F);
  EXPECT_EQ(second({40}), 0);
  EXPECT_EQ(result, 56.0F);
}

// No stream hands a 0 to the decoder of first levels; it would get no offset.
TEST_F(Levels, StreamLevelZero) {
  context_.Model = kDefaultModel;
  context_.LevelOffset = 30;
  f32 result = -1;
  Record({0, 64});
  BodyFields fields;
  EXPECT_EQ(DecodeStreamLevel(fields, 0, result), 0);
  EXPECT_EQ(result, 0.0F);
  EXPECT_EQ(DecodeStreamLevel(fields, 0, result), 0);
  EXPECT_EQ(result, 30.5F);
}

}  // namespace
