// The setups of modes 4, 5 and 7: records 70, 63 and 60.
#pragma once

#include <cstddef>

#include "models/position_table.h"

namespace qvslm {

using R70 = QvSetupSpectrum;
using R63 = QvSetupNarrow;
using R60 = QvSetupTally;

constexpr Position kSetupSpectrum[] = {
    {42, BodyForm::Byte, offsetof(R70, FlagsA), sizeof(R70::FlagsA)},
    {48, BodyForm::Byte, offsetof(R70, FlagsC), sizeof(R70::FlagsC)},
    {74, BodyForm::Fixed24, offsetof(R70, SetupValue74), sizeof(R70::SetupValue74)},
    {77, BodyForm::Byte, offsetof(R70, SetupByte77), sizeof(R70::SetupByte77)},
    {78, BodyForm::Word, offsetof(R70, SetupWord78), sizeof(R70::SetupWord78)},
    {80, BodyForm::Word, offsetof(R70, SetupWord80), sizeof(R70::SetupWord80)},
    {93, BodyForm::Byte, offsetof(R70, SetupByte93), sizeof(R70::SetupByte93)},
    {94, BodyForm::Byte, offsetof(R70, SetupByte94), sizeof(R70::SetupByte94)},
    {95, BodyForm::Byte, offsetof(R70, GroupBytes), 1},
    {96, BodyForm::SignedFixed16, offsetof(R70, GroupValues) + 4, 4},
    {98, BodyForm::Fixed24, offsetof(R70, GroupFixed) + 4, 4},
    {101, BodyForm::Word, offsetof(R70, GroupWords) + 2, 2},
    {103, BodyForm::Byte, offsetof(R70, GroupBytes) + 1, 1},
    {104, BodyForm::SignedFixed16, offsetof(R70, GroupValues), 4},
    {106, BodyForm::Fixed24, offsetof(R70, GroupFixed), 4},
    {109, BodyForm::Word, offsetof(R70, GroupWords), 2},
    {111, BodyForm::Byte, offsetof(R70, GroupBytes) + 2, 1},
    {112, BodyForm::SignedFixed16, offsetof(R70, GroupValues) + 8, 4},
    {114, BodyForm::Fixed24, offsetof(R70, GroupFixed) + 8, 4},
    {117, BodyForm::Word, offsetof(R70, GroupWords) + 4, 2},
    {119, BodyForm::Byte, offsetof(R70, SetupByte119), sizeof(R70::SetupByte119)},
    {120, BodyForm::Byte, offsetof(R70, SetupByte120), sizeof(R70::SetupByte120)},
    {121, BodyForm::Byte, offsetof(R70, SetupByte121), sizeof(R70::SetupByte121)},
    {122, BodyForm::Bytes, offsetof(R70, SetupText122), 8},
    {130, BodyForm::Byte, offsetof(R70, SetupByte130), sizeof(R70::SetupByte130)},
};

constexpr Position kSetupNarrow[] = {
    {75, BodyForm::Byte, offsetof(R63, SetupByte75), sizeof(R63::SetupByte75)},
    {76, BodyForm::Word, offsetof(R63, SetupWord76), sizeof(R63::SetupWord76)},
    {93, BodyForm::Byte, offsetof(R63, SetupByte93), sizeof(R63::SetupByte93)},
};

constexpr Position kSetupTally[] = {
    {47, BodyForm::Byte, offsetof(R60, FlagsB), sizeof(R60::FlagsB), Firmware::Above201},
    {71, BodyForm::PlainClockText, offsetof(R60, ClockA), sizeof(R60::ClockA)},
    {86, BodyForm::Byte, offsetof(R60, SetupByte86), sizeof(R60::SetupByte86)},
    {87, BodyForm::Byte, offsetof(R60, SetupByte87), sizeof(R60::SetupByte87)},
    {93, BodyForm::Byte, offsetof(R60, SetupByte93), sizeof(R60::SetupByte93)},
    {100, BodyForm::PlainClockText, offsetof(R60, ClockB), sizeof(R60::ClockB)},
    {110, BodyForm::SignedFixed16, offsetof(R60, KeptSixValues), sizeof(R60::KeptSixValues),
     Firmware::Above201},
    {140, BodyForm::Byte, offsetof(R60, StreamSelector), sizeof(R60::StreamSelector),
     Firmware::Above201},
    {141, BodyForm::Byte, offsetof(R60, PeriodValue), sizeof(R60::PeriodValue), Firmware::Above201},
    {142, BodyForm::Byte, offsetof(R60, PeriodUnit), sizeof(R60::PeriodUnit), Firmware::Above201},
    {181, BodyForm::Byte, offsetof(R60, StreamLevelBase), sizeof(R60::StreamLevelBase),
     Firmware::Above201},
    {182, BodyForm::Byte, offsetof(R60, StreamMaskA), sizeof(R60::StreamMaskA), Firmware::Above201},
    {183, BodyForm::Byte, offsetof(R60, StreamMaskD), sizeof(R60::StreamMaskD), Firmware::Above201},
    {184, BodyForm::Byte, offsetof(R60, StreamMaskB), sizeof(R60::StreamMaskB), Firmware::Above201},
    {185, BodyForm::Byte, offsetof(R60, StreamMaskE), sizeof(R60::StreamMaskE), Firmware::Above201},
    {186, BodyForm::Byte, offsetof(R60, StreamMaskC), sizeof(R60::StreamMaskC), Firmware::Above201},
    {187, BodyForm::Byte, offsetof(R60, StreamMaskF), sizeof(R60::StreamMaskF), Firmware::Above201},
    {188, BodyForm::Byte, offsetof(R60, SetupByte188), sizeof(R60::SetupByte188),
     Firmware::Above201},
    {189, BodyForm::Byte, offsetof(R60, SetupByte189), sizeof(R60::SetupByte189),
     Firmware::Above201},
};

}  // namespace qvslm
