// Every rounding of the program by its name. Dividers depend on which one applies.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/Types.h"

namespace tessarine {

[[nodiscard]] double roundHalfEven(double value);  // nearest, a tie to the even number
[[nodiscard]] double roundHalfUp(double value);    // floor(value + 0.5)
[[nodiscard]] double roundHalfAway(double value);  // nearest, a tie away from zero
[[nodiscard]] double roundDown(double value);      // floor
[[nodiscard]] Single toSingle(double value);

// The nearest Integer, a tie to the even number. `name` is the field that a Fault speaks of when the value is
// beyond 16 bits.
[[nodiscard]] Integer toInteger(double value, std::string_view name);

// The same for 32 bits.
[[nodiscard]] std::int32_t toLong(double value, std::string_view name);

}  // namespace tessarine
