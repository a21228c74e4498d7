// The sample stream: how it is cut into records, how it ends, and its times.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"
#include "support/utc.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::EventAt;
using test::General;
using test::MarkAt;
using test::Translation;
using test::Utc;
using Codes = std::vector<int>;

constexpr std::int32_t kHeaderTime = Utc(2024, 6, 21, 12);
constexpr std::uint8_t kFill = 0xEE;

// Samples of two bytes: the first has level 1.0, the next 2.0, up to 100.0, and again.
Body Samples(int count) {
  Body body;
  for (int i = 0; i < count; ++i) body.U8(1 + i % 100).U8(0);
  return body;
}
float SampleLevel(int index) {
  return static_cast<float>(1 + index % 100);
}

// A marker of two bytes.
Body& Marker(Body& body, int byte) {
  return body.U8(byte).U8(1);
}

QvTimeHistory History(const Translation& run, std::size_t index) {
  return run.As<QvTimeHistory>(index, QV_TIME_HISTORY);
}

std::vector<int> EntryCounts(const Translation& run) {
  std::vector<int> counts;
  for (const test::Step& step : run.Records(QV_TIME_HISTORY)) {
    counts.push_back(Translation::Copy<QvTimeHistory>(step).EntryCount);
  }
  return counts;
}

// Type codes of all steps, those without a record included.
Codes StepCodes(const Translation& run) {
  Codes codes;
  for (const test::Step& step : run.steps) codes.push_back(step.Code());
  return codes;
}

TEST(TimeHistory, EveryField) {
  Translation const run(General()
                            .Q(81, "0")
                            .Q(82, "2")
                            .Q(83, "8")
                            .Q(84, "0")
                            .Q(157, "77")
                            .Stream(6, Body().Raw({70, 64}).Raw({20, 0}).Raw({50, 0}).Raw({30, 64}))
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (Codes{7, 16, 15}));
  auto const record = run.As<QvTimeHistory>(1);
  EXPECT_EQ(record.RecordType, 16);
  EXPECT_EQ(record.SiteNumber, 77);
  EXPECT_EQ(record.RecordTime, kHeaderTime);
  EXPECT_EQ(record.SettingFormat, 0);
  EXPECT_EQ(record.StreamFlags, 0x0200);
  EXPECT_EQ(record.FirstLevels[0], 70.5F);
  EXPECT_EQ(record.FirstLevels[1], 50.0F);
  EXPECT_EQ(record.SecondLevels[0], 36.0F);  // 20 + 16
  EXPECT_EQ(record.SecondLevels[1], 46.5F);
  for (int i = 2; i < 60; ++i) {
    EXPECT_EQ(record.FirstLevels[i], 0.0F);
    EXPECT_EQ(record.SecondLevels[i], 0.0F);
  }
  EXPECT_EQ(record.Model, 486);
  for (std::uint8_t const byte : record.Reserved494) EXPECT_EQ(byte, 0);
  EXPECT_EQ(record.Reserved500, 65535);
  EXPECT_EQ(record.Reserved502, 65535);
  EXPECT_EQ(record.StreamPeriod, 0.25F);
  EXPECT_EQ(record.EntryCount, 2);
  EXPECT_EQ(record.Reserved510[0], 0);
  EXPECT_EQ(record.Reserved510[1], 0);
}

// A step of a stream clears 512 bytes, whether a record comes of it or not, and no more.
TEST(TimeHistory, ClearsItsOwnSize) {
  Translation const run(General().Stream(6, Samples(60)).EndOfData());
  ASSERT_EQ(StepCodes(run), (Codes{16, 0, 15}));
  auto const& whole = run.steps.at(0).record;
  auto const& none = run.steps.at(1).record;
  EXPECT_TRUE(std::all_of(none.begin(), none.begin() + 512, [](int byte) { return byte == 0; }));
  for (const auto* record : {&whole, &none}) {
    EXPECT_TRUE(
        std::all_of(record->begin() + 512, record->end(), [](int byte) { return byte == kFill; }));
  }
}

