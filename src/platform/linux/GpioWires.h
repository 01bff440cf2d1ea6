// Which GPIO lines are which wires of the board.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessarine {

// What a line is for. The first eight are bits of the connector's data register, pins 2 to 9.
inline constexpr std::array<std::string_view, 9> kGpioRoles{"clock", "data", "load", "pin5", "pin6",
                                                            "pin7",  "pin8", "pin9", "lock"};
inline constexpr std::size_t kClockRole = 0;
inline constexpr std::size_t kDataRole = 1;
inline constexpr std::size_t kLoadRole = 2;
inline constexpr std::size_t kLockRole = 8;  // the one input

// By role, the name that the kernel gives a line; empty where there is none.
using GpioWires = std::array<std::string, kGpioRoles.size()>;

// On the 40-pin header of a Raspberry Pi.
[[nodiscard]] GpioWires usualGpioWires();

// A file with a line for each role: the role, blanks, the line's name; "#" begins a comment. A Fault tells of
// a file that cannot be read, an unknown role, a role or a name that stands there twice, a wire that is left
// out.
[[nodiscard]] GpioWires readGpioWires(const std::string& path);

}  // namespace tessarine
