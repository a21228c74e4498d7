// Item 2 of model 442 in mode 0.

#include "fields/byte_reader.h"
#include "fields/data_file.h"
#include "fields/levels.h"
#include "fields/octave_sums.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "models/models.h"

namespace qvslm {

namespace {

constexpr std::size_t kCleared = 812;
constexpr u16 kSixSpectra = 2;

enum SectionFlag : u16 {
  kSpansPresent = 8,
  kDistributionPresent = 256,
  kPercentilesPresent = 512,
};

}  // namespace

i32 DecodeRec2Model442Mode0() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvSpectrumSummary>(QV_SPECTRUM_SUMMARY, kCleared);

  Calendar stamp = ClearedCalendar();
  DecodePackedDate(stamp);
  DecodePackedTime(stamp);
  DecodeDuration5(record.Duration);
  DecodeLevel(record.Level11);
  DecodeLevel(record.Level13);
  DecodeLevel(record.Level15);
  DecodeLevel(record.Level17);
  DecodeLevel(record.Level19);
  DecodeLevel(record.Level21);
  record.Byte23 = ReadByte();
  record.Byte24 = ReadByte();
  record.Byte25 = ReadByte();
  record.Byte26 = ReadByte();
  if (context.SummaryLnOn != 0) {
    record.SectionFlags |= kPercentilesPresent;
    for (f32& level : record.PercentileLevels) DecodeLevel(level);
    for (f32& number : record.PercentileNumbers) DecodeSignedFixed16(number);
  }
  if (context.ExtraBlockOn != 0) {
    record.SectionFlags |= kSpansPresent;
    DecodeSpan(record.Span1);
    DecodeSpan(record.Span2);
    record.SpanByte = ReadByte();
  }
  if (context.DistributionOn2 != 0) {
    record.SectionFlags |= kDistributionPresent;
    record.DistributionPresent = 1;
    ReadRawBytes(record.Distribution, sizeof record.Distribution);
  }
  for (f32& band : record.Bands) DecodeLevel(band);
  SumOctaves(record.Bands, record.Octaves, 11);
  if (context.SecondSpectrumOn != 0) {
    for (f32& band : record.SecondBands) DecodeLevel(band);
  }
  SumOctaves(record.SecondBands, record.SecondOctaves, 11);
  if (context.SpectraKind == kSixSpectra) {
    for (int row = 5; row >= 0; --row) {
      for (f32& band : record.Spectra[row]) DecodeLevelZeroMarked(band);
    }
  }

  KeepFilePosition();
  record.RecordTime = NormalizeTime(stamp, &LastTimes.LastTimeRec2Mode0);
  NoteRecordTime(record.RecordTime);
  return 0;  // also for a short body
}

}  // namespace qvslm
