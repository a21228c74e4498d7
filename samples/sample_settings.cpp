#include "sample_settings.h"

#include <cstdio>

namespace samples {

namespace {

using S = QvSettings;

constexpr Register<S, std::uint16_t> kPlainNumbers[] = {
    {9, &S::SettingQ9, 1},      {10, &S::SettingQ10, 0},    {11, &S::SettingQ11, 2},
    {12, &S::SettingQ12, 12},   {13, &S::SettingQ13, 3},    {14, &S::SettingQ14, 140},
    {15, &S::SettingQ15, 15},   {16, &S::SettingQ16, 1},    {17, &S::SettingQ17, 2400},
    {18, &S::SettingQ18, 1},    {19, &S::SettingQ19, 0},    {20, &S::SettingQ20, 5},
    {21, &S::SettingQ21, 7},    {29, &S::SettingQ29, 29},   {30, &S::SettingQ30, 30},
    {31, &S::SettingQ31, 1},    {32, &S::SettingQ32, 2},    {33, &S::SettingQ33, 3},
    {34, &S::SettingQ34, 60},   {37, &S::SettingQ37, 94},   {39, &S::SettingQ39, 114},
    {40, &S::SettingQ40, 4},    {41, &S::SettingQ41, 5},    {42, &S::SettingQ42, 1},
    {43, &S::SettingQ43, 250},  {45, &S::SettingQ45, 45},   {46, &S::SettingQ46, 3},
    {47, &S::SettingQ47, 85},   {48, &S::SettingQ48, 8},    {49, &S::SettingQ49, 5},
    {50, &S::SettingQ50, 90},   {51, &S::SettingQ51, 115},  {52, &S::SettingQ52, 0},
    {53, &S::SettingQ53, 80},   {54, &S::SettingQ54, 3},    {63, &S::SettingQ63, 1},
    {64, &S::SettingQ64, 10},   {65, &S::SettingQ65, 65},   {66, &S::SettingQ66, 66},
    {67, &S::SettingQ67, 2},    {68, &S::SettingQ68, 1},    {72, &S::SettingQ72, 72},
    {73, &S::SettingQ73, 1},    {74, &S::SettingQ74, 24},   {76, &S::SettingQ76, 1},
    {79, &S::SettingQ79, 15},   {80, &S::SettingQ80, 1},    {87, &S::SettingQ87, 87},
    {88, &S::SettingQ88, 1},    {126, &S::SettingQ126, 12}, {127, &S::SettingQ127, 1},
    {128, &S::SettingQ128, 0},  {134, &S::SettingQ134, 34}, {135, &S::SettingQ135, 5},
    {136, &S::SettingQ136, 6},  {142, &S::SettingQ142, 42}, {143, &S::SettingQ143, 3},
    {144, &S::SettingQ144, 1},  {146, &S::SettingQ146, 1},  {150, &S::SettingQ150, 9600},
    {153, &S::SettingQ153, 53}, {154, &S::SettingQ154, 4},  {155, &S::SettingQ155, 1},
    {159, &S::SettingQ159, 59}, {209, &S::SettingQ209, 1},
};

constexpr Register<S, float> kPlainReals[] = {
    {35, &S::SettingQ35, 94.1},   {44, &S::SettingQ44, -26.35},  {125, &S::SettingQ125, 2.5},
    {133, &S::SettingQ133, 0.75}, {141, &S::SettingQ141, 1.25},  {147, &S::SettingQ147, 113.95},
    {148, &S::SettingQ148, 20.5}, {149, &S::SettingQ149, 60.25}, {160, &S::SettingQ160, 1.25},
};

}  // namespace

std::string RealText(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

SettingsBlock::SettingsBlock(SampleBuilder& sample)
    : sample_(sample), record_(sample.Begin<QvSettings>(QV_SETTINGS)) {
  // A site number stands in the record only when the block gives one.
  record_.SiteNumber = 0;
}

SettingsBlock& SettingsBlock::Line(int number, std::string_view value) {
  sample_.File().Q(number, value);
  return *this;
}

SettingsBlock& SettingsBlock::Number(int number, std::uint16_t QvSettings::*field, int value) {
  record_.*field = static_cast<std::uint16_t>(value);
  return Line(number, std::to_string(value));
}

SettingsBlock& SettingsBlock::Real(int number, float QvSettings::*field, double value) {
  record_.*field = static_cast<float>(value);
  return Line(number, RealText(value));
}

SettingsBlock& SettingsBlock::Stamp(Clock reading) {
  static constexpr const char* kDays[] = {"Thu", "Fri", "Sat", "Sun", "Mon", "Tue", "Wed"};
  static constexpr int kIndex[] = {4, 5, 6, 0, 1, 2, 3};
  int const day = reading / kDay % 7;
  Text(6, &S::SettingQ6, TimeText(reading));
  Text(7, &S::SettingQ7, DateText(reading));
  record_.SettingQ8 = kIndex[day];
  // The block's time is that of the header, and its own in a file without one.
  Clock const header = sample_.State().header;
  record_.BlockTime = header != 0 ? header : reading;
  sample_.EndRecord().BlockTime = record_.BlockTime;
  return Line(8, kDays[day]);
}

SettingsBlock& SettingsBlock::Channels(const AuxChannel& first, const AuxChannel& second,
                                       const AuxChannel& third) {
  Text(121, &S::SettingQ121, first.name);
  Real(122, &S::SettingQ122, static_cast<double>(first.low));
  Real(123, &S::SettingQ123, static_cast<double>(first.high));
  Text(124, &S::SettingQ124, first.units);
  Text(129, &S::SettingQ129, second.name);
  Real(130, &S::SettingQ130, static_cast<double>(second.low));
  Real(131, &S::SettingQ131, static_cast<double>(second.high));
  Text(132, &S::SettingQ132, second.units);
  Text(137, &S::SettingQ137, third.name);
  Real(138, &S::SettingQ138, static_cast<double>(third.low));
  Real(139, &S::SettingQ139, static_cast<double>(third.high));
  Text(140, &S::SettingQ140, third.units);
  sample_.State().aux[0] = first;
  sample_.State().aux[1] = second;
  sample_.State().aux[2] = third;
  return *this;
}

SettingsBlock& SettingsBlock::LevelOffset(double decibels) {
  sample_.State().levelOffset = static_cast<float>(decibels);
  return Line(227, RealText(decibels));
}

SettingsBlock& SettingsBlock::PlainRegisters() {
  Text(4, &S::SettingQ4, "River bank, 4 m above ground");
  Text(24, &S::SettingQ24, "06:00");
  Text(25, &S::SettingQ25, "18:00");
  Text(26, &S::SettingQ26, "22:00");
  Text(27, &S::SettingQ27, "A weight");
  Text(28, &S::SettingQ28, "Fast");
  Text(36, &S::SettingQ36, "12:00");
  Text(38, &S::SettingQ38, "No");
  Text(75, &S::SettingQ75, "Yes");
  Text(156, &S::SettingQ156, "Town hall");
  Text(158, &S::SettingQ158, "555-0100");
  for (const auto& row : kPlainNumbers) Number(row.number, row.field, static_cast<int>(row.value));
  for (const auto& row : kPlainReals) Real(row.number, row.field, row.value);
  // Dates in short form: the record has them as month, day and year of two digits.
  SetText(record_.SettingQ22, "06/20/24");
  SetText(record_.SettingQ23, "12/31/99");
  Line(22, "20Jun2024");
  return Line(23, "31Dec1999");
}

void SettingsBlock::Done() {
  TakeEffect();
  QvEnd& end = sample_.EndRecord();
  end.Model = static_cast<std::uint16_t>(sample_.State().model);
  auto const title = [](char(&field)[82], const char* text) {
    if (field[0] == '\0') SetText(field, text);
  };
  title(end.Title1, record_.Title1);
  title(end.Title2, record_.Title2);
  title(end.Title3, record_.Title3);
  sample_.DeliverTimed(record_, record_.BlockTime);
  ++sample_.Census().SettingsBlocks;
}

// What the block means for the items behind it. Each block of the samples gives all of these
// registers or leaves them at zero.
void SettingsBlock::TakeEffect() {
  Instrument& state = sample_.State();
  QvEnd& end = sample_.EndRecord();
  if (record_.SettingQ157 != 0) {
    state.site = record_.SettingQ157;
    record_.SiteNumber = record_.SettingQ157;
    end.SiteNumber = record_.SettingQ157;
  }
  state.thresholdLevel = record_.SettingQ61;
  state.limitLevel = record_.SettingQ62;
  state.intervalSamples = record_.SettingQ69 == 1;
  state.intervalSamplePeriod = record_.SettingQ70;
  state.intervalAux = record_.SettingQ71 == 1;
  state.summaryLn = record_.SettingQ77 == 1;
  state.summaryAux = record_.SettingQ78 == 1;
  state.wholeDb = record_.SettingQ81 != 0;
  state.secondLevelKind = record_.SettingQ82;
  static constexpr float kScale[] = {1.0F / 32, 1, 10, 60};
  state.streamPeriod = static_cast<float>(record_.SettingQ83) * kScale[record_.SettingQ84];
  state.settingQ118 = record_.SettingQ118;
  state.settingQ120 = record_.SettingQ120;
  state.auxEnabled1 = record_.SettingQ119;
  state.extraBlock = record_.SettingQ145 == 1;
  if (state.model != 442) {
    state.levelInRecord = record_.SettingQ162 == 2;
    if (record_.SettingQ162 == 1 || record_.SettingQ163 == 1) state.timeIsEnd = true;
  }
  state.distribution2 = (record_.SettingQ210 & 1) != 0;
  if (state.above09) {
    state.dayLn = record_.SettingQ206 == 1;
    state.distribution = (record_.SettingQ210 & 16) != 0;
  } else {
    // Old instruments have one register for both tables, and the record does not show it.
    state.distribution = record_.SettingQ206 != 0;
    record_.SettingQ206 = 0;
  }
  state.sixValues = {
      static_cast<float>(record_.SettingQ55), static_cast<float>(record_.SettingQ56),
      static_cast<float>(record_.SettingQ57), static_cast<float>(record_.SettingQ58),
      static_cast<float>(record_.SettingQ59), static_cast<float>(record_.SettingQ60)};
  state.keptB = record_.SettingQ46;
  state.keptA = record_.SettingQ49;
  state.settingQ47 = record_.SettingQ47;
  state.settingQ50 = record_.SettingQ50;
  state.settingQ53 = record_.SettingQ53;
  state.settingQ54 = record_.SettingQ54;
  state.settingQ209 = record_.SettingQ209;
  state.modeFormFlag = record_.SettingQ146;
  state.settingQ147 = record_.SettingQ147;
}

}  // namespace samples
