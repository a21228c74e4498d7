// The cursor that finds the owner of a band record, seen through the times of items 129 to 131.
#include <gtest/gtest.h>

#include <optional>
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
using test::IntervalAt;
using test::MarkAt;
using test::SummaryAt;
using test::Translation;
using test::Utc;

// The hour of 21 June 2024 at which the owner of a band record stands; none when it was not found,
// and the record bears the present time.
using Hours = std::vector<std::optional<int>>;
constexpr std::nullopt_t kNotFound = std::nullopt;

std::optional<int> HourOf(const test::Step& step) {
  int const seconds = Translation::Copy<QvLevelMarkBands>(step).RecordTime - Utc(2024, 6, 21);
  if (seconds < 0 || seconds >= 24 * 3600 || seconds % 3600 != 0) return std::nullopt;
  return seconds / 3600;
}

Hours OwnerHours(const Translation& run, int code = QV_LEVEL_MARK_BANDS) {
  Hours hours;
  for (const test::Step& step : run.Records(code)) hours.push_back(HourOf(step));
  return hours;
}

// Level mark and its bands, by hour and by owner number.
DataFile& Mark(DataFile& file, int hour) {
  return file.Item(5, MarkAt({2024, 6, 21, hour}));
}
DataFile& Marks(DataFile& file, int from, int to) {
  for (int hour = from; hour <= to; ++hour) Mark(file, hour);
  return file;
}
DataFile& Bands(DataFile& file, std::initializer_list<int> owners) {
  for (int const owner : owners) file.Item(131, Body().U16(owner).PadTo(71));
  return file;
}
Hours MarkOwners(DataFile file, std::initializer_list<int> owners) {
  Bands(file, owners).EndOfData();
  return OwnerHours(Translation(file));
}

DataFile NineMarks() {
  DataFile file = General();
  return Marks(file, 1, 9);
}

TEST(RecordSeeker, GoesForward) {
  EXPECT_EQ(MarkOwners(NineMarks(), {1, 2, 3}), (Hours{1, 2, 3}));
  EXPECT_EQ(MarkOwners(NineMarks(), {1, 4, 9}), (Hours{1, 4, 9}));
  EXPECT_EQ(MarkOwners(NineMarks(), {9}), (Hours{9}));
}

// A number that was passed is not found, and the cursor is one ahead from then on.
TEST(RecordSeeker, PassedNumberPutsItOneAhead) {
  EXPECT_EQ(MarkOwners(NineMarks(), {3, 3}), (Hours{3, kNotFound}));
  EXPECT_EQ(MarkOwners(NineMarks(), {3, 2, 5}), (Hours{3, kNotFound, 4}));
  EXPECT_EQ(MarkOwners(NineMarks(), {3, 2, 4}), (Hours{3, kNotFound, kNotFound}));
  EXPECT_EQ(MarkOwners(NineMarks(), {3, 2, 4, 6}), (Hours{3, kNotFound, kNotFound, 4}));
  EXPECT_EQ(MarkOwners(NineMarks(), {3, 2, 4, 7}), (Hours{3, kNotFound, kNotFound, 5}));
  EXPECT_EQ(MarkOwners(NineMarks(), {3, 3, 3, 3, 7}),
            (Hours{3, kNotFound, kNotFound, kNotFound, 4}));
}

// Numbers behind the last of the family: the walk meets the end of the data, and the family has no
// first offset any more, until the pump finds one.
TEST(RecordSeeker, EndOfDataLosesTheFamily) {
  EXPECT_EQ(MarkOwners(NineMarks(), {10, 1}), (Hours{kNotFound, kNotFound}));
  EXPECT_EQ(MarkOwners(NineMarks(), {3, 10, 4}), (Hours{3, kNotFound, kNotFound}));
}

TEST(RecordSeeker, EndLinesEndTheWalk) {
  DataFile file = General();
  Marks(file, 1, 2);
  Bands(file, {2, 3}).EndLines("first", "second");
  // The next mark is the first of the family again, while the count of those passed goes on.
  Mark(file, 3);
  Mark(file, 4);
  Bands(file, {4, 4}).EndOfData();
  EXPECT_EQ(OwnerHours(Translation(file)), (Hours{2, kNotFound, 4, kNotFound}));
}

TEST(RecordSeeker, LooksAheadOfTheTranslation) {
  DataFile file = General();
  Mark(file, 1);
  Bands(file, {3});
  Marks(file, 2, 4);
  Bands(file, {4}).EndOfData();
  EXPECT_EQ(OwnerHours(Translation(file)), (Hours{3, 4}));
}

