// Joining register words from fields of bits.
#pragma once

#include <string>
#include <string_view>

#include "engine/Types.h"

namespace tessarine {

// `Text` from the last character to the first.
[[nodiscard]] String ReverseStr(std::string_view Text);

// A value as `width` binary digits, most significant first. A Fault names the field and its limits when the
// value is no whole number of that many bits.
[[nodiscard]] String naturalField(std::string_view name, double value, int width);

// The same in shifting order, bit 0 first.
[[nodiscard]] String shiftingField(std::string_view name, double value, int width);

// The digits of a panel value in exactly `width` characters: zeros in front when shorter, and only the
// leftmost `width` when longer.
[[nodiscard]] String PadBits(Integer value, int width);

}  // namespace tessarine
