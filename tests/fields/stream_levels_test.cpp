// Levels of streamed samples, in every model, width and kind, through the records of the stream.
#include <gtest/gtest.h>

#include <string>

#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Translation;

struct Sample {
  float first, second;
};

// The first sample of a stream with the given settings; each setting may be left out ("").
struct Stream {
  int model = 486;
  const char* firmware = "1.200";
  const char* wholeDb = "";
  const char* secondKind = "";
  const char* levelOffset = "";
  const char* levelOffset442 = "0.0";
  int levelBase442 = 0;  // whole decibels of the setup
  Body bytes;
};

Sample Decode(const Stream& stream) {
  DataFile file =
      DataFile().Header({.Model = stream.model, .Firmware = stream.firmware, .ModeTag = "LOG"});
  if (stream.levelBase442 != 0) {
    file.Item('M', Body().PadTo(219).Set(39, {2}).Set(181, {stream.levelBase442}));
  }
  if (*stream.wholeDb != '\0') file.Q(81, stream.wholeDb);
  if (*stream.secondKind != '\0') file.Q(82, stream.secondKind);
  if (*stream.levelOffset != '\0') file.Q(227, stream.levelOffset);
  bool const is431Or442 = stream.model == 431 || stream.model == 442;
  file.Stream(is431Or442 ? 7 : 6, stream.bytes).EndOfData();
  Translation const run(file, {.levelOffset442 = stream.levelOffset442});
  EXPECT_EQ(run.Records(QV_TIME_HISTORY).size(), 1U);
  auto const record = run.As<QvTimeHistory>(0, QV_TIME_HISTORY);
  EXPECT_EQ(record.EntryCount, 1);
  return {record.FirstLevels[0], record.SecondLevels[0]};
}

float First(const Stream& stream) {
  return Decode(stream).first;
}
float Second(const Stream& stream) {
  return Decode(stream).second;
}

// In model 442 the second byte counts 1/256, in all others 1/128.
TEST(StreamLevel, TwoBytes) {
  struct {
    int hi, lo;
    float general, model442;
  } constexpr kRows[] = {
      {1, 0, 1.0F, 1.0F},
      {75, 0, 75.0F, 75.0F},
      {75, 1, 75.0078125F, 75.00390625F},
      {75, 64, 75.5F, 75.25F},
      {75, 128, 76.0F, 75.5F},
      {75, 255, 76.9921875F, 75.99609375F},
      {127, 255, 128.9921875F, 127.99609375F},
  };
  for (const auto& row : kRows) {
    Body const bytes = Body().Raw({row.hi, row.lo});
    for (int const model : {431, 480, 486, 500}) {
      EXPECT_EQ(First({.model = model, .bytes = bytes}), row.general) << model << " " << row.lo;
    }
    EXPECT_EQ(First({.model = 442, .bytes = bytes}), row.model442) << row.lo;
  }
}

TEST(StreamLevel, OneByte) {
  for (int const model : {431, 442, 480, 486, 500}) {
    EXPECT_EQ(First({.model = model, .wholeDb = "1", .bytes = Body().U8(1)}), 1.0F) << model;
    EXPECT_EQ(First({.model = model, .wholeDb = "1", .bytes = Body().U8(127)}), 127.0F) << model;
  }
}

// In two bytes the offset is added as it is.
TEST(StreamLevel, OffsetOfTwoBytes) {
  struct {
    const char* offset;
    float level;  // of 75.5
  } constexpr kRows[] = {
      {"0.0", 75.5F},  {"1.5", 77.0F},    {"2.25", 77.75F}, {"-2.5", 73.0F},
      {"-2.0", 73.5F}, {"-0.25", 75.25F}, {"100", 175.5F},
  };
  for (const auto& row : kRows) {
    for (int const model : {431, 480, 486, 500}) {
      EXPECT_EQ(First({.model = model, .levelOffset = row.offset, .bytes = Body().Raw({75, 64})}),
                row.level)
          << model << " " << row.offset;
    }
  }
}

// In whole decibels a positive offset is cut, and a negative one goes down to the next whole
// decibel, as far as its tenths tell.
TEST(StreamLevel, OffsetOfOneByte) {
  struct {
    const char* offset;
    float level;  // of 75
  } constexpr kRows[] = {
      {"0.0", 75.0F},
      {"0.9", 75.0F},
      {"1.0", 76.0F},
      {"2.5", 77.0F},
      {"2.99", 77.0F},
      {"-2.0", 73.0F},
      {"-2.5", 72.0F},
      {"-2.9", 72.0F},
      {"-3.0", 72.0F},
      {"-0.5", 74.0F},
      {"-0.2", 74.0F},
      {"-0.04", 75.0F},
      {"-2.04", 73.0F},
      {"-10.0", 65.0F},
      {"-10.75", 64.0F},
      // As f32 a little above -2.1: ten times that is -20.99, cut to -20, which is whole.
      {"-2.1", 73.0F},
      // As f32 a little below -2.2.
      {"-2.2", 72.0F},
      // Cut to 2^31 - 1, which f32 does not hold.
      {"3000000000", 2147483648.0F},
  };
  for (const auto& row : kRows) {
    for (int const model : {431, 480, 486, 500}) {
      EXPECT_EQ(
          First(
              {.model = model, .wholeDb = "1", .levelOffset = row.offset, .bytes = Body().U8(75)}),
          row.level)
          << model << " " << row.offset;
    }
  }
}

