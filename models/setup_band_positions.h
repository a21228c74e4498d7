// The setups of mode 0: record 51, and record 33 of model 431.
#pragma once

#include "models/position_table.h"

namespace qvslm {

using R51 = QvSetupBand;
using R33 = QvSetupBand431;

constexpr Position kSetupBand[] = {
    {42, QV_FIELD(R51, FlagsA), BodyForm::Byte},
    {47, QV_FIELD(R51, FlagsB), BodyForm::Byte, Firmware::Above201},
    {49, QV_FIELD(R51, FlagsD), BodyForm::Byte, Firmware::From36},
    {QV_NUMBERED(56, R51, SetupByte), BodyForm::Byte},
    {57, QV_FIELD(R51, DateA), BodyForm::DateText},
    {60, QV_FIELD(R51, DateB), BodyForm::DateText},
    {63, QV_FIELD(R51, TimeA), BodyForm::ShortClockText},
    {65, QV_FIELD(R51, TimeB), BodyForm::ShortClockText},
    {67, QV_FIELD(R51, TimeC), BodyForm::ShortClockText},
    {69, QV_FIELD(R51, TimeD), BodyForm::ShortClockText},
    {71, QV_FIELD(R51, ClockA), BodyForm::ClockText},
    {QV_NUMBERED(86, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(87, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(89, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(90, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(92, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(93, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(94, R51, SetupByte), BodyForm::Byte, Firmware::Above3115},
    {QV_NUMBERED(98, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(99, R51, SetupByte), BodyForm::Byte},
    {100, QV_FIELD(R51, ClockB), BodyForm::PlainClockText},
    {103, QV_FIELD(R51, SecondSpectrumOn), BodyForm::Byte, Firmware::Above201},
    {104, QV_FIELD(R51, SpectraKind), BodyForm::Byte},
    {110, QV_FIELD(R51, KeptSixValues), BodyForm::SignedFixed16, Firmware::Above201},
    {QV_NUMBERED(122, R51, SetupValue), BodyForm::Fixed16, Firmware::Above201},
    {QV_NUMBERED(124, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(125, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(126, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(127, R51, SetupValue), BodyForm::Fixed24Wide, Firmware::From36},
    {QV_NUMBERED(130, R51, SetupText), BodyForm::Bytes, Firmware::From36},
    {QV_NUMBERED(134, R51, SetupWord), BodyForm::Word, Firmware::From36},
    {QV_NUMBERED(136, R51, SetupWord), BodyForm::Word, Firmware::From36},
    {QV_NUMBERED(138, R51, SetupByte), BodyForm::Byte, Firmware::From36},
    {QV_NUMBERED(139, R51, SetupByte), BodyForm::Byte, Firmware::From36},
    {140, QV_FIELD(R51, StreamSelector), BodyForm::Byte, Firmware::Above201},
    {141, QV_FIELD(R51, PeriodValue), BodyForm::Byte, Firmware::Above201},
    {142, QV_FIELD(R51, PeriodUnit), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(145, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(146, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(147, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(148, R51, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(153, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(154, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(155, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(156, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(157, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(158, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(159, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(160, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(161, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(162, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(163, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(164, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(165, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(179, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(180, R51, SetupByte), BodyForm::Byte, Firmware::Above201},
    {181, QV_FIELD(R51, StreamLevelBase), BodyForm::Byte, Firmware::Above201},
    {182, QV_FIELD(R51, StreamMaskA), BodyForm::Byte, Firmware::Above201},
    {183, QV_FIELD(R51, StreamMaskD), BodyForm::Byte, Firmware::Above201},
    {184, QV_FIELD(R51, StreamMaskB), BodyForm::Byte, Firmware::Above201},
    {185, QV_FIELD(R51, StreamMaskE), BodyForm::Byte, Firmware::Above201},
    {186, QV_FIELD(R51, StreamMaskC), BodyForm::Byte, Firmware::Above201},
    {187, QV_FIELD(R51, StreamMaskF), BodyForm::Byte, Firmware::Above201},
};

static_assert(IsSoundTable(kSetupBand));

constexpr Position kSetupBand431[] = {
    {42, QV_FIELD(R33, FlagsA), BodyForm::Byte},
    {QV_NUMBERED(56, R33, SetupByte), BodyForm::Byte},
    {57, QV_FIELD(R33, DateA), BodyForm::DateText},
    {60, QV_FIELD(R33, DateB), BodyForm::DateText},
    {63, QV_FIELD(R33, TimeA), BodyForm::ShortClockText},
    {65, QV_FIELD(R33, TimeB), BodyForm::ShortClockText},
    {67, QV_FIELD(R33, TimeC), BodyForm::ShortClockText},
    {69, QV_FIELD(R33, TimeD), BodyForm::ShortClockText},
    {71, QV_FIELD(R33, ClockA), BodyForm::ClockText},
    {QV_NUMBERED(86, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(87, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(88, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(89, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(90, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(91, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(98, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(99, R33, SetupByte), BodyForm::Byte},
    {100, QV_FIELD(R33, ClockB), BodyForm::ClockText},
    {QV_NUMBERED(110, R33, SetupBytes), BodyForm::WideBytes},
    {QV_NUMBERED(145, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(146, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(147, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(148, R33, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(153, R33, SetupBytes), BodyForm::WideBytes},
};

static_assert(IsSoundTable(kSetupBand431));

}  // namespace qvslm
