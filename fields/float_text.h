// Floating-point numbers from text, and back: always the nearest one, the even one of two as near.
// Not every standard library has std::from_chars and std::to_chars for them, and the C library's
// functions ask the locale and round in ways of their own.
#pragma once

#include <optional>
#include <string_view>

#include "api/context.h"

namespace qvslm {

// The number at the start of the text, which has no sign: digits with a point, and an exponent of
// ten behind 'e'; behind "0x" hexadecimal digits and an exponent of two behind 'p'; or the name of
// an infinity or of no number, in letters of either case. Nothing when there is none.
std::optional<f64> UnsignedFloat(std::string_view text);

// The number with one decimal, as "%.1f" writes it. The text has no NUL; returns its length.
inline constexpr std::size_t kOneDecimalRoom = 320;
std::size_t WriteOneDecimal(f64 value, char* text);

}  // namespace qvslm
