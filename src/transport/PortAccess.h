// The seam between the logic and the hardware: write a byte, read a byte, wait. The way out follows from
// PortType and UseDlPort at each call.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/Module1.h"

namespace tessarine {

// Whether the way out is the USB interface.
[[nodiscard]] inline bool usesUsb(const Module1& module) {
  return module.PortType == std::string_view("USB");
}

// Writes a byte and, on the parallel port, reads it back with up to 110 tries. 1: confirmed; 0: given up,
// after a beep and a message, or on USB.
int PortWrite(Module1& module, int Address, int Value);

// The tries of a PortWrite on the parallel port after the first one.
int retryWrite(Module1& module, int Address, std::uint8_t value);

[[nodiscard]] int PortRead(Module1& module, int Address);

// Waits by the time of day while the window's events run; ends on time across midnight. 0 or less returns at
// once.
void DelayMs(Module1& module, Integer Milliseconds);

}  // namespace tessarine