// Number of samples, and the entries of the records that they make.
TEST(TimeHistory, RecordsHoldUpTo60Entries) {
  struct {
    int samples;
    Codes steps;
    std::vector<int> entries;
  } const rows[] = {
      {0, {0, 5, 15}, {}},
      {1, {16, 5, 15}, {1}},
      {59, {16, 5, 15}, {59}},
      {60, {16, 0, 5, 15}, {60}},
      {61, {16, 16, 5, 15}, {60, 1}},
      {119, {16, 16, 5, 15}, {60, 59}},
      {120, {16, 16, 0, 5, 15}, {60, 60}},
      {121, {16, 16, 16, 5, 15}, {60, 60, 1}},
      // Past the 500 bytes of a block, and of several.
      {250, {16, 16, 16, 16, 16, 5, 15}, {60, 60, 60, 60, 10}},
      {300, {16, 16, 16, 16, 16, 0, 5, 15}, {60, 60, 60, 60, 60}},
      {777,
       {16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 5, 15},
       {60, 60, 60, 60, 60, 60, 60, 60, 60, 60, 60, 60, 57}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.samples);
    Translation const run(
        General().Stream(6, Samples(row.samples)).Item(5, MarkAt({2024, 6, 22})).EndOfData());
    EXPECT_EQ(StepCodes(run), row.steps);
    EXPECT_EQ(EntryCounts(run), row.entries);
    int index = 0;
    for (std::size_t r = 0; r < row.entries.size(); ++r) {
      for (int i = 0; i < row.entries[r]; ++i, ++index) {
        ASSERT_EQ(History(run, r).FirstLevels[i], SampleLevel(index)) << index;
      }
    }
    EXPECT_EQ(run.As<QvLevelMark>(0, 5).RecordTime, Utc(2024, 6, 22));
  }
}

// The four widths of an entry: one or two bytes for each level, one or two levels.
TEST(TimeHistory, EntryForms) {
  struct {
    const char* wholeDb;
    const char* secondKind;
    Body twoSamples;
    float first[2], second[2];
  } const rows[] = {
      {"1", "0", Body().Raw({50, 60}), {50.0F, 60.0F}, {0.0F, 0.0F}},
      {"0", "0", Body().Raw({50, 64, 60, 0}), {50.5F, 60.0F}, {0.0F, 0.0F}},
      {"1", "4", Body().Raw({50, 7, 60, 0}), {50.0F, 60.0F}, {7.0F, 0.0F}},
      {"0", "4", Body().Raw({50, 0, 7, 64, 60, 64, 0, 0}), {50.0F, 60.5F}, {7.5F, 0.0F}},
      {"2", "0", Body().Raw({50, 60}), {50.0F, 60.0F}, {0.0F, 0.0F}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.wholeDb) + " " + row.secondKind);
    Translation const run(General()
                              .Q(81, row.wholeDb)
                              .Q(82, row.secondKind)
                              .Stream(6, row.twoSamples)
                              .Item(5, MarkAt({2024, 6, 22}))
                              .EndOfData());
    ASSERT_EQ(run.Codes(), (Codes{7, 16, 5, 15}));
    auto const record = run.As<QvTimeHistory>(1);
    ASSERT_EQ(record.EntryCount, 2);
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(record.FirstLevels[i], row.first[i]);
      EXPECT_EQ(record.SecondLevels[i], row.second[i]);
    }
  }
}

