// The setups of mode 1: record 52, and record 34 of model 431.
#pragma once

#include "models/position_table.h"

namespace qvslm {

using R52 = QvSetupShort;
using R34 = QvSetupShort431;

constexpr Position kSetupShort[] = {
    {QV_NUMBERED(74, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(75, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(86, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(87, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(88, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(89, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(90, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(91, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(92, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(145, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(146, R52, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(147, R52, SetupByte), BodyForm::Byte},
};

static_assert(IsSoundTable(kSetupShort));

constexpr Position kSetupShort431[] = {
    {QV_NUMBERED(74, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(75, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(76, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(86, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(87, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(88, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(89, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(90, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(91, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(92, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(145, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(146, R34, SetupByte), BodyForm::Byte},
    {QV_NUMBERED(147, R34, SetupByte), BodyForm::Byte},
};

static_assert(IsSoundTable(kSetupShort431));

}  // namespace qvslm
