// The reference records 50, and 30 of model 431, but for their two stamps.
#pragma once

#include <cstddef>

#include "models/position_table.h"

namespace qvslm {

using R50 = QvReference;
using R30 = QvReference431;

constexpr Position kReference[] = {
    {0, BodyForm::Byte, offsetof(R50, ReferenceByte0), sizeof(R50::ReferenceByte0)},
    {1, BodyForm::Byte, offsetof(R50, ReferenceByte1), sizeof(R50::ReferenceByte1)},
    {3, BodyForm::SignedFixed16, offsetof(R50, ReferenceValue3), sizeof(R50::ReferenceValue3)},
    {5, BodyForm::SignedFixed16, offsetof(R50, ReferenceValue5), sizeof(R50::ReferenceValue5)},
    {7, BodyForm::SignedFixed16, offsetof(R50, ReferenceValue7), sizeof(R50::ReferenceValue7)},
    {21, BodyForm::Level, offsetof(R50, ReferenceLevel21), sizeof(R50::ReferenceLevel21)},
    {23, BodyForm::Level, offsetof(R50, ReferenceLevel23), sizeof(R50::ReferenceLevel23)},
    {25, BodyForm::Level, offsetof(R50, ReferenceLevel25), sizeof(R50::ReferenceLevel25)},
    {37, BodyForm::SignedFixed16, offsetof(R50, ReferenceValue37), sizeof(R50::ReferenceValue37)},
    {39, BodyForm::Level, offsetof(R50, ReferenceLevel39), sizeof(R50::ReferenceLevel39)},
    {41, BodyForm::Level, offsetof(R50, ReferenceLevel41), sizeof(R50::ReferenceLevel41)},
    {63, BodyForm::Word, offsetof(R50, ReferenceWord63), sizeof(R50::ReferenceWord63)},
};

constexpr Position kReference431[] = {
    {0, BodyForm::Byte, offsetof(R30, ReferenceByte0), sizeof(R30::ReferenceByte0)},
    {1, BodyForm::Byte, offsetof(R30, ReferenceByte1), sizeof(R30::ReferenceByte1)},
    {2, BodyForm::Byte, offsetof(R30, ReferenceByte2), sizeof(R30::ReferenceByte2)},
    {3, BodyForm::SignedFixed16, offsetof(R30, ReferenceValue3), sizeof(R30::ReferenceValue3)},
    {5, BodyForm::SignedFixed16, offsetof(R30, ReferenceValue5), sizeof(R30::ReferenceValue5)},
    {7, BodyForm::Level, offsetof(R30, ReferenceLevel7), sizeof(R30::ReferenceLevel7)},
    {21, BodyForm::Level, offsetof(R30, ReferenceLevel21), sizeof(R30::ReferenceLevel21)},
    {43, BodyForm::Level, offsetof(R30, ReferenceLevel43), sizeof(R30::ReferenceLevel43)},
    {45, BodyForm::Level, offsetof(R30, ReferenceLevel45), sizeof(R30::ReferenceLevel45)},
    {47, BodyForm::Level, offsetof(R30, ReferenceLevel47), sizeof(R30::ReferenceLevel47)},
    {49, BodyForm::Ratio, offsetof(R30, ReferenceValue49), sizeof(R30::ReferenceValue49)},
    {51, BodyForm::Ratio, offsetof(R30, ReferenceValue51), sizeof(R30::ReferenceValue51)},
    {53, BodyForm::Ratio, offsetof(R30, ReferenceValue53), sizeof(R30::ReferenceValue53)},
    {55, BodyForm::Byte, offsetof(R30, ReferenceByte55), sizeof(R30::ReferenceByte55)},
    {56, BodyForm::Byte, offsetof(R30, ReferenceByte56), sizeof(R30::ReferenceByte56)},
    {57, BodyForm::WideBytes, offsetof(R30, ReferenceBytes57), sizeof(R30::ReferenceBytes57)},
    {90, BodyForm::Byte, offsetof(R30, ReferenceByte90), sizeof(R30::ReferenceByte90)},
    {91, BodyForm::Byte, offsetof(R30, ReferenceByte91), sizeof(R30::ReferenceByte91)},
    {92, BodyForm::Byte, offsetof(R30, ReferenceByte92), sizeof(R30::ReferenceByte92)},
    {127, BodyForm::Word, offsetof(R30, ReferenceWord127), sizeof(R30::ReferenceWord127)},
};

}  // namespace qvslm
