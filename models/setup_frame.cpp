// The frame of the setup record: what all forms share, and the choice of the form by the block's
// mode.

#include <cstddef>
#include <cstring>

#include "fields/byte_reader.h"
#include "fields/output_record.h"
#include "models/models.h"
#include "models/position_table.h"
#include "models/setups.h"

namespace qvslm {

namespace {

constexpr std::size_t kCleared = 304;
constexpr u32 kFrameSize = 42;
constexpr u32 kBlockSize = 219;
constexpr u32 kBlockSize431 = 186;

// All forms begin with the same fields; this is one of them.
using Frame = QvSetupShort;

constexpr Position kFrame[] = {
    {0, QV_FIELD(Frame, SetupHead), BodyForm::Byte},
    {1, QV_FIELD(Frame, SetupTag), BodyForm::Bytes},
    {9, QV_FIELD(Frame, SetupTitle), BodyForm::Bytes},
    {39, QV_FIELD(Frame, SetupMode), BodyForm::Byte},
    {QV_NUMBERED(40, Frame, SetupByte), BodyForm::Byte},
    {41, QV_FIELD(Frame, SetupFlagsOut), BodyForm::Byte},
};

static_assert(IsSoundTable(kFrame));

template <class Form>
i32 DecodeForm(QvRecordCode code, void (*decode)()) {
  OutputAs<Form>().RecordType = static_cast<u16>(code);
  decode();
  return BodyStatus(CurrentContext->Model == kModel431 ? kBlockSize431 : kBlockSize);
}

i32 DecodeForm431(u16 mode) {
  switch (mode) {
    case 0:
      return DecodeForm<QvSetupBand431>(QV_SETUP_BAND_431, DecodeSetupBand33);
    case 1:
      return DecodeForm<QvSetupShort431>(QV_SETUP_SHORT_431, DecodeSetupShort34);
    case 2:
    case 3:
      return DecodeForm<QvSetupLogging431>(QV_SETUP_LOGGING_431, DecodeSetupLogging35);
    default:
      return BodyStatus(kFrameSize);
  }
}

i32 DecodeGeneralForm(u16 mode) {
  switch (mode) {
    case 0:
      return DecodeForm<QvSetupBand>(QV_SETUP_BAND, DecodeSetupBand51);
    case 1:
      return DecodeForm<QvSetupShort>(QV_SETUP_SHORT, DecodeSetupShort52);
    case 2:
    case 3:
      return DecodeForm<QvSetupLogging>(QV_SETUP_LOGGING, DecodeSetupLogging53);
    case 4:
      return DecodeForm<QvSetupSpectrum>(QV_SETUP_SPECTRUM, DecodeSetupSpectrum70);
    case 5:
      return DecodeForm<QvSetupNarrow>(QV_SETUP_NARROW, DecodeSetupNarrow63);
    case 7:
      return DecodeForm<QvSetupTally>(QV_SETUP_TALLY, DecodeSetupTally60);
    default:
      return BodyStatus(kFrameSize);
  }
}

}  // namespace

// Without a form the record stays without a type code, but the flags are kept all the same.
i32 DecodeRecM() {
  TranslateContext& context = *CurrentContext;
  auto& frame = BeginRecord<Frame>(QV_NO_RECORD, kCleared);
  DecodePositions(kFrame, &frame);
  context.SetupFlags = frame.SetupFlagsOut;
  u16 const mode = frame.SetupMode;
  return context.Model == kModel431 ? DecodeForm431(mode) : DecodeGeneralForm(mode);
}

}  // namespace qvslm
