// Words as levels of a module's pins, one byte a step, bit n being pin n.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tessarine {

struct ShiftPins {  // masks
  std::uint8_t clock = 0;
  std::uint8_t data = 0;
  std::uint8_t load = 0;
};

// Steps per second asked of the module. Chips of this kind take clocks of 10 MHz and more and load pulses of
// 50 ns; modules differ in how many steps they make of one unit of this rate (1 to 16, after libftdi's own
// factor of 4), so a step is between 0.25 and 4 microseconds, and a word takes a fraction of a millisecond in
// any case.
inline constexpr int kBitBangRate = 62500;

// All lines low; each character from the last to the first with the clock low, high and low again; all low;
// load enable high; all low.
[[nodiscard]] std::vector<std::uint8_t> shiftedWord(const ShiftPins& pins, std::string_view word);

}  // namespace tessarine
