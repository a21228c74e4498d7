#include "setup_records.h"

namespace samples {

QvSetupBand431 BandSetup431(const Instrument&, const BlockBytes& at, QvSetupBand431 record) {
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
  record.SetupByte88 = at.Byte(88);
  record.SetupByte89 = at.Byte(89);
  record.SetupByte90 = at.Byte(90);
  record.SetupByte91 = at.Byte(91);
  record.SetupByte98 = at.Byte(98);
  record.SetupByte99 = at.Byte(99);
  SetText(record.ClockB, at.PackedClock(100));
  at.Bytes(110, record.SetupBytes110);
  record.SetupByte145 = at.Byte(145);
  record.SetupByte146 = at.Byte(146);
  record.SetupByte147 = at.Byte(147);
  record.SetupByte148 = at.Byte(148);
  at.Bytes(153, record.SetupBytes153);
  return record;
}

QvSetupLogging431 LoggingSetup431(const Instrument&, const BlockBytes& at,
                                  QvSetupLogging431 record) {
  record.FlagsA = at.Byte(42);
  record.SetupByte46 = at.Byte(46);
  record.FlagsB = at.Byte(47);
  record.FlagsC = at.Byte(48);
  record.FlagsD = at.Byte(49);
  record.SetupByte50 = at.Byte(50);
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
  record.SetupByte88 = at.Byte(88);
  record.SetupByte89 = at.Byte(89);
  record.SetupByte90 = at.Byte(90);
  record.SetupByte91 = at.Byte(91);
  record.SetupByte98 = at.Byte(98);
  record.SetupByte99 = at.Byte(99);
  SetText(record.ClockB, at.PlainClock(100));
  at.SignedFixed(110, record.KeptSixValues);
  record.SetupValue122 = at.SignedFixed(122);
  record.SetupByte124 = at.Byte(124);
  record.SetupByte125 = at.Byte(125);
  record.SetupByte126 = at.Byte(126);
  record.SetupValue127 = at.Fixed24Wide(127);
  SetText(record.SetupText130, at.Chars(130, 4));
  record.SetupWord134 = at.Word(134);
  record.SetupWord136 = at.Word(136);
  record.SetupWord138 = at.Word(138);
  record.SecondLevelKind = at.Byte(140);
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
  return record;
}

QvSetupShort431 ShortSetup431(const Instrument&, const BlockBytes& at, QvSetupShort431 record) {
  record.SetupByte74 = at.Byte(74);
  record.SetupByte75 = at.Byte(75);
  record.SetupByte76 = at.Byte(76);
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

}  // namespace samples
