// What the records of results take from the settings before them, in the layouts of all models.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::DataFile;

struct GeneralResults {
  using Record = QvResults;
  static constexpr int kCode = 8;
  static constexpr int kModel = 486;
  static DataFile Start(const char* firmware) { return General(firmware); }
};

struct Results431 {
  using Record = QvResults431;
  static constexpr int kCode = 37;
  static constexpr int kModel = 431;
  static DataFile Start(const char* firmware) { return Model431("iSLM", firmware); }
};

struct Results442 {
  using Record = QvResults442;
  static constexpr int kCode = 55;
  static constexpr int kModel = 442;
  static DataFile Start(const char* firmware) { return Model442("LOG", firmware); }
};

template <class Layout>
class ResultsRecord : public testing::Test {
 protected:
  using Record = typename Layout::Record;

  // The record of a block behind settings with the given lines.
  static Record Behind(const std::vector<Setting>& lines, const char* firmware = "1.1") {
    DataFile file = Layout::Start(firmware);
    Translation const run(AddSettings(file, lines).R(2, "").EndOfData());
    EXPECT_EQ(run.Codes(), (std::vector<int>{7, Layout::kCode, 15}));
    return run.As<Record>(0, Layout::kCode);
  }
};

using Layouts = testing::Types<GeneralResults, Results431, Results442>;
TYPED_TEST_SUITE(ResultsRecord, Layouts);

TYPED_TEST(ResultsRecord, HasCodeSiteAndModel) {
  auto const results = this->Behind({{157, "513"}});
  EXPECT_EQ(results.RecordType, TypeParam::kCode);
  EXPECT_EQ(results.SiteNumber, 513);
  EXPECT_EQ(results.Model, TypeParam::kModel);
}

TYPED_TEST(ResultsRecord, ShowsTheKeptSettings) {
  auto const results = this->Behind({{46, "1046"},
                                     {47, "1047"},
                                     {49, "1049"},
                                     {50, "1050"},
                                     {53, "1053"},
                                     {54, "1054"},
                                     {146, "1146"},
                                     {147, "147.5"},
                                     {147, "abc"}});
  EXPECT_EQ(results.SetupKeptB, 1046);
  EXPECT_EQ(results.SettingQ47, 1047);
  EXPECT_EQ(results.SetupKeptA, 1049);
  EXPECT_EQ(results.SettingQ50, 1050);
  EXPECT_EQ(results.SettingQ53, 1053);
  EXPECT_EQ(results.SettingQ54, 1054);
  EXPECT_EQ(results.ModeFormFlag, 1146);
  if constexpr (requires { results.SettingQ147; }) {
    EXPECT_EQ(results.SettingQ147, 147.5F);
  }
}

TYPED_TEST(ResultsRecord, ShowsSixKeptValuesUnlessTheFirstIsMinusOne) {
  struct Row {
    std::vector<Setting> lines;
    std::vector<float> kept;
  };
  const std::vector<Row> rows = {
      {{{9, "1"}}, {0, 0, 0, 0, 0, 0}},
      {{{55, "1"}, {56, "2"}, {57, "-3"}, {58, "70000"}, {59, "5.9"}, {60, "x"}},
       {1, 2, -3, 70000, 5, 0}},
      {{{55, "-1"}, {56, "2"}, {57, "3"}, {58, "4"}, {59, "5"}, {60, "6"}}, {0, 0, 0, 0, 0, 0}},
      {{{55, "0"}, {56, "-1"}, {57, "3"}, {58, "4"}, {59, "5"}, {60, "6"}}, {0, -1, 3, 4, 5, 6}},
  };
  for (const Row& row : rows) {
    auto const results = this->Behind(row.lines);
    for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(results.KeptSixValues[i], row.kept[i]) << i;
  }
}

TYPED_TEST(ResultsRecord, ShowsTheChannels) {
  auto const results = this->Behind({{121, "name 1"},
                                     {124, "u1"},
                                     {129, "123456789012"},
                                     {132, "units two"},
                                     {137, "3"},
                                     {140, "u3"}});
  EXPECT_STREQ(results.AuxName0, "name 1");
  EXPECT_STREQ(results.AuxName1, "123456789");
  EXPECT_STREQ(results.AuxName2, "3");
  EXPECT_STREQ(results.AuxUnits0, "u1");
  EXPECT_STREQ(results.AuxUnits1, "units");
  EXPECT_STREQ(results.AuxUnits2, "u3");
}

struct FlagRow {
  const char* name;
  const char* firmware;
  std::vector<Setting> lines;
  int flags;
};

TYPED_TEST(ResultsRecord, FlagsTheSwitches) {
  const std::vector<FlagRow> rows = {
      {"none", "1.1", {{9, "1"}}, 0},
      {"209", "1.1", {{209, "5"}}, 0x0002},
      {"209 of -1", "1.1", {{209, "-1"}}, 0x0002},
      {"209 of 0", "1.1", {{209, "0"}}, 0},
      {"channels in intervals", "1.1", {{71, "1"}}, 0x0004},
      {"channels in intervals by 2", "1.1", {{71, "2"}}, 0},
      {"channels in summaries", "1.1", {{78, "1"}}, 0x0004},
      {"channels in summaries by 2", "1.1", {{78, "2"}}, 0},
      {"second channel", "1.1", {{119, "2"}}, 0x0014},
      {"second channel by 0", "1.1", {{119, "0"}}, 0},
      {"second channel of old firmware", "0.9", {{119, "2"}}, 0},
      {"spans", "1.1", {{145, "1"}}, 0x0008},
      {"spans by 2", "1.1", {{145, "2"}}, 0},
      {"120", "1.1", {{120, "2"}}, 0x0040},
      {"120 of old firmware", "0.9", {{120, "2"}}, 0},
      {"118", "1.1", {{118, "9"}}, 0x0080},
      {"118 of old firmware", "0.9", {{118, "2"}}, 0},
      {"all", "1.1", {{71, "1"}, {118, "1"}, {119, "1"}, {120, "1"}, {145, "1"}, {209, "1"}}, 0xDE},
  };
  for (const FlagRow& row : rows) {
    EXPECT_EQ(this->Behind(row.lines, row.firmware).ResultFlags, row.flags) << row.name;
  }
}

TYPED_TEST(ResultsRecord, ItsStopTimeRaisesTheLatestTime) {
  Translation const run(TypeParam::Start("1.1")
                            .R(6, "21Jun2024 13:00:00")
                            .Q(9, "1")
                            .R(6, "21Jun2024 12:30:00")
                            .Q(9, "1")
                            .R(2, "")
                            .EndOfData());
  ASSERT_EQ(run.Records(TypeParam::kCode).size(), 3U);
  EXPECT_EQ(run.template As<typename TypeParam::Record>(0, TypeParam::kCode).StopTime, 1718974800);
  EXPECT_EQ(run.template As<typename TypeParam::Record>(1, TypeParam::kCode).StopTime, 1718973000);
  EXPECT_EQ(run.template As<typename TypeParam::Record>(2, TypeParam::kCode).StopTime, 0);
  EXPECT_EQ(run.template As<QvEnd>(0, QV_END).LatestRecordTime, 1718974800);
}

}  // namespace
}  // namespace test