// Model 442 adds the base of its setup and no offset, neither of register 227 nor of 106.
TEST(StreamLevel, BaseOfModel442) {
  for (const char* const wholeDb : {"0", "1"}) {
    Body const bytes = wholeDb[0] == '0' ? Body().Raw({75, 0}) : Body().U8(75);
    EXPECT_EQ(First({.model = 442, .wholeDb = wholeDb, .levelOffset442 = "7.5", .bytes = bytes}),
              75.0F);
    EXPECT_EQ(First({.model = 442, .wholeDb = wholeDb, .levelOffset = "-2.5", .bytes = bytes}),
              75.0F);
    EXPECT_EQ(First({.model = 442,
                     .wholeDb = wholeDb,
                     .levelOffset442 = "7.5",
                     .levelBase442 = 20,
                     .bytes = bytes}),
              95.0F);
  }
}

// The second level counts 1/128 in every model.
TEST(StreamLevel2, TwoBytes) {
  struct {
    int hi, lo;
    float value;
  } constexpr kRows[] = {
      {40, 0, 56.0F},      {40, 1, 56.0078125F},   {40, 64, 56.5F},
      {40, 128, 57.0F},    {40, 255, 57.9921875F}, {255, 255, 272.9921875F},
      {0, 1, 16.0078125F}, {1, 0, 17.0F},          {0, 3, 16.0234375F},
      {3, 0, 19.0F},       {1, 2, 17.015625F},     {2, 1, 18.0078125F},
  };
  for (const auto& row : kRows) {
    for (int const model : {431, 442, 480, 486, 500}) {
      EXPECT_EQ(
          Second({.model = model, .secondKind = "1", .bytes = Body().Raw({75, 0, row.hi, row.lo})}),
          row.value)
          << model << " " << row.hi << " " << row.lo;
    }
  }
}

// Bytes that sum to 0 or to 2 are no level, but for kind 4, whose value stands.
TEST(StreamLevel2, NoLevel) {
  struct {
    int hi, lo;
    float kind4;
  } constexpr kPairs[] = {{0, 0, 0.0F}, {0, 2, 0.015625F}, {1, 1, 1.0078125F}, {2, 0, 2.0F}};
  for (const auto& pair : kPairs) {
    Body const bytes = Body().Raw({75, 0, pair.hi, pair.lo});
    for (int const model : {431, 442, 480, 486, 500}) {
      SCOPED_TRACE(testing::Message() << model << " " << pair.hi << " " << pair.lo);
      for (const char* const kind : {"1", "2", "3", "5", "6"}) {
        EXPECT_EQ(Second({.model = model, .secondKind = kind, .bytes = bytes}), 999.0F) << kind;
      }
      EXPECT_EQ(Second({.model = model, .secondKind = "4", .levelOffset = "9.5", .bytes = bytes}),
                pair.kind4);
    }
  }
}

// With the offset 2^31 - 1, which f32 does not hold: 2^31 + 128 lies in the middle, and goes to the
// even neighbour. From 2^31 it would be 2^31 + 129.
TEST(StreamLevel2, OffsetBeyondSinglePrecision) {
  EXPECT_EQ(Second({.wholeDb = "1",
                    .secondKind = "5",
                    .levelOffset = "3000000000",
                    .bytes = Body().Raw({75, 129})}),
            2147483648.0F);
}

TEST(StreamLevel2, OneByte) {
  struct {
    const char* kind;
    int byte;
    float value;
  } constexpr kRows[] = {
      {"1", 0, 999.0F}, {"1", 1, 17.0F},  {"1", 2, 999.0F}, {"1", 3, 19.0F}, {"1", 255, 271.0F},
      {"2", 0, 999.0F}, {"2", 1, 17.0F},  {"2", 2, 999.0F}, {"2", 3, 19.0F}, {"3", 0, 999.0F},
      {"3", 1, 1.0F},   {"3", 2, 999.0F}, {"3", 3, 3.0F},   {"4", 0, 0.0F},  {"4", 1, 1.0F},
      {"4", 2, 2.0F},   {"4", 3, 3.0F},   {"5", 0, 999.0F}, {"5", 1, 1.0F},  {"5", 2, 999.0F},
      {"5", 40, 40.0F},
  };
  for (const auto& row : kRows) {
    for (int const model : {431, 442, 480, 486, 500}) {
      EXPECT_EQ(Second({.model = model,
                        .wholeDb = "1",
                        .secondKind = row.kind,
                        .bytes = Body().Raw({75, row.byte})}),
                row.value)
          << model << " " << row.kind << " " << row.byte;
    }
  }
}

