// What each sample holds, by the number of its records, and how the census agrees with them.
#include <gtest/gtest.h>

#include <numeric>

#include "samples/sample_check.h"

namespace test {
namespace {

struct Content {
  const char* name;
  int code;
  std::size_t count;
};

constexpr Content kContents[] = {
    {"general_spine.qvd", QV_SETTINGS, 1},
    {"general_spine.qvd", QV_EVENT, 18},
    {"general_spine.qvd", QV_LEVEL_MARK, 160},
    {"general_short_term.qvd", QV_INTERVAL, 15},
    {"general_short_term.qvd", QV_SUMMARY, 1},
    {"general_short_term.qvd", QV_RESULTS, 1},
    {"general_day.qvd", QV_INTERVAL, 1440},
    {"general_day.qvd", QV_SUMMARY, 24},
    {"general_day.qvd", QV_DAY_SUMMARY, 1},
    // 85 records of the morning's four runs, 22 of the afternoon, 3 of the evening.
    {"general_time_history.qvd", QV_TIME_HISTORY, 110},
    {"general_time_history.qvd", QV_EVENT, 16},
    {"general_time_history.qvd", QV_SETTINGS, 3},
    {"general_settings_form.qvd", QV_INTERVAL, 60},
    {"general_settings_form.qvd", QV_TIME_HISTORY, 5},
    {"general_title_form.qvd", QV_LEVEL_MARK, 40},
    {"general_end_stamps.qvd", QV_INTERVAL, 48},
    {"general_firmware_09.qvd", QV_INTERVAL, 24},
    {"general_firmware_09.qvd", QV_DAY_SUMMARY, 2},
    {"general_older_model.qvd", QV_INTERVAL, 60},
    {"general_blocks.qvd", QV_BLOCK_IMAGE, 2},
    {"model431_octaves.qvd", QV_SETUP_BAND_431, 2},
    {"model431_octaves.qvd", QV_BANDS_431, 12},
    {"model431_octaves.qvd", QV_REFERENCE_431, 1},
    {"model431_octaves.qvd", QV_SITE_431, 1},
    {"model431_octaves.qvd", QV_RESULTS_431, 1},
    {"model431_short.qvd", QV_SETUP_SHORT_431, 1},
    {"model431_short.qvd", QV_SUMMARY_431, 12},
    {"model431_logging.qvd", QV_SETUP_LOGGING_431, 1},
    {"model431_logging.qvd", QV_INTERVAL, 60},
    {"model431_logging.qvd", QV_LEVEL_MARK, 7},
    {"model431_logging.qvd", QV_TIME_HISTORY, 18},
    {"model431_environment.qvd", QV_INTERVAL, 24},
    {"model431_environment.qvd", QV_TIME_HISTORY, 10},
    {"model442_spectra.qvd", QV_SETUP_BAND, 3},
    {"model442_spectra.qvd", QV_SPECTRUM_SUMMARY, 7},
    {"model442_spectra.qvd", QV_TIMED_SPECTRUM, 52},
    {"model442_spectra.qvd", QV_FIELD_HISTORY, 63},
    {"model442_spectra.qvd", QV_BLOCK_IMAGE, 1},
    {"model442_short.qvd", QV_SETUP_SHORT, 1},
    {"model442_short.qvd", QV_LEVEL_MARK, 30},
    {"model442_logging.qvd", QV_SETUP_LOGGING, 1},
    {"model442_logging.qvd", QV_INTERVAL, 60},
    {"model442_logging.qvd", QV_TIME_HISTORY, 12},
    {"model442_logging.qvd", QV_FIELD_HISTORY, 63},
    {"model442_logging.qvd", QV_RESULTS_442, 1},
    {"model442_environment.qvd", QV_INTERVAL, 48},
    {"model442_environment.qvd", QV_TIME_HISTORY, 14},
    {"model442_bands.qvd", QV_SETUP_SPECTRUM, 2},
    {"model442_bands.qvd", QV_INTERVAL, 40},
    {"model442_bands.qvd", QV_BAND_TABLE, 8},
    {"model442_bands.qvd", QV_TIMED_SPECTRUM, 40},
    {"model442_narrow.qvd", QV_SETUP_NARROW, 1},
    {"model442_narrow.qvd", QV_NARROW_TABLE, 8},
    {"model442_tally.qvd", QV_SETUP_TALLY, 1},
    {"model442_tally.qvd", QV_TALLY_LEVELS, 10},
    {"model442_tally.qvd", QV_TALLY_BANDS, 10},
    {"model442_tally.qvd", QV_TALLY_TOTALS, 10},
    {"model442_tally.qvd", QV_TIMED_SPECTRUM, 15},
    {"model442_tally.qvd", QV_FIELD_HISTORY, 83},
    {"bands_general.qvd", QV_LEVEL_MARK_BANDS, 4},
    {"bands_general.qvd", QV_INTERVAL_BANDS, 5},
    {"bands_general.qvd", QV_SUMMARY_BANDS, 3},
    {"bands_general.qvd", QV_INTERVAL_BAND_SERIES, 9},
    {"bands_model431.qvd", QV_INTERVAL_BANDS, 5},
    {"bands_model431.qvd", QV_INTERVAL_BAND_SERIES, 9},
    {"bands_model442.qvd", QV_INTERVAL_BANDS, 5},
    {"bands_model442.qvd", QV_INTERVAL_BAND_SERIES, 9},
    {"night_europe.qvd", QV_INTERVAL, 48},
    {"night_america.qvd", QV_LEVEL_MARK, 8},
};

TEST(SampleContents, AreWhatTheirDescriptionsSay) {
  for (const Content& content : kContents) {
    EXPECT_EQ(Translation(SamplePath(content.name)).Records(content.code).size(), content.count)
        << content.name << ", code " << content.code;
  }
}

TEST(SampleContents, HoldEveryTypeCode) {
  std::vector<bool> seen(100);
  for (const samples::SampleEntry& entry : samples::AllSamples()) {
    for (int const code : Translation(SamplePath(entry.name)).Codes()) {
      seen.at(static_cast<std::size_t>(code)) = true;
    }
  }
  for (int const code :
       {1,  2,  3,  4,  5,  7,  8,  9,  10, 11, 12, 13, 15, 16, 21, 30, 31, 32, 33, 34,
        35, 36, 37, 50, 51, 52, 53, 54, 55, 56, 57, 60, 63, 66, 67, 68, 69, 70, 72}) {
    EXPECT_TRUE(seen[static_cast<std::size_t>(code)]) << "code " << code;
  }
}

TEST(SampleContents, TellTheirSitesInTheirSettings) {
  struct Row {
    const char* name;
    int status;
    int sites;
  };
  for (const Row& row :
       {Row{"general_spine.qvd", QV_OK, 7}, Row{"general_day.qvd", QV_OK, 3},
        Row{"general_settings_form.qvd", QV_OK, 3}, Row{"model442_logging.qvd", QV_OK, 4},
        Row{"model431_logging.qvd", QV_NO_TEXT_HEADER, 0}}) {
    GuardedBuffer const context(QV_GetBufferSize());
    std::int16_t sites = -5;
    EXPECT_EQ(QV_ReadSiteNum(SamplePath(row.name).c_str(), context.Data(), &sites), row.status)
        << row.name;
    EXPECT_EQ(sites, row.sites) << row.name;
  }
}

TEST(SampleContents, TellTheirHeaders) {
  GuardedBuffer const context(QV_GetBufferSize());
  QvFileHeaderInfo info;
  ASSERT_EQ(QV_ReadFileHeader(SamplePath("general_title_form.qvd").c_str(), context.Data(), &info),
            QV_OK);
  EXPECT_STREQ(info.TitleLine1, " Noise of the new road");
  EXPECT_STREQ(info.TitleLine2, " Before the works");
  EXPECT_STREQ(info.TitleLine3, " Station 4");
  EXPECT_STREQ(info.HeaderLine1, "* traffic noise");
  EXPECT_STREQ(info.HeaderLine2, "486 2071");
  EXPECT_STREQ(info.HeaderLine3, "1.200");
  EXPECT_STREQ(info.HeaderLine5, "Date/Time:21Jun2024 08:00:00");
  EXPECT_STREQ(info.HeaderLine6, "");
  ASSERT_EQ(QV_ReadFileHeader(SamplePath("model442_tally.qvd").c_str(), context.Data(), &info),
            QV_OK);
  EXPECT_STREQ(info.HeaderLine2, "442 31415");
  EXPECT_STREQ(info.HeaderLine6, "TAL");
  EXPECT_EQ(
      QV_ReadFileHeader(SamplePath("general_settings_form.qvd").c_str(), context.Data(), &info),
      QV_NO_TEXT_HEADER);
  EXPECT_STREQ(info.HeaderLine1, "");
}

class SampleCensus : public testing::TestWithParam<samples::SampleEntry> {};

TEST_P(SampleCensus, AgreesWithWhatTheTranslationDelivers) {
  Translation const run(SamplePath(GetParam().name), {.census = true});
  ASSERT_EQ(run.census, QV_OK);
  const QvRecordCensus& counts = run.counts;
  auto const delivered = [&](std::initializer_list<int> codes) {
    std::size_t sum = 0;
    for (int const code : codes) sum += run.Records(code).size();
    return sum;
  };
  std::vector<Step> const histories = run.Records(QV_TIME_HISTORY);
  std::size_t const entries = std::accumulate(
      histories.begin(), histories.end(), std::size_t{0}, [](std::size_t sum, const Step& step) {
        return sum + Translation::Copy<QvTimeHistory>(step).EntryCount;
      });

  EXPECT_EQ(counts.LevelMarks, delivered({5}));
  EXPECT_EQ(counts.LevelMarkBands, delivered({10}));
  EXPECT_EQ(counts.DaySummaries, delivered({3}));
  EXPECT_EQ(counts.Intervals + counts.BandIntervals, delivered({1}));
  EXPECT_EQ(counts.IntervalBands, delivered({11}));
  EXPECT_EQ(counts.IntervalBandSeries, delivered({13}));
  EXPECT_EQ(counts.Summaries, delivered({2}));
  EXPECT_EQ(counts.SummaryBands, delivered({12}));
  EXPECT_EQ(counts.Unused40, 0U);
  EXPECT_EQ(counts.Events + counts.EventsMode0 + counts.EventsMode5, delivered({4}));
  EXPECT_EQ(counts.SettingsBlocks, delivered({7}));
  EXPECT_EQ(counts.ResultsBlocks + counts.ResultsBlocksMode0, delivered({8, 37, 55}));
  EXPECT_EQ(counts.StreamEntries + counts.ListBlocksMode0 + counts.ListBlocksMode4 +
                counts.ListBlocksMode7,
            entries + delivered({21, 57}));
  EXPECT_EQ(counts.Sites, delivered({36, 54}));
  EXPECT_EQ(counts.References, delivered({30, 50}));
  EXPECT_EQ(counts.SetupBands431, delivered({33}));
  EXPECT_EQ(counts.SetupShorts431, delivered({34}));
  EXPECT_EQ(counts.SetupLoggings431, delivered({35}));
  EXPECT_EQ(counts.Bands431, delivered({31}));
  EXPECT_EQ(counts.Summaries431, delivered({32}));
  EXPECT_EQ(counts.SetupBands, delivered({51}));
  EXPECT_EQ(counts.SetupShorts, delivered({52}));
  EXPECT_EQ(counts.SetupLoggings, delivered({53}));
  EXPECT_EQ(counts.SetupSpectra, delivered({70}));
  EXPECT_EQ(counts.SetupNarrows, delivered({63}));
  EXPECT_EQ(counts.SetupTallies, delivered({60}));
  EXPECT_EQ(counts.SpectrumSummaries, delivered({56}));
  EXPECT_EQ(counts.Tallies, delivered({66, 67, 68}));
  EXPECT_EQ(counts.NarrowTables, delivered({69}));
  EXPECT_EQ(counts.BandTables, delivered({72}));
}

INSTANTIATE_TEST_SUITE_P(All, SampleCensus, testing::ValuesIn(samples::AllSamples()),
                         [](const auto& instance) {
                           std::string const name = instance.param.name;
                           return name.substr(0, name.find('.'));
                         });

}  // namespace
}  // namespace test