// Without a record of the family in front of it there is nothing to walk from.
TEST(RecordSeeker, FamilyNotYetSeen) {
  DataFile file = General();
  Bands(file, {1});
  Mark(file, 1);
  Bands(file, {1}).EndOfData();
  EXPECT_EQ(OwnerHours(Translation(file)), (Hours{kNotFound, 1}));
}

// A settings block moves the start of all walks behind it; the count of records passed stays.
TEST(RecordSeeker, StartsAtTheLastSettingsBlock) {
  DataFile counted = General();
  Marks(counted, 1, 2);
  Bands(counted, {1, 2}).Q(157, "1");
  Marks(counted, 3, 4);
  Bands(counted, {3, 4}).EndOfData();
  EXPECT_EQ(OwnerHours(Translation(counted)), (Hours{1, 2, 3, 4}));

  DataFile uncounted = General();
  Marks(uncounted, 1, 2).Q(157, "1");
  Marks(uncounted, 3, 4);
  Bands(uncounted, {1, 2}).EndOfData();
  EXPECT_EQ(OwnerHours(Translation(uncounted)), (Hours{3, 4}));
}

// Number 0 passes the first record of the family. Behind a settings block the first item may be of
// another family: the walk ends on that one.
TEST(RecordSeeker, OwnerZero) {
  EXPECT_EQ(MarkOwners(NineMarks(), {0, 2}), (Hours{kNotFound, 1}));
  DataFile file = General();
  file.Q(157, "1").Item(4, EventAt({2024, 6, 21, 17}, 32));
  Mark(file, 1);
  Bands(file, {0, 1}).EndOfData();
  EXPECT_EQ(OwnerHours(Translation(file)), (Hours{17, 1}));
}

TEST(RecordSeeker, EachFamilyHasItsCursor) {
  DataFile file = General();
  for (int hour = 1; hour <= 3; ++hour) {
    file.Item(1, IntervalAt({2024, 6, 21, hour}))
        .Item(2, SummaryAt({2024, 6, 21, hour + 10}))
        .Item(5, MarkAt({2024, 6, 21, hour + 20}));
  }
  for (int const owner : {1, 3}) {
    file.Item(129, Body().U16(owner).PadTo(211))
        .Item(130, Body().U16(owner).PadTo(211))
        .Item(131, Body().U16(owner).PadTo(71));
  }
  Translation const run(file.EndOfData());
  EXPECT_EQ(OwnerHours(run, QV_INTERVAL_BANDS), (Hours{1, 3}));
  EXPECT_EQ(OwnerHours(run, QV_SUMMARY_BANDS), (Hours{11, 13}));
  EXPECT_EQ(OwnerHours(run, QV_LEVEL_MARK_BANDS), (Hours{21, 23}));
}

// Items 129 and 132 go to the same intervals, by one cursor.
TEST(RecordSeeker, IntervalBandsShareACursor) {
  DataFile file = General();
  for (int hour = 1; hour <= 4; ++hour) file.Item(1, IntervalAt({2024, 6, 21, hour}));
  file.Item(129, Body().U16(2).PadTo(211))
      .Item(132, Body().U16(1).PadTo(71))  // owner 2: passed, and one ahead
      .Item(129, Body().U16(4).PadTo(211))
      .EndOfData();
  Translation const run(file);
  EXPECT_EQ(OwnerHours(run, QV_INTERVAL_BANDS), (Hours{2, 3}));
  EXPECT_EQ(OwnerHours(run, QV_INTERVAL_BAND_SERIES), Hours{kNotFound});
}

