// English month names, whatever the host's locale. Index 0 stands for no month.
#pragma once

namespace qvslm {

inline constexpr const char* kMonthNames[] = {"???", "Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

}  // namespace qvslm
