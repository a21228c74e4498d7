// The reader of a body's fields. Internal: no export shows where a record's fields end.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "fields/body_fields.h"

namespace {

using namespace qvslm;

class Fields : public testing::Test {
 protected:
  Fields() { CurrentContext = &context_; }
  ~Fields() override { CurrentContext = nullptr; }

  // Puts the bytes in hand; those behind them must not be seen.
  void Record(const std::vector<u8>& bytes) {
    std::memset(context_.RecordBuffer, 0xA5, sizeof context_.RecordBuffer);
    std::copy(bytes.begin(), bytes.end(), context_.RecordBuffer);
    context_.RecordLength = static_cast<u32>(bytes.size());
  }

  static std::vector<u8> Taken(BodyFields& fields, int count) {
    const u8* const bytes = fields.Take(count);
    return {bytes, bytes + count};
  }

  alignas(8) TranslateContext context_{};
};

using Bytes = std::vector<u8>;

TEST_F(Fields, StandOneBehindTheOther) {
  Record({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  BodyFields fields;
  EXPECT_EQ(fields.Byte(), 1);
  EXPECT_EQ(fields.Word(), 0x0203);
  EXPECT_EQ(Taken(fields, 3), (Bytes{4, 5, 6}));
  u8 raw[4] = {};
  fields.Raw(raw, 4);
  EXPECT_EQ(Bytes(raw, raw + 4), (Bytes{7, 8, 9, 10}));
  EXPECT_EQ(fields.Status(), 0);
  EXPECT_EQ(fields.Place(), 10);
  EXPECT_EQ(Taken(fields, 2), (Bytes{11, 12}));
  EXPECT_EQ(fields.Status(), 0);
  EXPECT_EQ(fields.Place(), 12);
}

// A field that the record's end cuts keeps what there is of it.
TEST_F(Fields, AreCutByTheEnd) {
  for (int there = 0; there < 8; ++there) {
    Bytes bytes(static_cast<std::size_t>(there), 0xEE);
    Record(bytes);
    bytes.resize(8);
    BodyFields fields;
    EXPECT_EQ(Taken(fields, 8), bytes) << there;
    EXPECT_EQ(fields.Status(), QV_RECORD_TOO_SHORT) << there;
    EXPECT_EQ(fields.Place(), there);
  }
}

TEST_F(Fields, AreZeroBehindTheEnd) {
  Record({0xEE});
  BodyFields fields;
  EXPECT_EQ(fields.Word(), 0xEE00);
  EXPECT_EQ(fields.Status(), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(fields.Byte(), 0);
  EXPECT_EQ(fields.Status(), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(Taken(fields, 8), Bytes(8));
  u8 raw[2] = {7, 7};
  fields.Raw(raw, 2);
  EXPECT_EQ(Bytes(raw, raw + 2), (Bytes{0, 0}));
  EXPECT_EQ(fields.Status(), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(fields.Place(), 1);
}

TEST_F(Fields, RawBytesAreCutByTheEnd) {
  Record({1, 2, 3});
  BodyFields fields;
  fields.Byte();
  u8 raw[5] = {7, 7, 7, 7, 7};
  fields.Raw(raw, 4);
  EXPECT_EQ(Bytes(raw, raw + 5), (Bytes{2, 3, 0, 0, 7}));
  EXPECT_EQ(fields.Status(), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(fields.Place(), 3);
}

// A raw block of no bytes can be read anywhere.
TEST_F(Fields, NoRawBytesAreNeverMissing) {
  Record({});
  BodyFields fields;
  fields.Byte();
  u8 raw[1] = {7};
  fields.Raw(raw, 0);
  EXPECT_EQ(raw[0], 7);
  EXPECT_EQ(fields.Status(), 0);
}

// From a later place on; one behind the end is the end.
TEST_F(Fields, BeginWhereTheyAreTold) {
  Record({1, 2, 3});
  BodyFields second(1);
  EXPECT_EQ(second.Byte(), 2);
  EXPECT_EQ(second.Place(), 2);
  for (u32 const place : {3U, 4U, 12U, 6200U}) {
    BodyFields behind(place);
    EXPECT_EQ(behind.Place(), 3) << place;
    EXPECT_EQ(Taken(behind, 8), Bytes(8)) << place;
    EXPECT_EQ(behind.Status(), QV_RECORD_TOO_SHORT) << place;
  }
}

TEST_F(Fields, ArePassedWithoutALook) {
  Record({1, 2, 3, 4, 5, 6});
  BodyFields fields;
  fields.Skip(2);
  EXPECT_EQ(fields.Ahead(), context_.RecordBuffer + 2);
  fields.Pass(3);
  EXPECT_EQ(fields.Place(), 5);
  EXPECT_EQ(fields.Byte(), 6);
  fields.Skip(1);
  EXPECT_EQ(fields.Status(), QV_RECORD_TOO_SHORT);
}

}  // namespace
