// The lines of this computer's GPIO chips, by the kernel's character device, interface version 2.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/linux/GpioWires.h"
#include "platform/linux/Kernel.h"

namespace tessarine {

// The lines of one chip that were asked for.
struct GpioChip {
  std::string node;                    // "/dev/gpiochip0"
  std::vector<std::size_t> roles;      // of kGpioRoles
  std::vector<std::uint32_t> offsets;  // on the chip, of the line of each role
};

// The chips that have the lines of `wires`, that of data first and that of clock and load enable after it. A
// Fault tells which line is missing, which several chips have, and which is taken, with what helps.
[[nodiscard]] std::vector<GpioChip> chipsWith(Kernel& kernel, const GpioWires& wires);

}  // namespace tessarine
