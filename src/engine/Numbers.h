// How numbers are read from text and written to it, whatever the locale.
#pragma once

#include <string>
#include <string_view>

#include "engine/Types.h"

namespace tessarine {

// The number at the front of a text: leading blanks (spaces and tabs) skipped, an optional sign, digits and
// one decimal point; the first other character ends it. 0 without one. No exponent, no hexadecimal, no inf or
// nan; more digits than a Double can hold give infinity.
[[nodiscard]] double leadingNumber(std::string_view text);

// Whether a text begins with a number, without blanks in front.
[[nodiscard]] bool startsWithNumber(std::string_view text);

// The number at the front, rounded to the nearest Integer with ties to even; a Fault names `field` when it is
// beyond 16 bits.
[[nodiscard]] Integer leadingInteger(std::string_view text, std::string_view field);

// The same as a Single; a Fault names `field` when it is beyond its range.
[[nodiscard]] Single leadingSingle(std::string_view text, std::string_view field);

// Plain decimal text of at most `digits` significant digits without trailing zeros, below 1 with a leading
// zero.
[[nodiscard]] std::string plainDecimal(double value, int digits);

// Always six decimals, as in "1747.200000".
[[nodiscard]] std::string sixDecimals(double value);

// A value as a message names it: plain decimal, with an exponent only from 1e15 on.
[[nodiscard]] std::string messageNumber(double value);

}  // namespace tessarine
