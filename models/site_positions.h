// The site records 54, and 36 of model 431.
#pragma once

#include "models/position_table.h"

namespace qvslm {

using R54 = QvSite;
using R36 = QvSite431;

constexpr Position kSite[] = {
    {QV_NUMBERED(0, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(1, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(2, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(3, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(4, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(7, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(8, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(9, R54, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(14, R54, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(18, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(19, R54, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(49, R54, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(79, R54, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(109, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(110, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(111, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(112, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(113, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(114, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(115, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(116, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(117, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(118, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(119, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(120, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(121, R54, SiteText), BodyForm::Bytes},
    {151, QV_FIELD(R54, NewSiteNumber), BodyForm::Byte},
    {QV_NUMBERED(152, R54, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(182, R54, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(190, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(191, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(192, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(193, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(194, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(195, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(196, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(197, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(198, R54, SiteValue), BodyForm::SignedFixed16},
    {QV_NUMBERED(200, R54, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(208, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(209, R54, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(210, R54, SiteClock), BodyForm::ShortClockText},
    {QV_NUMBERED(212, R54, SiteValue), BodyForm::SignedFixed16},
    {QV_NUMBERED(214, R54, SiteText), BodyForm::Bytes},
};

static_assert(IsSoundTable(kSite));

constexpr Position kSite431[] = {
    {QV_NUMBERED(0, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(1, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(2, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(3, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(4, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(9, R36, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(14, R36, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(18, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(19, R36, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(49, R36, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(79, R36, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(109, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(110, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(111, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(112, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(113, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(114, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(115, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(116, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(117, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(118, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(119, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(120, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(121, R36, SiteText), BodyForm::Bytes},
    {151, QV_FIELD(R36, NewSiteNumber), BodyForm::Byte},
    {QV_NUMBERED(152, R36, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(182, R36, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(190, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(191, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(192, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(193, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(194, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(195, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(196, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(197, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(198, R36, SiteValue), BodyForm::SignedFixed16},
    {QV_NUMBERED(200, R36, SiteText), BodyForm::Bytes},
    {QV_NUMBERED(208, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(209, R36, SiteByte), BodyForm::Byte},
    {QV_NUMBERED(210, R36, SiteClock), BodyForm::ShortClockText},
};

static_assert(IsSoundTable(kSite431));

}  // namespace qvslm
