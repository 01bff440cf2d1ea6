// The two ways out over GPIO lines: as the parallel port's connector, and as the USB module.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>

#include "platform/linux/GpioLines.h"
#include "platform/linux/Kernel.h"
#include "platform/linux/PortTable.h"
#include "platform/linux/UsbPins.h"

namespace tessarine {

// The connector stands at 378. `loadPins` gives the bits that carry load enable, as the operator has wired
// it.
[[nodiscard]] PortTable::Opener gpioWay(GpioLines& lines, std::function<std::uint8_t()> loadPins);

// B3, B2, B1 are clock, data and load enable, A3 is the lock line; the other pins of B are remembered.
class GpioUsb : public UsbPins {
 public:
  GpioUsb(GpioLines& lines, Gate& gate) : UsbPins(gate), lines_(lines) {}

  void UsbOpen(int device) override;
  void UsbClose() override;

 private:
  void send(std::span<const std::uint8_t> levels) override;
  [[nodiscard]] std::uint8_t pinsOf(char port) override;

  GpioLines& lines_;
  std::uint8_t pins_ = 0;
};

}  // namespace tessarine