// 60 entries of each width, many records of them: the blocks fit together without a gap.
TEST(TimeHistory, LongStreamsOfEachWidth) {
  constexpr int kSamples = 1000;
  for (int const wholeDb : {0, 1}) {
    for (int const kind : {0, 4}) {
      SCOPED_TRACE(testing::Message() << wholeDb << " " << kind);
      Body entries;
      for (int i = 0; i < kSamples; ++i) {
        entries.U8(1 + i % 100);
        if (wholeDb == 0) entries.U8(0);
        if (kind != 0) entries.U8(i % 90);
        if (kind != 0 && wholeDb == 0) entries.U8(0);
      }
      Translation const run(General()
                                .Q(81, std::to_string(wholeDb))
                                .Q(82, std::to_string(kind))
                                .Stream(6, entries)
                                .Item(5, MarkAt({2024, 6, 22}))
                                .EndOfData());
      ASSERT_EQ(run.end, QV_END_OF_DATA);
      ASSERT_EQ(run.Records(QV_TIME_HISTORY).size(), 17U);
      ASSERT_EQ(run.Records(QV_LEVEL_MARK).size(), 1U);
      for (int i = 0; i < kSamples; ++i) {
        auto const record = History(run, static_cast<std::size_t>(i / 60));
        ASSERT_EQ(record.FirstLevels[i % 60], SampleLevel(i)) << i;
        ASSERT_EQ(record.SecondLevels[i % 60], kind == 0 ? 0.0F : static_cast<float>(i % 90)) << i;
      }
      EXPECT_EQ(History(run, 16).EntryCount, 40);
    }
  }
}

TEST(TimeHistory, StreamFlags) {
  struct {
    const char* kind;
    int flags;
  } constexpr kRows[] = {
      {"0", 0},      {"1", 0x0100},  {"2", 0x0200},  {"3", 0x0400},  {"4", 0x0800},
      {"5", 0x1000}, {"6", 0x2000},  {"7", 0x4000},  {"8", 0x8000},  {"9", 0},
      {"24", 0},     {"25", 0x0001}, {"26", 0x0002}, {"32", 0x0080}, {"-1", 0x0040},
  };
  for (const auto& row : kRows) {
    Translation const run(
        General().Q(81, "1").Q(82, row.kind).Stream(6, Body().Raw({50, 7})).EndOfData());
    EXPECT_EQ(History(run, 0).StreamFlags, row.flags) << row.kind;
  }
}

// Models 431 and 442 mark the stream with type byte 7, all others with 6.
TEST(TimeHistory, TypeByteByModel) {
  struct {
    DataFile file;
    int type, model;
  } const rows[] = {
      {General(), 6, 486},
      {DataFile().Header({.Model = 480}), 6, 480},
      {DataFile().Header({.Model = 500}), 6, 500},
      {test::Model431("ENV "), 7, 431},
      {test::Model442("LOG"), 7, 442},
  };
  for (const auto& row : rows) {
    DataFile file = row.file;
    Translation const run(file.Stream(row.type, Samples(3)).EndOfData());
    ASSERT_EQ(run.Codes(), (Codes{16, 15})) << row.model;
    EXPECT_EQ(History(run, 0).Model, row.model);
    EXPECT_EQ(History(run, 0).EntryCount, 3);
    EXPECT_EQ(History(run, 0).RecordTime, kHeaderTime);
  }
}

// Markers of the form with two bytes: code and detail, and that they are entries like others.
TEST(TimeHistory, MarkersAmongSamples) {
  Body entries;
  entries.Raw({70, 0});
  Marker(entries, 0xA7).Raw({71, 0});
  Translation const run(General().Stream(6, entries).EndOfData());
  auto const record = History(run, 0);
  ASSERT_EQ(record.EntryCount, 3);
  EXPECT_EQ(record.FirstLevels[0], 70.0F);
  EXPECT_EQ(record.FirstLevels[1], -32.0F);
  EXPECT_EQ(record.SecondLevels[1], 0.0F);  // no second levels: there is no detail
  EXPECT_EQ(record.FirstLevels[2], 71.0F);
}

// Every marker byte, with every form of entry. The detail comes from the second level's byte.
TEST(TimeHistory, EveryMarkerCode) {
  for (int byte = 128; byte < 256; ++byte) {
    SCOPED_TRACE(byte);
    Translation const run(General()
                              .Q(81, "0")
                              .Q(82, "1")
                              .Stream(6, Body().Raw({byte, 0, byte - 127, 1}))
                              .EndOfData());
    auto const record = History(run, 0);
    ASSERT_EQ(record.EntryCount, 1);
    EXPECT_EQ(record.FirstLevels[0], -static_cast<float>((byte - 128) / 16 * 16));
    EXPECT_TRUE(std::signbit(record.FirstLevels[0]));
    EXPECT_EQ(record.SecondLevels[0], static_cast<float>((byte - 127) % 16));
  }
}

