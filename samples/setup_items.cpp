#include "setup_items.h"

#include "setup_records.h"

namespace samples {

namespace {

void KeepSix(Instrument& state, const BlockBytes& at) {
  for (std::size_t i = 0; i < 6; ++i) state.sixValues[i] = at.SignedFixed(110 + 2 * i);
}

void KeepPeriod(Instrument& state, const BlockBytes& at) {
  static constexpr float kScale[] = {1.0F / 32, 1, 10, 60};
  state.streamPeriod = static_cast<float>(at.Byte(141)) * kScale[at.Byte(142)];
}

// What the setups with streams (modes 0, 2, 3 and 7) have in common.
void KeepStream(Instrument& state, const BlockBytes& at) {
  state.wholeDb = (at.Byte(47) & 4) != 0;
  KeepSix(state, at);
  KeepPeriod(state, at);
  if (state.model == 431) {
    state.secondLevelKind = at.Byte(140);
    return;
  }
  state.streamSelector = at.Byte(140);
  state.streamLevelBase = at.Byte(181);
  for (std::size_t i = 0; i < 6; ++i) state.streamMasks[i] = at.Byte(182 + i);
}

void KeepBandSetup(Instrument& state, const BlockBytes& at) {
  KeepStream(state, at);
  state.summaryLn = (at.Byte(42) & 64) != 0;
  state.distribution2 = (at.Byte(42) & 1) != 0;
  bool const from36 = state.firmware >= static_cast<double>(3.6F);
  state.extraBlock = from36 && (at.Byte(49) & 64) != 0;
  state.modeFormFlag = 0;
  state.secondSpectrum = at.Byte(103) != 0;
  state.spectraKind = at.Byte(104);
  state.keptA = 0;
  state.settingQ50 = 0;
  state.keptB = at.Byte(99);
  state.settingQ47 = 0;
}

void KeepLoggingSetup(Instrument& state, const BlockBytes& at) {
  KeepStream(state, at);
  state.keptA = at.Byte(78);
  state.settingQ50 = at.Byte(79);
  state.keptB = at.Byte(75);
  state.settingQ47 = at.Byte(76);
  state.summaryLn = (at.Byte(42) & 64) != 0;
  state.distribution2 = (at.Byte(42) & 1) != 0;
  state.summaryAux = false;
  state.extraBlock = (at.Byte(49) & 64) != 0;
  state.modeFormFlag = state.model == 431 ? 1 : 0;
  state.thresholdLevel = state.model == 431 ? at.SignedFixed(122) : at.Fixed(122);
  state.intervalSamples = (at.Byte(48) & 64) != 0;
  state.intervalSamplePeriod = static_cast<float>(at.Byte(176));
  state.intervalAux = false;
  state.dayLn = (at.Byte(47) & 128) != 0;
  state.distribution = (at.Byte(47) & 32) != 0;
  state.levelInRecord = false;
  state.timeIsEnd = (at.Byte(48) & 32) != 0;
  state.limitLevel = at.Byte(179);
}

void KeepShortSetup(Instrument& state, const BlockBytes& at) {
  if (state.model != 431) {
    state.modeFormFlag = 1;
    state.levelInRecord = state.timeIsEnd = state.dayLn = false;
    state.distribution = state.distribution2 = false;
    return;
  }
  state.keptA = state.keptB = at.Byte(75);
  state.settingQ47 = state.settingQ50 = at.Byte(76);
}

template <class R>
R Frame(const SampleBuilder& sample, int code, const BlockBytes& at) {
  auto record = sample.Begin<R>(code);
  record.SetupHead = at.Byte(0);
  SetText(record.SetupTag, at.Chars(1, 8));
  SetText(record.SetupTitle, at.Chars(9, 30));
  record.SetupMode = at.Byte(39);
  record.SetupByte40 = at.Byte(40);
  if constexpr (requires { record.SetupFlagsOut; }) record.SetupFlagsOut = at.Byte(41);
  return record;
}

template <class R, class Form>
void Deliver(SampleBuilder& sample, int code, const BlockBytes& at, Form form) {
  sample.Deliver(form(sample.State(), at, Frame<R>(sample, code, at)));
}

void AddSetup431(SampleBuilder& sample, const BlockBytes& at) {
  Instrument& state = sample.State();
  QvRecordCensus& census = sample.Census();
  if (state.mode == 0) {
    Deliver<QvSetupBand431>(sample, QV_SETUP_BAND_431, at, BandSetup431);
    ++census.SetupBands431;
  } else if (state.mode == 1) {
    Deliver<QvSetupShort431>(sample, QV_SETUP_SHORT_431, at, ShortSetup431);
    KeepShortSetup(state, at);
    ++census.SetupShorts431;
  } else {
    Deliver<QvSetupLogging431>(sample, QV_SETUP_LOGGING_431, at, LoggingSetup431);
    KeepLoggingSetup(state, at);
    ++census.SetupLoggings431;
  }
}

void AddSetup442(SampleBuilder& sample, const BlockBytes& at) {
  Instrument& state = sample.State();
  QvRecordCensus& census = sample.Census();
  switch (state.mode) {
    case 0:
      Deliver<QvSetupBand>(sample, QV_SETUP_BAND, at, BandSetup);
      KeepBandSetup(state, at);
      ++census.SetupBands;
      break;
    case 1:
      Deliver<QvSetupShort>(sample, QV_SETUP_SHORT, at, ShortSetup);
      KeepShortSetup(state, at);
      ++census.SetupShorts;
      break;
    case 4:
      Deliver<QvSetupSpectrum>(sample, QV_SETUP_SPECTRUM, at, SpectrumSetup);
      state.bandFlag = state.setupFlags & 128;
      ++census.SetupSpectra;
      break;
    case 5:
      Deliver<QvSetupNarrow>(sample, QV_SETUP_NARROW, at, NarrowSetup);
      ++census.SetupNarrows;
      break;
    case 7:
      Deliver<QvSetupTally>(sample, QV_SETUP_TALLY, at, TallySetup);
      KeepStream(state, at);
      state.keptA = state.keptB = state.settingQ47 = state.settingQ50 = 0;
      ++census.SetupTallies;
      break;
    default:  // 2 and 3
      Deliver<QvSetupLogging>(sample, QV_SETUP_LOGGING, at, LoggingSetup);
      KeepLoggingSetup(state, at);
      ++census.SetupLoggings;
  }
}

}  // namespace

SetupBlock::SetupBlock(const Instrument& instrument, std::string_view tag, std::string_view title,
                       int flags) {
  body_.U8(1).Text(tag, 8).Text(title, 30).U8(instrument.mode).U8(40).U8(flags);
  int const size = instrument.model == 431 ? 186 : 219;
  for (int position = 42; position < size; ++position) body_.U8(position);
  for (std::size_t const position : {42U, 47U, 48U, 49U, 103U, 104U, 140U}) Set(position, {0});
  bool const spectrum = instrument.model == 442 && instrument.mode == 4;
  bool const plain = instrument.model == 442 && instrument.mode == 7;
  Set(57, {0x24, 0x21, 0x06, 0x24, 0x22, 0x06});  // 21 and 22 June 2024
  Set(63, {0x06, 0x00, 0x18, 0x00, 0x22, 0x00, 0x23, 0x59});
  if (plain) {
    Set(71, {0, 10, 30});
  } else {
    Set(71, {0x00, 0x10, 0x30});
  }
  if (spectrum) {
    Set(74, {2, 0x40, 0x00});  // 2.25
    Set(122, {'H', 'a', 'n', 'n', 'i', 'n', 'g', ' '});
    return;
  }
  if (instrument.model == 431 && instrument.mode == 0) {
    Set(100, {0x01, 0x15, 0x00});
    return;
  }
  Set(100, {1, 15, 0});
  // Six levels of percent, the threshold of 65.5 dB and the limit of 85 dB.
  Set(110, {1, 0, 5, 0, 10, 0, 50, 0, 90, 0, 95, 128, 65, 128});
  if (instrument.model == 442 || instrument.mode >= 2) Set(130, {'A', 'F', '1', '0'});
  Period(1, 1);
  Set(179, {85});
  if (instrument.model == 442) Set(181, {0, 0, 0, 0, 0, 0, 0});
}

SetupBlock& SetupBlock::Set(std::size_t position, std::initializer_list<int> bytes) {
  body_.Set(position, bytes);
  return *this;
}

SetupBlock& SetupBlock::Period(int value, int unit) {
  return Set(141, {value, unit});
}

SetupBlock& SetupBlock::Fields(int selector, std::initializer_list<int> masks) {
  return Set(140, {selector}).Set(182, masks);
}

void AddSetup(SampleBuilder& sample, const SetupBlock& block) {
  Instrument& state = sample.State();
  BlockBytes const at(block.Bytes(), state.levelOffset);
  state.setupFlags = at.Byte(41);
  sample.File().Item('M', block.Bytes());
  state.model == 431 ? AddSetup431(sample, at) : AddSetup442(sample, at);
}

}  // namespace samples
