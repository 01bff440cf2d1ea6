// Decimal numbers as texts: a frequency goes from Hz to MHz and back without a rounding.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessarine::remote {

// The text of a plain decimal number, times ten to the power of `exponent`: "900.07" and 6 give "900070000".
// `plain` is digits with at most one point among them, and a sign in front or none.
[[nodiscard]] std::string shifted(std::string_view plain, int exponent);

// Its value, whatever the locale; beyond a double it is infinite.
[[nodiscard]] double valueOf(std::string_view plain);

// The number at the front of a field, as the program itself reads it; nothing for an empty field.
[[nodiscard]] std::optional<std::string> fieldNumber(std::string_view field);

struct CommandNumber {
  std::string plain;        // without the exponent, ready for shifted()
  int exponent = 0;         // far beyond any use it is cut to one that is no less so
  std::string_view suffix;  // the unit behind it
};
// Nothing for a text that does not begin with a number.
[[nodiscard]] std::optional<CommandNumber> commandNumber(std::string_view text);

// A double to a thousandth, without idle zeros.
[[nodiscard]] std::string plainText(double value);

}  // namespace tessarine::remote
