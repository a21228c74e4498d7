#include "census_agreement.h"

#include <algorithm>
#include <initializer_list>

#include "oracles.h"

namespace fuzz {

namespace {

// The type byte 27, and no length or a 0 where the first block begins, anywhere. Blocks of type 21
// tell their first byte themselves.
bool MayHoldEmptyList(std::span<const std::uint8_t> file, const Delivered& delivered) {
  if (delivered.emptyFirstBlocks > 0) return true;
  bool const blocks = delivered.records.at(QV_FIELD_HISTORY) > 0;
  for (std::size_t at = 0; at + 2 < file.size(); ++at) {
    if (file[at] != 27) continue;
    if (file[at + 1] == 0 || (blocks && file[at + 2] == 0)) return true;
  }
  return false;
}

// A 'Q' with a line feed less than four characters on, or the end of the file, anywhere.
bool MayHoldShortLine(std::span<const std::uint8_t> file) {
  for (std::size_t at = 0; at < file.size(); ++at) {
    if (file[at] != 'Q') continue;
    if (at + 5 >= file.size()) return true;
    auto const* const next = &file[at + 1];
    if (std::find(next, next + 3, '\n') != next + 3) return true;
  }
  return false;
}

class Agreement {
 public:
  Agreement(const QvRecordCensus& counts, const Delivered& delivered)
      : counts_(counts), delivered_(delivered) {}

  std::uint32_t Sum(std::initializer_list<int> types) const {
    std::uint32_t sum = 0;
    for (int const type : types) sum += delivered_.records.at(static_cast<std::size_t>(type));
    return sum;
  }

  void CheckMeasurements() const {
    Expect(counts_.Intervals + counts_.BandIntervals == Sum({QV_INTERVAL}), "count of intervals");
    Expect(counts_.Intervals == 0 || counts_.BandIntervals == 0, "intervals of one kind");
    Expect(counts_.DaySummaries == Sum({QV_DAY_SUMMARY}), "count of day summaries");
    Expect(counts_.Events + counts_.EventsMode0 + counts_.EventsMode5 == Sum({QV_EVENT}),
           "count of events");
    Expect(counts_.LevelMarks == Sum({QV_LEVEL_MARK}), "count of level marks");
    Expect(counts_.IntervalBands == Sum({QV_INTERVAL_BANDS}), "count of interval bands");
    Expect(counts_.SummaryBands == Sum({QV_SUMMARY_BANDS}), "count of summary bands");
    Expect(counts_.LevelMarkBands == Sum({QV_LEVEL_MARK_BANDS}), "count of level mark bands");
    Expect(counts_.IntervalBandSeries == Sum({QV_INTERVAL_BAND_SERIES}),
           "count of interval band series");
  }

  void CheckItem2() const {
    Expect(counts_.Summaries == Sum({QV_SUMMARY}), "count of summaries");
    Expect(counts_.Bands431 == Sum({QV_BANDS_431}), "count of bands of model 431");
    Expect(counts_.Summaries431 == Sum({QV_SUMMARY_431}), "count of summaries of model 431");
    Expect(counts_.SpectrumSummaries == Sum({QV_SPECTRUM_SUMMARY}), "count of spectrum summaries");
    Expect(counts_.BandTables == Sum({QV_BAND_TABLE}), "count of band tables");
    Expect(counts_.NarrowTables == Sum({QV_NARROW_TABLE}), "count of narrow tables");
    Expect(counts_.Tallies == Sum({QV_TALLY_LEVELS, QV_TALLY_BANDS, QV_TALLY_TOTALS}),
           "count of tallies");
  }

  void CheckBlocksAndReferences() const {
    Expect(counts_.SettingsBlocks == Sum({QV_SETTINGS}), "count of settings blocks");
    Expect(counts_.ResultsBlocks + counts_.ResultsBlocksMode0 ==
               Sum({QV_RESULTS, QV_RESULTS_431, QV_RESULTS_442}),
           "count of results blocks");
    Expect(counts_.Sites == Sum({QV_SITE, QV_SITE_431}), "count of sites");
    Expect(counts_.References == Sum({QV_REFERENCE, QV_REFERENCE_431}), "count of references");
  }

  void CheckStreams() const {
    Expect(counts_.StreamEntries + counts_.ListBlocksMode0 + counts_.ListBlocksMode4 +
                   counts_.ListBlocksMode7 ==
               delivered_.streamEntries + Sum({QV_TIMED_SPECTRUM, QV_FIELD_HISTORY}),
           "count of stream entries and list blocks");
  }

  // Setups are counted by the file's mode, whether or not their own mode has a form. A results
  // block may name model 431, which has no count in the modes that only others have.
  void CheckSetups() const {
    bool const setups431 = Sum({QV_SETUP_BAND_431, QV_SETUP_SHORT_431, QV_SETUP_LOGGING_431}) > 0;
    if (setups431 && Sum({QV_RESULTS, QV_RESULTS_442}) > 0) return;
    std::uint32_t const counted =
        counts_.SetupBands431 + counts_.SetupShorts431 + counts_.SetupLoggings431 +
        counts_.SetupBands + counts_.SetupShorts + counts_.SetupLoggings + counts_.SetupSpectra +
        counts_.SetupNarrows + counts_.SetupsMode6 + counts_.SetupTallies + counts_.SetupsMode8;
    Expect(counted >= Sum({QV_SETUP_BAND_431, QV_SETUP_SHORT_431, QV_SETUP_LOGGING_431,
                           QV_SETUP_BAND, QV_SETUP_SHORT, QV_SETUP_LOGGING, QV_SETUP_SPECTRUM,
                           QV_SETUP_NARROW, QV_SETUP_TALLY}),
           "count of setups");
  }

  // General models have all blocks in every record, whatever flags the census went by.
  void CheckBlockImages() const {
    Expect(counts_.BlockImages + counts_.BlockImagesMode0 <= delivered_.blockImages,
           "count of block images");
  }

 private:
  const QvRecordCensus& counts_;
  const Delivered& delivered_;
};

}  // namespace

void ExpectAgreement(std::span<const std::uint8_t> file, const Census& census,
                     const Delivered& delivered) {
  bool const results431 = delivered.records.at(QV_RESULTS_431) > 0;
  if (results431 || MayHoldEmptyList(file, delivered) || MayHoldShortLine(file)) return;

  if (delivered.outcome == Outcome::ReachedEnd) {
    Expect(IsOneOf(census.status, {QV_OK, QV_RECORD_TOO_SHORT}),
           "a census ends well where a translation comes to the end of the data");
  }
  if (census.status != QV_OK) return;
  Expect(delivered.outcome != Outcome::Failed,
         "a translation does not fail where a census came to the end of the data");
  if (delivered.outcome != Outcome::ReachedEnd) return;
  Agreement const agreement(census.counts, delivered);
  agreement.CheckMeasurements();
  agreement.CheckItem2();
  agreement.CheckBlocksAndReferences();
  agreement.CheckStreams();
  agreement.CheckSetups();
  agreement.CheckBlockImages();
}

}  // namespace fuzz
