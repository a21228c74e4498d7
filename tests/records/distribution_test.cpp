// Level distributions of summaries and day summaries: base bytes, both forms, and which files hold
// them.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Setting;
using test::Translation;

constexpr std::size_t kSummaryHead = 27;
constexpr std::size_t kDayHead = 71;
constexpr std::size_t kHourTables = 96;
constexpr int kDistributionFlag = 0x0100;

Body Counting(std::size_t size, int first) {
  Body body;
  for (std::size_t i = 0; i < size; ++i) body.U8(static_cast<int>(i % 251) + first);
  return body;
}

QvDaySummary OneDay(DataFile file, const Body& body) {
  Translation const run(file.Item(3, body).EndOfData());
  if (run.Records(QV_DAY_SUMMARY).size() != 1) {
    ADD_FAILURE() << "no day summary";
    return {};
  }
  return run.As<QvDaySummary>(0, QV_DAY_SUMMARY);
}

struct BaseRow {
  const char* offset;
  std::array<int, 3> base;  // whole decibels, tenths, hundredths
};

// Each step keeps the low 8 bits and goes on from them: -2.5 gives 254, then -2565 gives 251, then
// -28159 gives 1; 256.5 gives 0, then 2565 gives 5, then 25600 gives 0.
const std::vector<BaseRow> kBaseRows = {
    {"0", {0, 0, 0}},        {"23.45", {23, 4, 5}}, {"5.25", {5, 2, 5}},     {"0.99", {0, 9, 9}},
    {"12.3", {12, 3, 0}},    {"1.5", {1, 5, 0}},    {"255.75", {255, 7, 5}}, {"256.5", {0, 5, 0}},
    {"-2.5", {254, 251, 1}}, {"-1", {255, 0, 1}},
};

TEST(Distribution, OfOtherModelsThan442BeginsWithTheDigitsOfTheLevelOffset) {
  for (const BaseRow& row : kBaseRows) {
    SCOPED_TRACE(row.offset);
    DataFile file = test::General().Q(227, row.offset).Q(210, "17");
    Body const summary = Body().Fill(kSummaryHead).Raw({91, 92, 93}).Fill(381, 7);
    Body const day = Body().Fill(kDayHead + kHourTables).Raw({91, 92, 93}).Fill(437, 7);
    Translation const run(file.Item(2, summary).Item(3, day).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 2, 3, 15}));
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_EQ(run.As<QvSummary>(1).Distribution[i], row.base[i]) << i;
      EXPECT_EQ(run.As<QvDaySummary>(2).Distribution[i], row.base[i]) << i;
    }
    EXPECT_EQ(run.As<QvSummary>(1).Distribution[3], 7);
    EXPECT_EQ(run.As<QvDaySummary>(2).Distribution[3], 7);
  }
}

TEST(Distribution, OfModel442KeepsTheBaseOfTheFile) {
  DataFile file = test::Model442("LOG", "3.6").Q(227, "23.45").Q(210, "17");
  Body const summary = Body().Fill(kSummaryHead).Raw({91, 92, 93}).Fill(381, 7);
  Body const day = Body().Fill(kDayHead + kHourTables).Raw({91, 92, 93}).Fill(437, 7);
  Translation const run(file.Item(2, summary).Item(3, day).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 2, 3, 15}));
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(run.As<QvSummary>(1).Distribution[i], 91 + i);
    EXPECT_EQ(run.As<QvDaySummary>(2).Distribution[i], 91 + i);
  }
}

TEST(Distribution, HasNoBaseWhereThereIsNone) {
  DataFile file = test::General().Q(227, "23.45");
  Translation const run(
      file.Item(2, Body().Fill(kSummaryHead)).Item(3, Body().Fill(kDayHead)).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 2, 3, 15}));
  EXPECT_EQ(run.As<QvSummary>(1).DistributionPresent, 0);
  EXPECT_EQ(run.As<QvDaySummary>(2).DistributionPresent, 0);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(run.As<QvSummary>(1).Distribution[i], 0);
    EXPECT_EQ(run.As<QvDaySummary>(2).Distribution[i], 0);
  }
}

TEST(Distribution, OfSummariesIsCopied) {
  DataFile file = test::General().Q(210, "1");
  Body const body = Body().Fill(kSummaryHead).Raw(Counting(384, 0).Bytes()).Fill(60, 0x77);
  Translation const run(file.Item(2, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 2, 15}));
  auto const summary = run.As<QvSummary>(1);
  EXPECT_EQ(summary.DistributionPresent, 1);
  for (std::size_t i = 3; i < 384; ++i) EXPECT_EQ(summary.Distribution[i], i % 251) << i;
  for (const std::uint8_t byte : summary.Reserved545) EXPECT_EQ(byte, 0);
}