// Kinds below 3 add 16, kind 3 does in old firmware only, kind 4 and those above never.
TEST(StreamLevel2, SixteenByKindAndFirmware) {
  struct {
    int model;
    const char* firmware;
    float kind3;
  } constexpr kRows[] = {
      // As f32, 1.111 and 1.127 lie a little below their thresholds.
      {486, "1.000", 56.0F}, {486, "1.110", 56.0F}, {486, "1.111", 56.0F}, {486, "1.112", 40.0F},
      {486, "1.120", 40.0F}, {486, "2.000", 40.0F}, {480, "1.000", 56.0F}, {480, "1.112", 56.0F},
      {480, "1.126", 56.0F}, {480, "1.127", 56.0F}, {480, "1.128", 40.0F}, {485, "1.120", 56.0F},
      {100, "1.120", 56.0F}, {431, "1.000", 40.0F}, {442, "1.000", 40.0F}, {487, "1.000", 40.0F},
      {500, "1.000", 40.0F},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.model << " " << row.firmware);
    auto const second = [&](const char* kind) {
      return Second({.model = row.model,
                     .firmware = row.firmware,
                     .secondKind = kind,
                     .bytes = Body().Raw({75, 0, 40, 0})});
    };
    EXPECT_EQ(second("1"), 56.0F);
    EXPECT_EQ(second("2"), 56.0F);
    EXPECT_EQ(second("3"), row.kind3);
    EXPECT_EQ(second("4"), 40.0F);
    EXPECT_EQ(second("5"), 40.0F);
    EXPECT_EQ(second("65535"), 40.0F);  // no negative kind
  }
}

// The offset rules are those of the first level; kind 4 has no offset.
TEST(StreamLevel2, Offset) {
  struct {
    int model;
    const char* wholeDb;
    const char* offset;
    float kind1, kind3, kind4, kind5;  // of 40
  } constexpr kRows[] = {
      {486, "0", "1.5", 57.5F, 41.5F, 40.0F, 41.5F},
      {486, "0", "-2.5", 53.5F, 37.5F, 40.0F, 37.5F},
      {486, "1", "1.5", 57.0F, 41.0F, 40.0F, 41.0F},
      {486, "1", "-2.5", 53.0F, 37.0F, 40.0F, 37.0F},
      {486, "1", "-2.0", 54.0F, 38.0F, 40.0F, 38.0F},
      {431, "0", "1.5", 57.5F, 41.5F, 40.0F, 41.5F},
      {431, "1", "-2.5", 53.0F, 37.0F, 40.0F, 37.0F},
      {500, "1", "-2.5", 53.0F, 37.0F, 40.0F, 37.0F},
      {442, "0", "-2.5", 56.0F, 40.0F, 40.0F, 40.0F},
      {442, "1", "-2.5", 56.0F, 40.0F, 40.0F, 40.0F},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.model << " " << row.wholeDb << " " << row.offset);
    Body const bytes = row.wholeDb[0] == '0' ? Body().Raw({75, 0, 40, 0}) : Body().Raw({75, 40});
    auto const second = [&](const char* kind) {
      return Second({.model = row.model,
                     .wholeDb = row.wholeDb,
                     .secondKind = kind,
                     .levelOffset = row.offset,
                     .bytes = bytes});
    };
    EXPECT_EQ(second("1"), row.kind1);
    EXPECT_EQ(second("2"), row.kind1);
    EXPECT_EQ(second("3"), row.kind3);
    EXPECT_EQ(second("4"), row.kind4);
    EXPECT_EQ(second("5"), row.kind5);
  }
}

TEST(StreamLevel2, BaseOfModel442) {
  auto const second = [](const char* kind) {
    return Second({.model = 442,
                   .secondKind = kind,
                   .levelOffset442 = "7.5",
                   .levelBase442 = 20,
                   .bytes = Body().Raw({75, 0, 40, 64})});
  };
  EXPECT_EQ(second("1"), 76.5F);
  EXPECT_EQ(second("3"), 60.5F);
  EXPECT_EQ(second("4"), 40.5F);
}

// Without second levels the table of second levels stays empty.
TEST(StreamLevel2, Absent) {
  EXPECT_EQ(Second({.secondKind = "0", .levelOffset = "9.5", .bytes = Body().Raw({75, 0})}), 0.0F);
}

}  // namespace
