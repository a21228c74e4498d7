#include "setup_records.h"

namespace samples {

QvSetupBand BandSetup(const Instrument& state, const BlockBytes& at, QvSetupBand record) {
  record.FlagsA = at.Byte(42);
  record.SetupByte56 = at.Byte(56);
  SetText(record.DateA, at.PackedDate(57));
  SetText(record.DateB, at.PackedDate(60));
  SetText(record.TimeA, at.PackedTime(63));
  SetText(record.TimeB, at.PackedTime(65));
  SetText(record.TimeC, at.PackedTime(67));
  SetText(record.TimeD, at.PackedTime(69));
  SetText(record.ClockA, at.PackedClock(71));
  record.SetupByte86 = at.Byte(86);
  record.SetupByte87 = at.Byte(87);
  record.SetupByte89 = at.Byte(89);
  record.SetupByte90 = at.Byte(90);
  record.SetupByte92 = at.Byte(92);
  record.SetupByte93 = at.Byte(93);
  record.SetupByte98 = at.Byte(98);
  record.SetupByte99 = at.Byte(99);
  SetText(record.ClockB, at.PlainClock(100));
  record.SpectraKind = at.Byte(104);
  record.SetupByte145 = at.Byte(145);
  record.SetupByte146 = at.Byte(146);
  record.SetupByte147 = at.Byte(147);
  record.SetupByte148 = at.Byte(148);
  if (state.firmware >= static_cast<double>(3.6F)) {
    record.FlagsD = at.Byte(49);
    record.SetupValue127 = at.Fixed24Wide(127);
    SetText(record.SetupText130, at.Chars(130, 4));
    record.SetupWord134 = at.Word(134);
    record.SetupWord136 = at.Word(136);
    record.SetupByte138 = at.Byte(138);
    record.SetupByte139 = at.Small(139);
  }
  if (state.firmware > 3.115) {
    record.SetupByte94 = at.Byte(94);
  }
  record.FlagsB = at.Byte(47);
  record.SecondSpectrumOn = at.Byte(103);
  at.SignedFixed(110, record.KeptSixValues);
  record.SetupValue122 = at.Fixed(122);
  record.SetupByte124 = at.Byte(124);
  record.SetupByte125 = at.Byte(125);
  record.SetupByte126 = at.Byte(126);
  record.StreamSelector = at.Byte(140);
  record.PeriodValue = at.Byte(141);
  record.PeriodUnit = at.Byte(142);
  record.SetupByte153 = at.Byte(153);
  record.SetupByte154 = at.Byte(154);
  record.SetupByte155 = at.Byte(155);
  record.SetupByte156 = at.Byte(156);
  record.SetupByte157 = at.Byte(157);
  record.SetupByte158 = at.Byte(158);
  record.SetupByte159 = at.Byte(159);
  record.SetupByte160 = at.Byte(160);
  record.SetupByte161 = at.Byte(161);
  record.SetupByte162 = at.Byte(162);
  record.SetupByte163 = at.Byte(163);
  record.SetupByte164 = at.Byte(164);
  record.SetupByte165 = at.Byte(165);
  record.SetupByte179 = at.Byte(179);
  record.SetupByte180 = at.Byte(180);
  record.StreamLevelBase = at.Byte(181);
  record.StreamMaskA = at.Byte(182);
  record.StreamMaskD = at.Byte(183);
  record.StreamMaskB = at.Byte(184);
  record.StreamMaskE = at.Byte(185);
  record.StreamMaskC = at.Byte(186);
  record.StreamMaskF = at.Byte(187);
  return record;
}

QvSetupLogging LoggingSetup(const Instrument& state, const BlockBytes& at, QvSetupLogging record) {
  record.FlagsA = at.Byte(42);
  record.SetupByte46 = at.Byte(46);
  record.FlagsB = at.Byte(47);
  record.FlagsC = at.Byte(48);
  record.FlagsD = at.Byte(49);
  record.SetupByte56 = at.Byte(56);
  SetText(record.DateA, at.PackedDate(57));
  SetText(record.DateB, at.PackedDate(60));
  SetText(record.TimeA, at.PackedTime(63));
  SetText(record.TimeB, at.PackedTime(65));
  SetText(record.TimeC, at.PackedTime(67));
  SetText(record.TimeD, at.PackedTime(69));
  SetText(record.ClockA, at.PackedClock(71));
  record.SetupByte74 = at.Byte(74);
  record.SetupByte75 = at.Byte(75);
  record.SetupByte76 = at.Byte(76);
  record.SetupByte77 = at.Byte(77);
  record.SetupByte78 = at.Byte(78);
  record.SetupByte79 = at.Byte(79);
  record.SetupByte80 = at.Byte(80);
  record.SetupByte81 = at.Byte(81);
  record.SetupByte82 = at.Byte(82);
  record.SetupByte83 = at.Byte(83);
  record.SetupLevel84 = at.Level(84);
  record.SetupByte86 = at.Byte(86);
  record.SetupByte87 = at.Byte(87);
  record.SetupByte89 = at.Byte(89);
  record.SetupByte90 = at.Byte(90);
  record.SetupByte91 = at.Byte(91);
  record.SetupByte92 = at.Byte(92);
  record.SetupByte98 = at.Byte(98);
  record.SetupByte99 = at.Byte(99);
  SetText(record.ClockB, at.PlainClock(100));
  at.SignedFixed(110, record.KeptSixValues);
  record.SetupValue122 = at.Fixed(122);
  record.SetupByte124 = at.Byte(124);
  record.SetupByte125 = at.Byte(125);
  record.SetupByte126 = at.Byte(126);
  record.SetupValue127 = at.Fixed24Wide(127);
  SetText(record.SetupText130, at.Chars(130, 4));
  record.SetupWord134 = at.Word(134);
  record.SetupWord136 = at.Word(136);
  record.StreamSelector = at.Byte(140);
  record.PeriodValue = at.Byte(141);
  record.PeriodUnit = at.Byte(142);
  record.SetupByte145 = at.Byte(145);
  record.SetupByte146 = at.Byte(146);
  record.SetupByte147 = at.Byte(147);
  record.SetupByte148 = at.Byte(148);
  record.SetupByte153 = at.Byte(153);
  record.SetupByte154 = at.Byte(154);
  record.SetupByte155 = at.Byte(155);
  record.SetupByte156 = at.Byte(156);
  record.SetupByte157 = at.Byte(157);
  record.SetupByte158 = at.Byte(158);
  record.SetupByte159 = at.Byte(159);
  record.SetupByte160 = at.Byte(160);
  record.SetupByte161 = at.Byte(161);
  record.SetupByte162 = at.Byte(162);
  record.SetupByte163 = at.Byte(163);
  record.SetupByte164 = at.Byte(164);
  record.SetupByte165 = at.Byte(165);
  record.SetupByte166 = at.Byte(166);
  record.SetupByte167 = at.Byte(167);
  record.SetupByte173 = at.Byte(173);
  record.SetupByte174 = at.Byte(174);
  record.IntervalSamplePeriod = at.Byte(176);
  SetText(record.ClockC, at.PackedTime(177));
  record.SetupByte179 = at.Byte(179);
  record.SetupByte180 = at.Byte(180);
  record.StreamLevelBase = at.Byte(181);
  record.StreamMaskA = at.Byte(182);
  record.StreamMaskB = at.Byte(184);
  record.StreamMaskE = at.Byte(185);
  record.StreamMaskC = at.Byte(186);
  record.StreamMaskD = at.Byte(183);
  record.StreamMaskF = at.Byte(187);
  if (state.firmware >= static_cast<double>(3.6F)) {
    record.SetupWord138 = at.Byte(138);
    record.SetupByte139 = at.Small(139);
  } else {
    record.SetupWord138 = at.Word(138);
  }
  // These bytes belong to no field of the block.
  std::memset(record.Unwritten304, kUnwritten, sizeof record.Unwritten304);
  std::memset(record.Unwritten313, kUnwritten, sizeof record.Unwritten313);
  return record;
}

QvSetupShort ShortSetup(const Instrument&, const BlockBytes& at, QvSetupShort record) {
  record.SetupByte74 = at.Byte(74);
  record.SetupByte75 = at.Byte(75);
  record.SetupByte86 = at.Byte(86);
  record.SetupByte87 = at.Byte(87);
  record.SetupByte88 = at.Byte(88);
  record.SetupByte89 = at.Byte(89);
  record.SetupByte90 = at.Byte(90);
  record.SetupByte91 = at.Byte(91);
  record.SetupByte92 = at.Byte(92);
  record.SetupByte145 = at.Byte(145);
  record.SetupByte146 = at.Byte(146);
  record.SetupByte147 = at.Byte(147);
  return record;
}

QvSetupSpectrum SpectrumSetup(const Instrument&, const BlockBytes& at, QvSetupSpectrum record) {
  record.SetupFlagsByte = at.Small(41);
  record.FlagsA = at.Small(42);
  record.FlagsC = at.Small(48);
  record.SetupValue74 = at.Fixed24(74);
  record.SetupByte77 = at.Small(77);
  record.SetupWord78 = at.Word(78);
  record.SetupWord80 = at.Word(80);
  record.SetupByte93 = at.Small(93);
  record.SetupByte94 = at.Small(94);
  record.SetupByte119 = at.Small(119);
  record.SetupByte120 = at.Small(120);
  record.SetupByte121 = at.Small(121);
  SetText(record.SetupText122, at.Chars(122, 8));
  record.SetupByte130 = at.Small(130);
  // Three groups, of which the first two stand in each other's places but for their bytes.
  static constexpr std::size_t kGroups[3] = {95, 103, 111};
  static constexpr std::size_t kPlaces[3] = {1, 0, 2};
  for (std::size_t group = 0; group < 3; ++group) {
    std::size_t const from = kGroups[group];
    record.GroupBytes[group] = at.Small(from);
    record.GroupValues[kPlaces[group]] = at.SignedFixed(from + 1);
    record.GroupFixed[kPlaces[group]] = at.Fixed24(from + 3);
    record.GroupWords[kPlaces[group]] = at.Word(from + 6);
  }
  return record;
}

QvSetupNarrow NarrowSetup(const Instrument&, const BlockBytes& at, QvSetupNarrow record) {
  record.SetupByte75 = at.Byte(75);
  record.SetupByte93 = at.Byte(93);
  record.SetupByte47Or78 = at.Byte(78);  // above firmware 3.115
  record.SetupByte47Bit64 = at.Byte(47) & 64;
  record.SetupWord76 = at.Word(76);
  return record;
}

QvSetupTally TallySetup(const Instrument&, const BlockBytes& at, QvSetupTally record) {
  SetText(record.ClockA, at.PlainClock(71));
  record.SetupByte86 = at.Byte(86);
  record.SetupByte87 = at.Byte(87);
  record.SetupByte93 = at.Byte(93);
  SetText(record.ClockB, at.PlainClock(100));
  record.FlagsB = at.Byte(47);
  at.SignedFixed(110, record.KeptSixValues);
  record.StreamSelector = at.Byte(140);
  record.PeriodValue = at.Byte(141);
  record.PeriodUnit = at.Byte(142);
  record.StreamLevelBase = at.Byte(181);
  record.StreamMaskA = at.Byte(182);
  record.StreamMaskD = at.Byte(183);
  record.StreamMaskB = at.Byte(184);
  record.StreamMaskE = at.Byte(185);
  record.StreamMaskC = at.Byte(186);
  record.StreamMaskF = at.Byte(187);
  record.SetupByte188 = at.Small(188);
  record.SetupByte189 = at.Small(189);
  return record;
}

}  // namespace samples
