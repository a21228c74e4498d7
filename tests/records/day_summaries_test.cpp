// Summaries of a day: item 3. The distribution at their end has tests of its own.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/day_summary_parts.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/translation.h"

namespace {

using namespace test::day;

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::RecordImage;
using test::Setting;
using test::Translation;

// Model 500 has neither the hour tables nor a distribution, model 480 at firmware 1.0 neither, but
// the switches of new firmware.
struct Layout {
  const char* name = "";
  int model = 500;
  const char* firmware = "1.100";
  std::vector<Setting> settings = {};
  std::vector<const Body*> blocks = {};
  int flags = 0;
  std::vector<void (*)(RecordImage&)> expect = {};
};

const Body kCountersOnly = Counters();

const std::vector<Layout> kLayouts = {
    {.name = "no block"},
    {.name = "hour tables of model 486 above firmware 0.9",
     .model = 486,
     .firmware = "0.91",
     .blocks = {&kHourTables},
     .expect = {ExpectHourTables}},
    {.name = "no hour tables of model 486 at firmware 0.9", .model = 486, .firmware = "0.9"},
    {.name = "no hour tables of model 480 at firmware 1.099", .model = 480, .firmware = "1.099"},
    {.name = "hour tables of model 480 above firmware 1.099",
     .model = 480,
     .firmware = "1.1",
     .blocks = {&kHourTables},
     .expect = {ExpectHourTables}},
    {.name = "no hour tables of model 431 at firmware 1.099", .model = 431, .firmware = "1.099"},
    {.name = "hour tables of model 431 above firmware 1.099",
     .model = 431,
     .firmware = "1.1",
     .blocks = {&kHourTables},
     .expect = {ExpectHourTables}},
    {.name = "no hour tables of model 442 at firmware 1.099", .model = 442, .firmware = "1.099"},
    {.name = "hour tables of model 442",
     .model = 442,
     .firmware = "3.6",
     .blocks = {&kHourTables},
     .expect = {ExpectHourTables}},
    {.name = "no hour tables of model 487", .model = 487},

    {.name = "extra block",
     .settings = {{145, "1"}},
     .blocks = {&kExtra},
     .flags = 0x0008,
     .expect = {ExpectExtra}},
    {.name = "extra block of model 431 behind the hour tables",
     .model = 431,
     .firmware = "1.1",
     .settings = {{145, "1"}},
     .blocks = {&kHourTables, &kExtra},
     .flags = 0x0008,
     .expect = {ExpectHourTables, ExpectExtra}},
    {.name = "extra block of model 442 with both spans",
     .model = 442,
     .firmware = "3.6",
     .settings = {{145, "1"}},
     .blocks = {&kHourTables, &kExtra},
     .flags = 0x0008,
     .expect = {ExpectHourTables, ExpectExtra,
                [](RecordImage& image) { image.F32(108, 32768).F32(132, 16384); }}},
    {.name = "extra block switched by 2", .settings = {{145, "2"}}},

    {.name = "counters by register 118",
     .settings = {{118, "1"}},
     .blocks = {&kTotals, &kCountersOnly},
     .flags = 0x0080,
     .expect = {ExpectTotalsAndCounters}},
    {.name = "counters by register 118 of 7",
     .settings = {{118, "7"}},
     .blocks = {&kTotals, &kCountersOnly},
     .flags = 0x0080,
     .expect = {ExpectTotalsAndCounters}},
    {.name = "packed counters by register 120",
     .settings = {{120, "1"}},
     .blocks = {&kTotals, &kPairs},
     .flags = 0x0040,
     .expect = {ExpectTotalsAndPairs}},
    {.name = "packed counters by both",
     .settings = {{118, "2"}, {120, "3"}},
     .blocks = {&kTotals, &kPairs},
     .flags = 0x00C0,
     .expect = {ExpectTotalsAndPairs}},
    {.name = "no counters of firmware 0.9",
     .firmware = "0.9",
     .settings = {{118, "1"}, {120, "1"}}},

    {.name = "percentiles",
     .settings = {{206, "1"}},
     .blocks = {&kPercentiles},
     .flags = 0x0200,
     .expect = {ExpectPercentiles}},
    {.name = "percentiles switched by 2", .settings = {{206, "2"}}},
    {.name = "no percentiles by the switch of summaries", .settings = {{77, "1"}}},
    {.name = "no percentiles of firmware 0.9", .firmware = "0.9", .settings = {{206, "1"}}},
    {.name = "percentiles of model 480 at firmware 1.0",
     .model = 480,
     .firmware = "1.0",
     .settings = {{206, "1"}},
     .blocks = {&kPercentiles},
     .flags = 0x0200,
     .expect = {ExpectPercentiles}},
    {.name = "percentiles of model 431",
     .model = 431,
     .firmware = "1.0",
     .settings = {{206, "1"}},
     .blocks = {&kWidePercentiles},
     .flags = 0x0200,
     .expect = {ExpectWidePercentiles}},
    {.name = "percentiles of model 442 at firmware 3.116",
     .model = 442,
     .firmware = "3.116",
     .settings = {{206, "1"}},
     .blocks = {&kHourTables, &kPercentiles},
     .flags = 0x0200,
     .expect = {ExpectHourTables, ExpectPercentiles}},
    {.name = "percentiles of model 442 above firmware 3.116",
     .model = 442,
     .firmware = "3.117",
     .settings = {{206, "1"}},
     .blocks = {&kHourTables, &kWidePercentiles},
     .flags = 0x0200,
     .expect = {ExpectHourTables, ExpectWidePercentiles}},

    {.name = "everything",
     .model = 486,
     .settings = {{118, "1"}, {120, "1"}, {145, "1"}, {206, "1"}},
     .blocks = {&kHourTables, &kExtra, &kTotals, &kPairs, &kPercentiles},
     .flags = 0x02C8,
     .expect = {ExpectHourTables, ExpectExtra, ExpectTotalsAndPairs, ExpectPercentiles}},
};

Body BodyOf(const Layout& layout) {
  Body body = Head();
  for (const Body* const block : layout.blocks) body.Raw(block->Bytes());
  return body;
}

RecordImage ImageOf(const Layout& layout) {
  RecordImage image = HeadImage(layout.model);
  image.U16(16, layout.flags);
  for (auto* const expect : layout.expect) expect(image);
  return image;
}

// Bytes behind the layout would show in the fields behind it if it were read too far.
TEST(DaySummaries, HoldTheBlocksThatTheSettingsAnnounce) {
  for (const Layout& layout : kLayouts) {
    SCOPED_TRACE(layout.name);
    DataFile file = test::LoggingFile(layout.model, layout.firmware).Q(9, "1");
    AddSettings(file, layout.settings);
    Translation const run(file.Item(3, BodyOf(layout).Fill(500, 0x77)).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 3, 15}));
    EXPECT_EQ(run.steps[1].status, QV_OK);
    EXPECT_EQ(Difference(ImageOf(layout), run.Records()[1]), "");
  }
}

