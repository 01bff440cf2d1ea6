// The names of the USB interface's ports and pins. A Fault tells of one that does not exist, or cannot do it.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/linux/BitBang.h"

namespace tessarine {

struct UsbPin {
  char port = 'B';
  std::uint8_t mask = 0;
};

[[nodiscard]] char usbPort(std::string_view name);
[[nodiscard]] UsbPin usbPin(std::string_view name);
void checkIsOutput(std::string_view port);

// As a word is shifted with them; the spare pin stays low.
[[nodiscard]] ShiftPins shiftPins(std::string_view clockPin, std::string_view dataPin,
                                  std::string_view loadPin, std::string_view sparePin, int mode);

}  // namespace tessarine