enum class Form { kNone, kShort, kLong };

struct FormRow {
  int model;
  const char* firmware;
  Setting setting;
  std::size_t head;
  Form form;
};

const std::vector<FormRow> kFormRows = {
    {486, "0.9", {206, "1"}, kDayHead, Form::kLong},
    {486, "0.9", {206, "9"}, kDayHead, Form::kLong},
    {486, "0.9", {206, "0"}, kDayHead, Form::kNone},
    {486, "0.9", {210, "16"}, kDayHead, Form::kNone},
    {486, "0.91", {210, "16"}, kDayHead + kHourTables, Form::kShort},
    {486, "0.91", {210, "1"}, kDayHead + kHourTables, Form::kNone},
    {486, "1.1", {210, "255"}, kDayHead + kHourTables, Form::kShort},
    {480, "0.9", {206, "1"}, kDayHead, Form::kNone},
    {480, "1.099", {210, "16"}, kDayHead, Form::kNone},
    {480, "1.1", {210, "16"}, kDayHead + kHourTables, Form::kShort},
    {431, "0.9", {206, "1"}, kDayHead, Form::kShort},
    {431, "1.099", {210, "16"}, kDayHead, Form::kShort},
    {431, "1.1", {210, "16"}, kDayHead + kHourTables, Form::kShort},
    {442, "0.9", {206, "1"}, kDayHead, Form::kShort},
    {442, "1.099", {210, "16"}, kDayHead, Form::kShort},
    {442, "3.6", {210, "16"}, kDayHead + kHourTables, Form::kShort},
    {487, "0.9", {206, "1"}, kDayHead, Form::kNone},
    {487, "1.1", {210, "16"}, kDayHead, Form::kNone},
};

// The body holds 1 in every byte behind the head: the short form shows it as it stands, while the
// long form shows sums of eight counts.
TEST(Distribution, OfDaySummariesHasTheFormOfModelAndFirmware) {
  for (const FormRow& row : kFormRows) {
    SCOPED_TRACE(std::to_string(row.model) + ", " + row.firmware + ", " +
                 std::to_string(row.setting.number));
    DataFile file = test::LoggingFile(row.model, row.firmware);
    test::AddSettings(file, {row.setting});
    auto const day = OneDay(file, Body().Fill(row.head).Fill(3112, 1));
    bool const present = row.form != Form::kNone;
    EXPECT_EQ(day.DistributionPresent, present ? 1 : 0);
    EXPECT_EQ(day.DayFlags & kDistributionFlag, present ? kDistributionFlag : 0);
    int const count = row.form == Form::kNone ? 0 : row.form == Form::kShort ? 1 : 8;
    EXPECT_EQ(day.Distribution[3], count);
    EXPECT_EQ(day.Distribution[383], count);
    EXPECT_EQ(day.Distribution[384], row.form == Form::kShort ? 1 : 0);
    EXPECT_EQ(day.Distribution[385], present ? 1 : 0);
    EXPECT_EQ(day.Distribution[424], present ? 1 : 0);
    EXPECT_EQ(day.Distribution[425], row.form == Form::kShort ? 1 : 0);
    EXPECT_EQ(day.Distribution[439], row.form == Form::kShort ? 1 : 0);
  }
}

TEST(Distribution, OfDaySummariesIsCopiedInTheShortForm) {
  DataFile file = test::General().Q(210, "16");
  Body const body =
      Body().Fill(kDayHead + kHourTables).Raw(Counting(440, 0).Bytes()).Fill(60, 0x77);
  auto const day = OneDay(file, body);
  for (std::size_t i = 3; i < 440; ++i) EXPECT_EQ(day.Distribution[i], i % 251) << i;
  for (const std::uint8_t byte : day.Reserved1017) EXPECT_EQ(byte, 0);
}

// A long form: three bytes that are dropped, 1023 counts, 40 bytes.
class LongForm {
 public:
  // Count n, from 0, belongs to the level base + (n + 1) / 8.
  LongForm& Count(std::size_t n, int count) {
    counts_.Set(3 * n, {count >> 16, count >> 8, count});
    return *this;
  }
  Body Day() const {
    Body body;
    body.Fill(kDayHead).Raw({0x81, 0x82, 0x83}).Raw(Body(counts_).PadTo(3069).Bytes());
    for (int i = 0; i < 40; ++i) body.U8(100 + i);
    return body.Fill(16, 0x77);
  }

 private:
  Body counts_;
};

int Entry(const QvDaySummary& day, std::size_t k) {
  const std::uint8_t* const bytes = day.Distribution + 3 + 3 * k;
  return bytes[0] * 65536 + bytes[1] * 256 + bytes[2];
}

