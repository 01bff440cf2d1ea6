// The USB interface as ports and pins, whatever carries them. A Fault tells of a name that does not exist, or
// cannot do what is asked.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/Platform.h"
#include "platform/linux/BitBang.h"
#include "platform/linux/Kernel.h"

namespace tessarine {

// Each operation holds the gate while it lasts.
class UsbPins : public UsbInterface {
 public:
  void UsbWritePort(std::string_view port, std::uint8_t pins) override;
  std::uint8_t UsbReadPort(std::string_view port) override;
  void UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                    std::string_view sparePin, int mode, std::string_view word) override;
  std::uint8_t UsbReadPin(std::string_view pin) override;

 protected:
  explicit UsbPins(Gate& gate) : gate_(gate) {}
  // The pins of port B, one set of levels behind the other.
  virtual void send(std::span<const std::uint8_t> levels) = 0;
  [[nodiscard]] virtual std::uint8_t pinsOf(char port) = 0;

  Gate& gate_;
  std::uint8_t loadMask_ = 0x02;  // B1, until a word names another
};

}  // namespace tessarine
