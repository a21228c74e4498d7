#include "oracles.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

namespace {

constexpr int kPattern = 0xA5;

}  // namespace

void Expect(bool holds, const char* promise) {
  if (holds) return;
  std::fprintf(stderr, "ERROR: broken promise: %s\n", promise);
  std::abort();
}

bool IsPublicStatus(std::int32_t status) {
  return IsOneOf(status, {QV_OK, QV_CANNOT_OPEN, QV_NOT_FOUND, QV_BAD_LENGTH, QV_RECORD_TOO_SHORT,
                          QV_SEEK_FAILED, QV_TAIL_SEEK_FAILED, QV_NO_TEXT_HEADER, QV_END_OF_DATA,
                          QV_NO_ARGUMENT, QV_NO_MEMORY});
}

std::size_t RecordSize(std::uint16_t type) {
  switch (type) {
    case QV_INTERVAL:
      return std::max(sizeof(QvInterval), sizeof(QvBandInterval));
    case QV_SUMMARY:
      return sizeof(QvSummary);
    case QV_DAY_SUMMARY:
      return sizeof(QvDaySummary);
    case QV_EVENT:
      return sizeof(QvEvent);
    case QV_LEVEL_MARK:
      return sizeof(QvLevelMark);
    case QV_SETTINGS:
      return sizeof(QvSettings);
    case QV_RESULTS:
      return sizeof(QvResults);
    case QV_BLOCK_IMAGE:
      return sizeof(QvBlockImage);
    case QV_LEVEL_MARK_BANDS:
      return sizeof(QvLevelMarkBands);
    case QV_INTERVAL_BANDS:
      return sizeof(QvIntervalBands);
    case QV_SUMMARY_BANDS:
      return sizeof(QvSummaryBands);
    case QV_INTERVAL_BAND_SERIES:
      return sizeof(QvIntervalBandSeries);
    case QV_END:
      return sizeof(QvEnd);
    case QV_TIME_HISTORY:
      return sizeof(QvTimeHistory);
    case QV_TIMED_SPECTRUM:
      return sizeof(QvTimedSpectrum);
    case QV_REFERENCE_431:
      return sizeof(QvReference431);
    case QV_BANDS_431:
      return sizeof(QvBands431);
    case QV_SUMMARY_431:
      return sizeof(QvSummary431);
    case QV_SETUP_BAND_431:
      return sizeof(QvSetupBand431);
    case QV_SETUP_SHORT_431:
      return sizeof(QvSetupShort431);
    case QV_SETUP_LOGGING_431:
      return sizeof(QvSetupLogging431);
    case QV_SITE_431:
      return sizeof(QvSite431);
    case QV_RESULTS_431:
      return sizeof(QvResults431);
    case QV_REFERENCE:
      return sizeof(QvReference);
    case QV_SETUP_BAND:
      return sizeof(QvSetupBand);
    case QV_SETUP_SHORT:
      return sizeof(QvSetupShort);
    case QV_SETUP_LOGGING:
      return sizeof(QvSetupLogging);
    case QV_SITE:
      return sizeof(QvSite);
    case QV_RESULTS_442:
      return sizeof(QvResults442);
    case QV_SPECTRUM_SUMMARY:
      return sizeof(QvSpectrumSummary);
    case QV_FIELD_HISTORY:
      return sizeof(QvFieldHistory);
    case QV_SETUP_TALLY:
      return sizeof(QvSetupTally);
    case QV_SETUP_NARROW:
      return sizeof(QvSetupNarrow);
    case QV_TALLY_LEVELS:
    case QV_TALLY_BANDS:
    case QV_TALLY_TOTALS:
      return sizeof(QvTallyLevels);
    case QV_NARROW_TABLE:
      return sizeof(QvNarrowTable);
    case QV_SETUP_SPECTRUM:
      return sizeof(QvSetupSpectrum);
    case QV_BAND_TABLE:
      return sizeof(QvBandTable);
    default:
      return 0;
  }
}

PatternBuffer::PatternBuffer(std::size_t size)
    : buffer_(size, kPattern), pattern_(size, kPattern) {}

void PatternBuffer::Refill() {
  std::memcpy(buffer_.Data(), pattern_.Data(), buffer_.Size());
}

bool PatternBuffer::IsUntouchedFrom(std::size_t offset) const {
  return std::memcmp(buffer_.Data() + offset, pattern_.Data(), buffer_.Size() - offset) == 0;
}

}  // namespace fuzz
