// Item 2 of model 442 in mode 0.

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

  BodyFields fields;
  Calendar stamp = DecodePackedStamp(fields);
  DecodeDuration5(fields, record.Duration);
  DecodeLevel(fields, record.Level11);
  DecodeLevel(fields, record.Level13);
  DecodeLevel(fields, record.Level15);
  DecodeLevel(fields, record.Level17);
  DecodeLevel(fields, record.Level19);
  DecodeLevel(fields, record.Level21);
  record.Byte23 = fields.Byte();
  record.Byte24 = fields.Byte();
  record.Byte25 = fields.Byte();
  record.Byte26 = fields.Byte();
  if (context.SummaryLnOn != 0) {
    record.SectionFlags |= kPercentilesPresent;
    DecodeRow<DecodeLevel>(fields, record.PercentileLevels);
    DecodeRow<DecodeSignedFixed16>(fields, record.PercentileNumbers);
  }
  if (context.ExtraBlockOn != 0) {
    record.SectionFlags |= kSpansPresent;
    DecodeSpan(fields, record.Span1);
    DecodeSpan(fields, record.Span2);
    record.SpanByte = fields.Byte();
  }
  if (context.DistributionOn2 != 0) {
    record.SectionFlags |= kDistributionPresent;
    record.DistributionPresent = 1;
    fields.Raw(record.Distribution, sizeof record.Distribution);
  }
  DecodeRow<DecodeLevel>(fields, record.Bands);
  SumOctaves(record.Bands, record.Octaves, 11);
  if (context.SecondSpectrumOn != 0) {
    DecodeRow<DecodeLevel>(fields, record.SecondBands);
  }
  SumOctaves(record.SecondBands, record.SecondOctaves, 11);
  if (context.SpectraKind == kSixSpectra) {
    for (int row = 5; row >= 0; --row) {
      DecodeRow<DecodeLevelZeroMarked>(fields, record.Spectra[row]);
    }
  }

  KeepFilePosition();
  record.RecordTime = NormalizeTime(stamp, &LastTimes->LastTimeRec2Mode0);
  NoteRecordTime(record.RecordTime);
  return 0;  // also for a short body
}

}  // namespace qvslm