// What may stand between two records of a family, and what ends the walk.
TEST(RecordSeeker, ItemsOnTheWay) {
  struct Way {
    const char* what;
    std::string bytes;
    bool found;
  };
  auto const item = [](int type, const Body& body) { return DataFile().Item(type, body).Bytes(); };
  const std::vector<Way> ways = {
      {"nothing", "", true},
      {"interval", item(1, IntervalAt({2024, 6, 21, 20})), true},
      {"summary", item(2, SummaryAt({2024, 6, 21, 20})), true},
      {"day summary", item(3, Body().Fill(200)), true},
      {"event", item(4, EventAt({2024, 6, 21, 20}, 0)), true},
      {"stream", DataFile().Stream(6, Body().Raw({70, 5, 71, 5})).Bytes(), true},
      {"item 7", item(7, Body().Fill(5120, 5)), true},
      {"item 8", item(8, Body().Fill(5120, 5)), true},
      {"C", item('C', Body().Fill(80)), true},
      {"M", item('M', Body().Fill(219)), true},
      {"S", item('S', Body().Fill(80)), true},
      {"R lines", DataFile().R(1, "model").R(6, "21Jun2024,12:00:00").Bytes(), true},
      {"interval bands", item(129, Body().PadTo(211)), true},
      {"summary bands", item(130, Body().PadTo(211)), true},
      {"band series", item(132, Body().PadTo(71)), true},
      {"longest item", item(4, Body().Fill(6200)), true},
      {"item above it", item(4, Body().Fill(6201)), false},
      {"E lines", DataFile().EndLines("one", "two").Bytes(), false},
      {"Q line", DataFile().Q(157, "1").Bytes(), false},
      {"item 9", item(9, Body().Fill(5)), false},
      {"list 21", DataFile().List(21, 5, {Body().U8(1)}).Bytes(), false},
      {"list 27", DataFile().List(27, 5, {Body().U8(1)}).Bytes(), false},
      {"item B", item('B', Body().Fill(5)), false},
      {"item D", item('D', Body().Fill(5)), false},
      {"item F", item('F', Body().Fill(5)), false},
      {"item L", item('L', Body().Fill(5)), false},
      {"item N", item('N', Body().Fill(5)), false},
      {"item T", item('T', Body().Fill(5)), false},
      {"item 128", item(128, Body().Fill(5)), false},
      {"item 133", item(133, Body().Fill(5)), false},
      {"item 255", item(255, Body().Fill(5)), false},
  };
  for (const Way& way : ways) {
    // The walk looks ahead, so that the translation need not get past what stands on the way.
    DataFile file = General();
    Mark(file, 1);
    Bands(file, {2}).Raw(way.bytes);
    Mark(file, 2).EndOfData();
    Translation const run(file, {.mostSteps = 2});
    EXPECT_EQ(OwnerHours(run), (Hours{way.found ? std::optional(2) : kNotFound})) << way.what;
  }
}

// The owner itself may be as long as a record may be, and as short.
TEST(RecordSeeker, LengthOfTheOwner) {
  struct {
    std::size_t length;
    std::optional<int> hour;
  } const rows[] = {{7, 2}, {10, 2}, {6200, 2}, {6201, kNotFound}};
  for (const auto& row : rows) {
    std::string const longest = MarkAt({2024, 6, 21, 2}).Fill(6200).Bytes();
    DataFile file = General();
    Mark(file, 1);
    Bands(file, {2}).Item(5, Body().Raw(std::string_view(longest).substr(0, row.length)));
    Translation const run(file.EndOfData(), {.mostSteps = 2});
    EXPECT_EQ(OwnerHours(run), Hours{row.hour}) << row.length;
  }
}

// An owner without any byte is found: its missing date reads as the first day of 2000.
TEST(RecordSeeker, EmptyOwner) {
  struct {
    int ownerType, bandType;
  } constexpr kRows[] = {{5, 131}, {2, 130}, {1, 129}, {1, 132}};
  for (const auto& row : kRows) {
    int const number = row.bandType == 132 ? 0 : 1;
    test::TempFile const stored(
        test::Startable(General()
                            .Item(row.ownerType, Body())
                            .Item(row.bandType, Body().U16(number).PadTo(211))
                            .EndOfData()));
    test::Session session;
    ASSERT_EQ(session.Start(stored.Path()), QV_OK);
    session.Next();
    EXPECT_EQ(session.Next(), QV_RECORD_TOO_SHORT) << row.bandType;
    EXPECT_EQ(session.As<QvLevelMarkBands>().RecordTime, Utc(2000, 1, 1)) << row.bandType;
    EXPECT_EQ(session.Next(), QV_END_OF_DATA) << row.bandType;
  }
}

// After a byte that ends the walk the family is lost until the pump meets its next record.
TEST(RecordSeeker, UnknownItemLosesTheFamily) {
  DataFile file = General();
  Mark(file, 1);
  Bands(file, {2}).Item(9, Body().Fill(5));
  Bands(file, {2});
  Mark(file, 2);
  Bands(file, {2}).EndOfData();
  EXPECT_EQ(OwnerHours(Translation(file)), (Hours{kNotFound, kNotFound, 2}));
}

// An 'R' line is read up to 80 characters behind its first; a longer one leaves a rest whose first
// character counts as a type byte.
TEST(RecordSeeker, LongLines) {
  struct {
    std::string line;
    bool found;
  } const rows[] = {
      {"R" + std::string(79, 'x') + "\n", true},
      {"R" + std::string(80, 'x') + "\n", false},
      {"R" + std::string(80, 'x') + "Rx\n", true},
      {"R\n", true},
  };
  for (const auto& row : rows) {
    DataFile file = General();
    Mark(file, 1);
    Bands(file, {2}).Raw(row.line);
    Mark(file, 2).EndOfData();
    Translation const run(file, {.mostSteps = 2});
    EXPECT_EQ(OwnerHours(run), (Hours{row.found ? std::optional(2) : kNotFound}))
        << row.line.size();
  }
}

