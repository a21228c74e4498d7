// The reference records 50, and 30 of model 431, but for their two stamps.
#pragma once

#include "models/position_table.h"

namespace qvslm {

using R50 = QvReference;
using R30 = QvReference431;

constexpr Position kReference[] = {
    {QV_NUMBERED(0, R50, ReferenceByte), BodyForm::Byte},
    {QV_NUMBERED(1, R50, ReferenceByte), BodyForm::Byte},
    {QV_NUMBERED(3, R50, ReferenceValue), BodyForm::SignedFixed16},
    {QV_NUMBERED(5, R50, ReferenceValue), BodyForm::SignedFixed16},
    {QV_NUMBERED(7, R50, ReferenceValue), BodyForm::SignedFixed16},
    {QV_NUMBERED(21, R50, ReferenceLevel), BodyForm::Level},
    {QV_NUMBERED(23, R50, ReferenceLevel), BodyForm::Level},
    {QV_NUMBERED(25, R50, ReferenceLevel), BodyForm::Level},
    {QV_NUMBERED(37, R50, ReferenceValue), BodyForm::SignedFixed16},
    {QV_NUMBERED(39, R50, ReferenceLevel), BodyForm::Level},
    {QV_NUMBERED(41, R50, ReferenceLevel), BodyForm::Level},
    {QV_NUMBERED(63, R50, ReferenceWord), BodyForm::Word},
};

static_assert(IsSoundTable(kReference));

constexpr Position kReference431[] = {
    {QV_NUMBERED(0, R30, ReferenceByte), BodyForm::Byte},
    {QV_NUMBERED(1, R30, ReferenceByte), BodyForm::Byte},
    {QV_NUMBERED(2, R30, ReferenceByte), BodyForm::Byte},
    {QV_NUMBERED(3, R30, ReferenceValue), BodyForm::SignedFixed16},
    {QV_NUMBERED(5, R30, ReferenceValue), BodyForm::SignedFixed16},
    {QV_NUMBERED(7, R30, ReferenceLevel), BodyForm::Level},
    {QV_NUMBERED(21, R30, ReferenceLevel), BodyForm::Level},
    {QV_NUMBERED(43, R30, ReferenceLevel), BodyForm::Level},
    {QV_NUMBERED(45, R30, ReferenceLevel), BodyForm::Level},
    {QV_NUMBERED(47, R30, ReferenceLevel), BodyForm::Level},
    {QV_NUMBERED(49, R30, ReferenceValue), BodyForm::Ratio},
    {QV_NUMBERED(51, R30, ReferenceValue), BodyForm::Ratio},
    {QV_NUMBERED(53, R30, ReferenceValue), BodyForm::Ratio},
    {QV_NUMBERED(55, R30, ReferenceByte), BodyForm::Byte},
    {QV_NUMBERED(56, R30, ReferenceByte), BodyForm::Byte},
    {QV_NUMBERED(57, R30, ReferenceBytes), BodyForm::WideBytes},
    {QV_NUMBERED(90, R30, ReferenceByte), BodyForm::Byte},
    {QV_NUMBERED(91, R30, ReferenceByte), BodyForm::Byte},
    {QV_NUMBERED(92, R30, ReferenceByte), BodyForm::Byte},
    {QV_NUMBERED(127, R30, ReferenceWord), BodyForm::Word},
};

static_assert(IsSoundTable(kReference431));

}  // namespace qvslm
