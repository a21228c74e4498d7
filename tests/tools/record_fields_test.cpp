// The field table says what the compiler says of the public structs.
#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <set>
#include <string>

#include "qvslmtranslate.h"
#include "record_table.h"
#include "support/file_contents.h"

namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;
using record_fields::kRecords;
using record_fields::RecordInfo;

const RecordInfo& Named(std::string_view name) {
  for (const RecordInfo& record : kRecords) {
    if (record.name == name) return record;
  }
  throw std::out_of_range(std::string(name));
}

const FieldInfo& Field(std::string_view record, std::string_view name) {
  for (const FieldInfo& field : Named(record).fields) {
    if (field.name == name) return field;
  }
  throw std::out_of_range(std::string(name));
}

TEST(RecordFields, HoldsEveryStructOnce) {
  EXPECT_EQ(std::size(kRecords), 43u);
  std::set<std::string_view> names;
  for (const RecordInfo& record : kRecords) {
    names.insert(record.name);
    EXPECT_EQ(record.structName, "Qv" + std::string(record.name));
  }
  EXPECT_EQ(names.size(), 43u);
}

TEST(RecordFields, CodesAreThoseOfTheHeader) {
  std::multiset<int> codes;
  for (const RecordInfo& record : kRecords) codes.insert(record.code);
  EXPECT_EQ(codes, (std::multiset<int>{0,  0,  0,  1,  1,  2,  3,  4,  5,  7,  8,  9,  10, 11, 12,
                                       13, 15, 16, 21, 30, 31, 32, 33, 34, 35, 36, 37, 50, 51, 52,
                                       53, 54, 55, 56, 57, 60, 63, 66, 67, 68, 69, 70, 72}));
  EXPECT_EQ(Named("Interval").code, 1);
  EXPECT_EQ(Named("BandInterval").code, 1);
  EXPECT_EQ(Named("Results442").code, 55);
  EXPECT_EQ(Named("RecordCensus").code, 0);
  EXPECT_EQ(Named("FileHeaderInfo").code, 0);
}

TEST(RecordFields, FieldsFillEveryRecordWithoutAGap) {
  for (const RecordInfo& record : kRecords) {
    std::size_t next = 0;
    std::set<std::string_view> names;
    for (const FieldInfo& field : record.fields) {
      EXPECT_EQ(field.offset, next) << record.name << '.' << field.name;
      next += FieldSize(field);
      names.insert(field.name);
    }
    EXPECT_EQ(next, record.size) << record.name;
    EXPECT_EQ(names.size(), record.fields.size()) << record.name;
  }
}

// The sizes that the format promises its hosts.
TEST(RecordFields, SizesAreThePromisedOnes) {
  struct Row {
    std::string_view name;
    std::size_t size;
  };
  constexpr Row rows[] = {
      {"Interval", 416},    {"BandInterval", 440}, {"Event", 28},         {"LevelMark", 32},
      {"BlockImage", 6164}, {"End", 532},          {"TimeHistory", 512},  {"TimedSpectrum", 152},
      {"Results442", 5316}, {"FieldHistory", 500}, {"RecordCensus", 164}, {"FileHeaderInfo", 498},
  };
  for (const Row& row : rows) EXPECT_EQ(Named(row.name).size, row.size) << row.name;
}

