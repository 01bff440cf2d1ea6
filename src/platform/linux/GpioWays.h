// The two ways out over GPIO lines: as the parallel port's connector, and as the USB module.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/Platform.h"
#include "platform/linux/GpioLines.h"
#include "platform/linux/Kernel.h"
#include "platform/linux/PortTable.h"

namespace tessarine {

// The connector stands at 378. `loadPins` gives the bits that carry load enable, as the operator has wired
// it.
[[nodiscard]] PortTable::Opener gpioWay(GpioLines& lines, std::function<std::uint8_t()> loadPins);

// B3, B2, B1 are clock, data and load enable, A3 is the lock line; the other pins of B are remembered.
class GpioUsb : public UsbInterface {
 public:
  GpioUsb(GpioLines& lines, Gate& gate) : lines_(lines), gate_(gate) {}

  void UsbOpen(int device) override;
  void UsbClose() override;
  void UsbWritePort(std::string_view port, std::uint8_t pins) override;
  std::uint8_t UsbReadPort(std::string_view port) override;
  void UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                    std::string_view sparePin, int mode, std::string_view word) override;
  std::uint8_t UsbReadPin(std::string_view pin) override;

 private:
  void drive(std::uint8_t pins);
  [[nodiscard]] std::uint8_t pinsOf(char port);

  GpioLines& lines_;
  Gate& gate_;
  std::uint8_t pins_ = 0;
};

}  // namespace tessarine
