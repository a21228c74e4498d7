// Numbers from text, and back. Nothing here asks the host's locale.
#pragma once

#include <string_view>

#include "api/context.h"

namespace qvslm {

// The decimal number at the start of the text: white space, a sign, digits; 0 when there is none.
// Held at the ends of 64 bits; WholeNumber takes the low 32 bits of it.
i64 LongNumber(std::string_view text);
i32 WholeNumber(std::string_view text);

// WholeNumber of what stands from the column on; 0 where the text is shorter.
i32 NumberAt(std::string_view text, std::size_t column);

// The floating-point number at the start of the text, with exponent, hexadecimal, infinities and
// all; 0 when there is none.
f64 FloatNumber(std::string_view text);

// A number in plain decimal notation, without exponent: blanks, a sign, blanks, digits, a point,
// digits. 0, or -1 when no number was found; the result is 0.0 then.
i32 ParseDouble(std::string_view text, f64* result);

// "hh:mm:ss", or "mm:ss.s" when the text holds a point and is shorter than 9 characters, as
// seconds; 0.0 when it is neither.
f64 ParseHms(std::string_view text);

// "hh:mm:ss.s" of a length of time, with as many digits of hours as it takes from 24 hours on. The
// text takes up to 32 bytes.
i32 FormatHms(f32 seconds, char* text);

// "230.0V": one decimal. The text is cut to the size, its NUL included.
void FormatVoltage(f64 value, char* text, std::size_t size);

// The text cut to what the field holds with a NUL behind it.
void CopyText(char* field, std::size_t size, std::string_view text);

}  // namespace qvslm
