#include "platform/linux/UsbPins.h"

#include <string>

#include "platform/Fault.h"

namespace tessarine {
namespace {

std::uint8_t outputOf(std::string_view name) {
  const UsbPin pin = usbPin(name);
  if (pin.port != 'B') throw Fault("USB pin " + std::string(name) + " is an input; the outputs are B0 to B7");
  return pin.mask;
}

}  // namespace

char usbPort(std::string_view name) {
  if (name == "A" || name == "B") return name.front();
  throw Fault("There is no USB port \"" + std::string(name) + "\", only A and B");
}

UsbPin usbPin(std::string_view name) {
  const bool well =
      name.size() == 2 && (name[0] == 'A' || name[0] == 'B') && name[1] >= '0' && name[1] <= '7';
  if (!well) throw Fault("There is no USB pin \"" + std::string(name) + "\", only A0 to A7 and B0 to B7");
  return {name[0], static_cast<std::uint8_t>(1U << static_cast<unsigned>(name[1] - '0'))};
}

void checkIsOutput(std::string_view port) {
  if (usbPort(port) != 'B') throw Fault("USB port A is an input; the output is port B");
}

ShiftPins shiftPins(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                    std::string_view sparePin, int mode) {
  (void)outputOf(sparePin);
  if (mode != 0) throw Fault("USB shift mode " + std::to_string(mode) + " is not 0");
  return {outputOf(clockPin), outputOf(dataPin), outputOf(loadPin)};
}

}  // namespace tessarine