// A distribution behind the blocks proves where they ended.
TEST(DaySummaries, HoldADistributionBehindTheirBlocks) {
  for (const Layout& layout : kLayouts) {
    bool const hasDistribution = layout.model == 486 && std::string(layout.firmware) != "0.9";
    if (!hasDistribution) continue;
    SCOPED_TRACE(layout.name);
    DataFile file = test::LoggingFile(layout.model, layout.firmware).Q(210, "16");
    AddSettings(file, layout.settings);
    Body const body = BodyOf(layout).Raw(Distribution().Bytes());
    Translation const run(file.Item(3, body).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 3, 15}));
    RecordImage image = ImageOf(layout).U16(16, layout.flags | 0x0100);
    ExpectDistribution(image);
    EXPECT_EQ(Difference(image, run.Records()[1]), "");
  }
}

// What only a setup sets: position 47 of a logging setup is 128 for percentiles and 32 for the
// distribution, position 49 is 64 for the extra block.
TEST(DaySummaries, TakeTheirBlocksFromALoggingSetupToo) {
  Body const setup = test::EmptySetup(2).Set(47, {128 + 32}).Set(49, {64});
  DataFile file = test::Model442("LOG", "3.6").Item(test::kSetupItem, setup);
  Body const body = Head()
                        .Raw(kHourTables.Bytes())
                        .Raw(kExtra.Bytes())
                        .Raw(kWidePercentiles.Bytes())
                        .Raw(Distribution().Bytes());
  Translation const run(file.Item(3, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{53, 3, 15}));
  RecordImage image = HeadImage(442).U16(16, 0x0308);
  ExpectHourTables(image);
  ExpectExtra(image);
  image.F32(108, 32768).F32(132, 16384);
  ExpectWidePercentiles(image);
  ExpectDistribution(image);
  EXPECT_EQ(Difference(image, run.Records()[1]), "");
}

}  // namespace