TEST(TimeHistory, MarkerWidths) {
  struct {
    const char* wholeDb;
    const char* secondKind;
    Body marker;
    float detail;
  } const rows[] = {
      {"1", "0", Body().Raw({0x90}), 0.0F},
      {"0", "0", Body().Raw({0x90, 0x2B}), 0.0F},
      {"1", "1", Body().Raw({0x90, 0x2B}), 11.0F},
      {"1", "1", Body().Raw({0x90, 0xFF}), 15.0F},
      {"0", "1", Body().Raw({0x90, 0x00, 0x2B, 0x01}), 11.0F},
      {"0", "1", Body().Raw({0x90, 0x00, 0x00, 0x01}), 0.0F},
      {"0", "1", Body().Raw({0x90, 0xC0, 0x47, 0xC0}), 7.0F},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.marker.Bytes()));
    // A sample behind the marker shows that as many bytes were read as there are.
    Body entries = row.marker;
    entries.U8(55);
    if (row.wholeDb[0] == '0') entries.U8(0);
    if (row.secondKind[0] != '0') entries.U8(9);
    if (row.secondKind[0] != '0' && row.wholeDb[0] == '0') entries.U8(0);
    Translation const run(
        General().Q(81, row.wholeDb).Q(82, row.secondKind).Stream(6, entries).EndOfData());
    auto const record = History(run, 0);
    ASSERT_EQ(record.EntryCount, 2);
    EXPECT_EQ(record.FirstLevels[0], -16.0F);
    EXPECT_EQ(record.SecondLevels[0], row.detail);
    EXPECT_EQ(record.FirstLevels[1], 55.0F);
  }
}

// A marker whose last byte is 0 is no entry: that 0 closes the stream.
TEST(TimeHistory, ClosesOnAMarker) {
  struct {
    const char* wholeDb;
    const char* secondKind;
    Body sample, closing;
  } const rows[] = {
      {"0", "0", Body().Raw({70, 0}), Body().Raw({0xC0, 0})},
      {"1", "1", Body().Raw({70, 5}), Body().Raw({0xC0, 0})},
      {"0", "1", Body().Raw({70, 0, 5, 0}), Body().Raw({0xC0, 9, 9, 0})},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.wholeDb) + row.secondKind);
    auto const settings = General().Q(81, row.wholeDb).Q(82, row.secondKind);
    std::string const type = Body().U8(6).Bytes();
    Translation const pending(DataFile(settings)
                                  .Raw(type + row.sample.Bytes() + row.closing.Bytes())
                                  .Item(5, MarkAt({2024, 6, 22}))
                                  .EndOfData());
    ASSERT_EQ(StepCodes(pending), (Codes{7, 16, 5, 15}));
    EXPECT_EQ(History(pending, 0).EntryCount, 1);
    Translation const empty(DataFile(settings)
                                .Raw(type + row.closing.Bytes())
                                .Item(5, MarkAt({2024, 6, 22}))
                                .EndOfData());
    ASSERT_EQ(StepCodes(empty), (Codes{7, 0, 5, 15}));
  }
}

// A sample whose level comes out at or below 0 is taken as a marker, its code drawn from the value;
// codes 64 and 80 end a record.
TEST(TimeHistory, LevelsAtOrBelowZeroAreMarkers) {
  struct {
    const char* offset;
    float first;
    std::vector<int> entryCounts;  // of the sample, 50 dB in the file, and one more
  } const rows[] = {
      {"-49.5", 0.5F, {2}},       {"-50.0", -0.0F, {2}},   // 0
      {"-51.0", -0.0F, {2}},                               // -1 to -15: code 0
      {"-65.0", -0.0F, {2}},      {"-66.0", -16.0F, {2}},  // -16
      {"-80.75", -16.0F, {2}},                             // -30.75 is cut to -30
      {"-113.0", -48.0F, {2}},                             // -63
      {"-114.0", -64.0F, {1, 1}},                          // -64
      {"-145.0", -80.0F, {1, 1}},                          // -95
      {"-146.0", -96.0F, {2}},                             // -96
  };
  for (const auto& row : rows) {
    Translation const run(General()
                              .Q(227, row.offset)
                              .Item(4, EventAt({2024, 6, 22}, 64))
                              .Stream(6, Body().Raw({50, 0, 127, 0}))
                              .EndOfData());
    EXPECT_EQ(History(run, 0).FirstLevels[0], row.first) << row.offset;
    EXPECT_EQ(std::signbit(History(run, 0).FirstLevels[0]), row.first <= 0) << row.offset;
    EXPECT_EQ(EntryCounts(run), row.entryCounts) << row.offset;
  }
}

