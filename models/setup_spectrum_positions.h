// The setups of modes 4, 5 and 7: records 70, 63 and 60.
#pragma once

#include "models/position_table.h"

namespace qvslm {

using R70 = QvSetupSpectrum;
using R63 = QvSetupNarrow;
using R60 = QvSetupTally;

constexpr Position kSetupSpectrum[] = {
    {42, QV_FIELD(R70, FlagsA), BodyForm::Byte},
    {48, QV_FIELD(R70, FlagsC), BodyForm::Byte},
    {QV_NUMBERED(74, R70, SetupValue), BodyForm::Fixed24},
    {QV_NUMBERED(77, R70, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(78, R70, SetupWord), BodyForm::Word},
    {QV_NUMBERED(80, R70, SetupWord), BodyForm::Word},
    {QV_NUMBERED(93, R70, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(94, R70, SetupByte), BodyForm::Byte},
    {95, QV_FIELD(R70, GroupBytes[0]), BodyForm::Byte},
    {96, QV_FIELD(R70, GroupValues[1]), BodyForm::SignedFixed16},
    {98, QV_FIELD(R70, GroupFixed[1]), BodyForm::Fixed24},
    {101, QV_FIELD(R70, GroupWords[1]), BodyForm::Word},
    {103, QV_FIELD(R70, GroupBytes[1]), BodyForm::Byte},
    {104, QV_FIELD(R70, GroupValues[0]), BodyForm::SignedFixed16},
    {106, QV_FIELD(R70, GroupFixed[0]), BodyForm::Fixed24},
    {109, QV_FIELD(R70, GroupWords[0]), BodyForm::Word},
    {111, QV_FIELD(R70, GroupBytes[2]), BodyForm::Byte},
    {112, QV_FIELD(R70, GroupValues[2]), BodyForm::SignedFixed16},
    {114, QV_FIELD(R70, GroupFixed[2]), BodyForm::Fixed24},
    {117, QV_FIELD(R70, GroupWords[2]), BodyForm::Word},
    {QV_NUMBERED(119, R70, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(120, R70, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(121, R70, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(122, R70, SetupText), BodyForm::EndedBytes},
    {QV_NUMBERED(130, R70, SetupByte), BodyForm::Byte},
};

static_assert(IsSoundTable(kSetupSpectrum));

constexpr Position kSetupNarrow[] = {
    {QV_NUMBERED(75, R63, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(76, R63, SetupWord), BodyForm::Word},
    {QV_NUMBERED(93, R63, SetupByte), BodyForm::Byte},
};

static_assert(IsSoundTable(kSetupNarrow));

constexpr Position kSetupTally[] = {
    {47, QV_FIELD(R60, FlagsB), BodyForm::Byte, Firmware::Above201},
    {71, QV_FIELD(R60, ClockA), BodyForm::PlainClockText},
    {QV_NUMBERED(86, R60, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(87, R60, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(93, R60, SetupByte), BodyForm::Byte},
    {100, QV_FIELD(R60, ClockB), BodyForm::PlainClockText},
    {110, QV_FIELD(R60, KeptSixValues), BodyForm::SignedFixed16, Firmware::Above201},
    {140, QV_FIELD(R60, StreamSelector), BodyForm::Byte, Firmware::Above201},
    {141, QV_FIELD(R60, PeriodValue), BodyForm::Byte, Firmware::Above201},
    {142, QV_FIELD(R60, PeriodUnit), BodyForm::Byte, Firmware::Above201},
    {181, QV_FIELD(R60, StreamLevelBase), BodyForm::Byte, Firmware::Above201},
    {182, QV_FIELD(R60, StreamMaskA), BodyForm::Byte, Firmware::Above201},
    {183, QV_FIELD(R60, StreamMaskD), BodyForm::Byte, Firmware::Above201},
    {184, QV_FIELD(R60, StreamMaskB), BodyForm::Byte, Firmware::Above201},
    {185, QV_FIELD(R60, StreamMaskE), BodyForm::Byte, Firmware::Above201},
    {186, QV_FIELD(R60, StreamMaskC), BodyForm::Byte, Firmware::Above201},
    {187, QV_FIELD(R60, StreamMaskF), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(188, R60, SetupByte), BodyForm::Byte, Firmware::Above201},
    {QV_NUMBERED(189, R60, SetupByte), BodyForm::Byte, Firmware::Above201},
};

static_assert(IsSoundTable(kSetupTally));

}  // namespace qvslm