// Streams on the way, in each form of entry; long ones, and such as close on a marker.
TEST(RecordSeeker, StreamsOnTheWay) {
  Body wide;
  for (int i = 0; i < 400; ++i) wide.Raw({1 + i % 255, 5, 5, 5});
  struct {
    const char* what;
    const char* wholeDb;
    const char* secondKind;
    Body stream;  // with its end
  } const rows[] = {
      {"empty", "0", "0", Body().U8(0)},
      {"one byte", "1", "0", Body().Fill(499, 60).U8(0)},
      {"one byte, to the block's end", "1", "0", Body().Fill(500, 60).U8(0)},
      {"one byte, several blocks", "1", "0", Body().Fill(1777, 60).U8(0)},
      {"two bytes with zero fractions", "0", "0", Body().Raw({60, 0, 61, 0, 62, 0, 0})},
      {"zero second levels", "1", "1", Body().Raw({60, 0, 61, 0, 62, 0, 0})},
      {"two levels of two bytes", "0", "1", Body(wide).U8(0)},
      {"zeros but the first bytes", "0", "1", Body().Raw({60, 0, 0, 0, 61, 0, 0, 0, 0})},
      {"markers of one byte", "1", "0", Body().Fill(1100, 0xC0).U8(0)},
      {"closed on a marker of two bytes", "0", "0", Body().Raw({60, 0, 0xC0, 0})},
      {"closed on a marker with a detail", "1", "1", Body().Raw({60, 0, 0xC0, 0})},
      {"closed on a marker of four bytes", "0", "1", Body().Raw({60, 0, 9, 9, 0xC0, 0, 0, 0})},
      {"a marker with zeros inside", "0", "1", Body().Raw({0xC0, 0, 0, 1, 60, 0, 0, 0, 0})},
  };
  for (const auto& row : rows) {
    DataFile file = General();
    file.Q(81, row.wholeDb).Q(82, row.secondKind);
    Mark(file, 1);
    Bands(file, {2}).Raw(Body().U8(6).Raw(row.stream.Bytes()).Bytes());
    Mark(file, 2);
    Bands(file, {3});
    Mark(file, 3).EndOfData();
    Translation const run(file);
    EXPECT_EQ(OwnerHours(run), (Hours{2, 3})) << row.what;
    EXPECT_EQ(run.end, QV_END_OF_DATA) << row.what;
    EXPECT_EQ(run.Records(QV_LEVEL_MARK).size(), 3U) << row.what;
  }
}

// Models 431 and 442 have their streams in item 7. An item 6 is taken for one too, though the
// translation does not get past it.
TEST(RecordSeeker, StreamsOfTheTwoModels) {
  for (const DataFile& head : {test::Model431("ENV "), test::Model442("LOG")}) {
    for (int const type : {6, 7}) {
      DataFile file = head;
      Mark(file, 1);
      Bands(file, {2}).Stream(type, Body().Raw({60, 0, 61, 0, 0xA0, 1}));
      Mark(file, 2).EndOfData();
      Translation const run(file, {.mostSteps = 2});
      EXPECT_EQ(OwnerHours(run), (Hours{2})) << type;
    }
  }
}

// The end of the file where a record should begin, within one, and within a stream: the walk ends,
// and so does the step.
TEST(RecordSeeker, FileEndsOnTheWay) {
  for (const std::string& rest :
       {std::string(), Body().U8(4).Bytes(), Body().U8(4).U8(0).Bytes(),
        Body().U8(4).U16(50).Fill(20).Bytes(), Body().U8(6).Fill(30, 60).Bytes(),
        Body().U8(6).Fill(1300, 60).Bytes(), Body().U8('R').Bytes(), Body().U8(5).Bytes()}) {
    DataFile file = General();
    file.Item(9, Body().Fill(3000, 60));  // room for the look at the tail
    Mark(file, 1);
    Bands(file, {2}).Raw(rest);
    test::TempFile const stored(file);
    Translation const run(stored.Path(), {.mostSteps = 3});
    EXPECT_EQ(OwnerHours(run), (Hours{kNotFound})) << rest.size();
    EXPECT_EQ(run.steps.back().status, QV_OK) << rest.size();
  }
}

// The look-up leaves the translation where it was: the next item comes next.
TEST(RecordSeeker, LeavesTheTranslationInPlace) {
  DataFile file = General();
  Marks(file, 1, 2);
  Bands(file, {2, 7}).Stream(6, Body().Fill(150, 60));
  Bands(file, {1}).Item(4, EventAt({2024, 6, 21}, 0)).EndOfData();
  EXPECT_EQ(Translation(file).Codes(), (std::vector{5, 5, 10, 10, 16, 16, 10, 4, 15}));
}

}  // namespace