// One field of each type and kind, held against the compiler's own offsets.
TEST(RecordFields, TypesKindsAndOffsets) {
  struct Row {
    std::string_view record, field;
    FieldType type;
    FieldKind kind;
    std::size_t offset, rows, count;
    bool reserved;
  };
  constexpr Row rows[] = {
      {"Event", "RecordType", FieldType::U16, FieldKind::Plain, 0, 0, 0, false},
      {"Event", "EventValue24", FieldType::I32, FieldKind::Plain, offsetof(QvEvent, EventValue24),
       0, 0, false},
      {"Event", "Reserved26", FieldType::U8, FieldKind::Plain, offsetof(QvEvent, Reserved26), 0, 2,
       true},
      {"Interval", "LevelA", FieldType::F32, FieldKind::Level, offsetof(QvInterval, LevelA), 0, 0,
       false},
      {"Interval", "EndTime", FieldType::I32, FieldKind::Time, offsetof(QvInterval, EndTime), 0, 0,
       false},
      {"Interval", "Duration", FieldType::F32, FieldKind::Seconds, offsetof(QvInterval, Duration),
       0, 0, false},
      {"Interval", "DurationPercent", FieldType::F32, FieldKind::Percent,
       offsetof(QvInterval, DurationPercent), 0, 0, false},
      {"Interval", "RecordIndex", FieldType::U32, FieldKind::Plain,
       offsetof(QvInterval, RecordIndex), 0, 0, false},
      {"Interval", "Samples", FieldType::U8, FieldKind::Decibels, offsetof(QvInterval, Samples), 0,
       256, false},
      {"Summary", "Aux", FieldType::F32, FieldKind::Plain, offsetof(QvSummary, Aux), 3, 3, false},
      // "level distribution" is a description, no level.
      {"Summary", "Distribution", FieldType::U8, FieldKind::Plain,
       offsetof(QvSummary, Distribution), 0, 384, false},
      {"TimeHistory", "FirstLevels", FieldType::F32, FieldKind::Decibels,
       offsetof(QvTimeHistory, FirstLevels), 0, 60, false},
      {"TimeHistory", "SecondLevels", FieldType::F32, FieldKind::Level,
       offsetof(QvTimeHistory, SecondLevels), 0, 60, false},
      {"BlockImage", "Unwritten14", FieldType::U8, FieldKind::Plain,
       offsetof(QvBlockImage, Unwritten14), 0, 2, true},
      {"Results442", "SettingR218", FieldType::Char, FieldKind::Text,
       offsetof(QvResults442, SettingR218), 7, 22, false},
      {"Results442", "SettingR22", FieldType::I32, FieldKind::Time,
       offsetof(QvResults442, SettingR22), 0, 9, false},
      {"Site", "SiteText9", FieldType::Char, FieldKind::RawText, offsetof(QvSite, SiteText9), 0, 5,
       false},
      {"RecordCensus", "Unused40", FieldType::U32, FieldKind::Plain, 40, 0, 0, true},
  };
  for (const Row& row : rows) {
    const FieldInfo& field = Field(row.record, row.field);
    SCOPED_TRACE(std::string(row.record) + "." + std::string(row.field));
    EXPECT_EQ(field.type, row.type);
    EXPECT_EQ(field.kind, row.kind);
    EXPECT_EQ(field.offset, row.offset);
    EXPECT_EQ(field.rows, row.rows);
    EXPECT_EQ(field.count, row.count);
    EXPECT_EQ(field.reserved, row.reserved);
  }
  EXPECT_EQ(Field("Interval", "EndTime").comment, "time: end of the interval");
}

TEST(RecordFields, TypesAndKindsHaveNames) {
  struct Row {
    std::string_view record, field, type, kind;
  };
  constexpr Row rows[] = {
      {"Event", "RecordType", "u16", "plain"},       {"Event", "EventValue24", "i32", "plain"},
      {"Interval", "LevelA", "f32", "level"},        {"Interval", "EndTime", "i32", "time"},
      {"Interval", "Duration", "f32", "s"},          {"Interval", "DurationPercent", "f32", "%"},
      {"Interval", "RecordIndex", "u32", "plain"},   {"Interval", "Samples", "u8", "dB"},
      {"Results442", "SettingR218", "char", "text"}, {"Site", "SiteText9", "char", "raw text"},
  };
  for (const Row& row : rows) {
    const FieldInfo& field = Field(row.record, row.field);
    EXPECT_EQ(TypeName(field.type), row.type) << row.field;
    EXPECT_EQ(KindName(field.kind), row.kind) << row.field;
  }
}

TEST(RecordFields, TheFirstFieldOfAnOutputRecordIsItsCode) {
  for (const RecordInfo& record : kRecords) {
    if (record.code == 0) continue;
    EXPECT_EQ(record.fields[0].name, "RecordType") << record.name;
    EXPECT_EQ(record.fields[0].comment, std::to_string(record.code)) << record.name;
  }
}

// `cmake --build BUILD --target update_generated` mends them.
void ExpectFresh(const std::string& kept, const std::string& name) {
  std::string const written = test::Contents(GENERATED "/" + name);
  EXPECT_GT(written.size(), 10000u) << name;
  EXPECT_TRUE(test::Contents(SOURCE_ROOT "/" + kept + "/" + name) == written)
      << kept << '/' << name << " is older than api/include/qvslm_records.h";
}

TEST(RecordFields, TheListOfRecordsIsFresh) {
  ExpectFresh("docs", "records.md");
}

TEST(RecordFields, TheProofOfTheLayoutIsFresh) {
  ExpectFresh("api/include", "qvslm_layout.h");
}

TEST(RecordFields, TheFieldTableIsFresh) {
  ExpectFresh("tools/record_fields", "record_table.h");
}

}  // namespace