// The 500 bytes of a block need not be there. What the file has not got is what the buffer held
// before: here the body of the item in front of the stream.
TEST(TimeHistory, FileEndsWithinTheStream) {
  test::TempFile const zeros(
      General().Item(9, Body().Fill(3000)).Raw(Body().U8(6).Raw({70, 0, 71, 0}).Bytes()).Bytes());
  Translation const closed(zeros.Path());
  EXPECT_EQ(StepCodes(closed), (Codes{0, 16, 0}));
  EXPECT_EQ(closed.end, QV_BAD_LENGTH);
  EXPECT_EQ(EntryCounts(closed), std::vector{2});

  test::TempFile const samples(General()
                                   .Item(9, Body().Fill(3000, 0x41))
                                   .Raw(Body().U8(6).Raw({70, 0, 71, 0}).Bytes())
                                   .Bytes());
  Translation const open(samples.Path(), {.mostSteps = 5});
  EXPECT_EQ(StepCodes(open), (Codes{0, 16, 16, 16, 16}));
  EXPECT_EQ(open.end, QV_OK);
  auto const record = History(open, 0);
  EXPECT_EQ(record.FirstLevels[1], 71.0F);
  EXPECT_EQ(record.FirstLevels[2], 65.5078125F);  // 65 + 2 * 65 / 256
  EXPECT_EQ(record.FirstLevels[59], 65.5078125F);
}

// A translation started anew within a stream reads a type byte first.
TEST(TimeHistory, StartWithinAStream) {
  test::TempFile const stored(test::Startable(
      General().Item(5, MarkAt({2024, 6, 22})).Stream(6, Samples(130)).EndOfData()));
  test::Session session;
  for (int round = 0; round < 2; ++round) {
    ASSERT_EQ(session.Start(stored.Path()), QV_OK);
    ASSERT_EQ(session.Next(), QV_OK);
    EXPECT_EQ(session.Code(), 5);
    ASSERT_EQ(session.Next(), QV_OK);
    EXPECT_EQ(session.Code(), 16);
    EXPECT_EQ(session.As<QvTimeHistory>().RecordTime, kHeaderTime);
    EXPECT_EQ(session.As<QvTimeHistory>().FirstLevels[0], 1.0F);
  }
}

// A type byte of another item within the stream is a sample like any other.
TEST(TimeHistory, KnowsNoItemsWithinTheStream) {
  Translation const run(
      General().Stream(6, Body().Raw({5, 10, 4, 13, 81, 32, 82, 32})).EndOfData());
  ASSERT_EQ(run.Codes(), (Codes{16, 15}));
  EXPECT_EQ(History(run, 0).EntryCount, 4);
  EXPECT_EQ(History(run, 0).FirstLevels[2], 81.25F);
}

// Streams follow one another: each begins with records of its own.
TEST(TimeHistory, StreamsInARow) {
  Translation const run(General()
                            .Stream(6, Samples(2))
                            .Stream(6, Samples(61))
                            .Stream(6, Body())
                            .Stream(6, Samples(1))
                            .EndOfData());
  EXPECT_EQ(StepCodes(run), (Codes{16, 16, 16, 0, 16, 15}));
  EXPECT_EQ(EntryCounts(run), (std::vector{2, 60, 1, 1}));
}

}  // namespace
