// The setups of mode 1: record 52, and record 34 of model 431.
#pragma once

#include <cstddef>

#include "models/position_table.h"

namespace qvslm {

using R52 = QvSetupShort;
using R34 = QvSetupShort431;

constexpr Position kSetupShort[] = {
    {74, BodyForm::Byte, offsetof(R52, SetupByte74), sizeof(R52::SetupByte74)},
    {75, BodyForm::Byte, offsetof(R52, SetupByte75), sizeof(R52::SetupByte75)},
    {86, BodyForm::Byte, offsetof(R52, SetupByte86), sizeof(R52::SetupByte86)},
    {87, BodyForm::Byte, offsetof(R52, SetupByte87), sizeof(R52::SetupByte87)},
    {88, BodyForm::Byte, offsetof(R52, SetupByte88), sizeof(R52::SetupByte88)},
    {89, BodyForm::Byte, offsetof(R52, SetupByte89), sizeof(R52::SetupByte89)},
    {90, BodyForm::Byte, offsetof(R52, SetupByte90), sizeof(R52::SetupByte90)},
    {91, BodyForm::Byte, offsetof(R52, SetupByte91), sizeof(R52::SetupByte91)},
    {92, BodyForm::Byte, offsetof(R52, SetupByte92), sizeof(R52::SetupByte92)},
    {145, BodyForm::Byte, offsetof(R52, SetupByte145), sizeof(R52::SetupByte145)},
    {146, BodyForm::Byte, offsetof(R52, SetupByte146), sizeof(R52::SetupByte146)},
    {147, BodyForm::Byte, offsetof(R52, SetupByte147), sizeof(R52::SetupByte147)},
};

constexpr Position kSetupShort431[] = {
    {74, BodyForm::Byte, offsetof(R34, SetupByte74), sizeof(R34::SetupByte74)},
    {75, BodyForm::Byte, offsetof(R34, SetupByte75), sizeof(R34::SetupByte75)},
    {76, BodyForm::Byte, offsetof(R34, SetupByte76), sizeof(R34::SetupByte76)},
    {86, BodyForm::Byte, offsetof(R34, SetupByte86), sizeof(R34::SetupByte86)},
    {87, BodyForm::Byte, offsetof(R34, SetupByte87), sizeof(R34::SetupByte87)},
    {88, BodyForm::Byte, offsetof(R34, SetupByte88), sizeof(R34::SetupByte88)},
    {89, BodyForm::Byte, offsetof(R34, SetupByte89), sizeof(R34::SetupByte89)},
    {90, BodyForm::Byte, offsetof(R34, SetupByte90), sizeof(R34::SetupByte90)},
    {91, BodyForm::Byte, offsetof(R34, SetupByte91), sizeof(R34::SetupByte91)},
    {92, BodyForm::Byte, offsetof(R34, SetupByte92), sizeof(R34::SetupByte92)},
    {145, BodyForm::Byte, offsetof(R34, SetupByte145), sizeof(R34::SetupByte145)},
    {146, BodyForm::Byte, offsetof(R34, SetupByte146), sizeof(R34::SetupByte146)},
    {147, BodyForm::Byte, offsetof(R34, SetupByte147), sizeof(R34::SetupByte147)},
};

}  // namespace qvslm