// The entries named are expected, all others zero.
void ExpectEntries(const QvDaySummary& day, const std::vector<std::pair<std::size_t, int>>& named) {
  std::array<int, 127> expected{};
  for (const auto& [k, value] : named) expected.at(k) = value;
  for (std::size_t k = 0; k < 127; ++k) EXPECT_EQ(Entry(day, k), expected[k]) << "entry " << k;
}

DataFile OldFile(const char* offset) {
  return test::General("0.9").Q(206, "1").Q(227, offset);
}

TEST(Distribution, LongFormSumsEighthsIntoWholeDecibels) {
  LongForm form;
  form.Count(0, 1).Count(6, 2);                    // 0.125 and 0.875, below the first entry
  form.Count(7, 0x010000).Count(14, 0x000102);     // 1.0 and 1.875
  form.Count(15, 7);                               // 2.0
  form.Count(23, 10).Count(24, 20).Count(30, 30);  // 3.0, 3.125 and 3.875
  form.Count(1014, 0x123456);                      // 126.875
  form.Count(1015, 5).Count(1022, 6);              // 127.0 and 127.875
  auto const day = OneDay(OldFile("0"), form.Day());
  EXPECT_EQ(day.DistributionPresent, 1);
  EXPECT_EQ(day.DayFlags, kDistributionFlag);
  ExpectEntries(day, {{0, 0x010102}, {1, 7}, {2, 60}, {125, 0x123456}, {126, 11}});
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(day.Distribution[i], 0) << i;
  EXPECT_EQ(day.Distribution[384], 0);
  for (std::size_t i = 0; i < 40; ++i) EXPECT_EQ(day.Distribution[385 + i], 100 + i) << i;
  for (std::size_t i = 425; i < 440; ++i) EXPECT_EQ(day.Distribution[i], 0) << i;
  for (const std::uint8_t byte : day.Reserved1017) EXPECT_EQ(byte, 0);
}

TEST(Distribution, LongFormKeepsThreeBytesOfASum) {
  LongForm form;
  for (std::size_t n = 7; n < 15; ++n) form.Count(n, 0xFFFFFF);  // 8 * 0xFFFFFF = 0x7FFFFF8
  auto const day = OneDay(OldFile("0"), form.Day());
  ExpectEntries(day, {{0, 0xFFFFF8}});
}

TEST(Distribution, LongFormBeginsAtTheLevelOffset) {
  LongForm form;
  form.Count(0, 1).Count(4, 2);        // 5.375 and 5.875, below the first entry
  form.Count(5, 3).Count(12, 4);       // 6.0 and 6.875
  form.Count(13, 5);                   // 7.0
  form.Count(1013, 6);                 // 132.0, the last entry
  form.Count(1020, 7);                 // 132.875
  form.Count(1021, 8).Count(1022, 9);  // 133.0 and 133.125, behind it
  auto const day = OneDay(OldFile("5.25"), form.Day());
  ExpectEntries(day, {{0, 7}, {1, 5}, {126, 13}});
  EXPECT_EQ(day.Distribution[0], 5);
  EXPECT_EQ(day.Distribution[1], 2);
  EXPECT_EQ(day.Distribution[2], 5);
}

TEST(Distribution, LongFormLosesWhatLiesOver150) {
  LongForm form;
  form.Count(7, 3);                   // 31.0
  form.Count(959, 4).Count(966, 5);   // 150.0 and 150.875
  form.Count(967, 6).Count(1022, 7);  // 151.0 and 157.875
  auto const day = OneDay(OldFile("30"), form.Day());
  ExpectEntries(day, {{0, 3}, {119, 9}});
}

TEST(Distribution, LongFormLosesWhatLiesBelow0) {
  LongForm form;
  form.Count(3, 1);                // -2.0
  form.Count(4, 2).Count(11, 3);   // -1.875 and -1.0
  form.Count(12, 4).Count(26, 5);  // -0.875 and 0.875, both 0 when cut
  form.Count(27, 6);               // 1.0
  auto const day = OneDay(OldFile("-2.5"), form.Day());
  // The first entry stands for -1.
  ExpectEntries(day, {{1, 9}, {2, 6}});
  EXPECT_EQ(day.Distribution[0], 254);
  EXPECT_EQ(day.Distribution[1], 251);
  EXPECT_EQ(day.Distribution[2], 1);
}

TEST(Distribution, LongFormOfAnAbsurdOffsetIsEmpty) {
  for (const char* const offset : {"-1000", "1000", "99999999999", "-99999999999"}) {
    SCOPED_TRACE(offset);
    LongForm form;
    for (std::size_t n = 0; n < 1023; ++n) form.Count(n, 1);
    ExpectEntries(OneDay(OldFile(offset), form.Day()), {});
  }
}

}  // namespace
