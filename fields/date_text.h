// Seconds from dates and times of day in text.
#pragma once

#include <string_view>

#include "api/context.h"

namespace qvslm {

// By the format codes of TX_DateToSecs; a time that is not there is an empty text, midnight. 0 when
// the date cannot be converted.
u32 DateToSecs(std::string_view date, std::string_view time, i16 format);

// What stands in a text from a column on, cut to a width; empty where the text is shorter.
std::string_view Columns(std::string_view text, std::size_t column,
                         std::size_t width = std::string_view::npos);

}  // namespace qvslm
