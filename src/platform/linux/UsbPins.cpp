#include "platform/linux/UsbPins.h"

#include <array>
#include <mutex>
#include <string>

#include "platform/Fault.h"

namespace tessarine {
namespace {

struct UsbPin {
  char port = 'B';
  std::uint8_t mask = 0;
};

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

std::uint8_t outputOf(std::string_view name) {
  const UsbPin pin = usbPin(name);
  if (pin.port != 'B') throw Fault("USB pin " + std::string(name) + " is an input; the outputs are B0 to B7");
  return pin.mask;
}

}  // namespace

void UsbPins::UsbWritePort(std::string_view port, std::uint8_t pins) {
  if (usbPort(port) != 'B') throw Fault("USB port A is an input; the output is port B");
  const std::lock_guard<Gate> hold(gate_);
  send(std::array<std::uint8_t, 1>{pins});
}

std::uint8_t UsbPins::UsbReadPort(std::string_view port) {
  const char name = usbPort(port);
  const std::lock_guard<Gate> hold(gate_);
  return pinsOf(name);
}

// The spare pin stays low.
void UsbPins::UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                           std::string_view sparePin, int mode, std::string_view word) {
  (void)outputOf(sparePin);
  if (mode != 0) throw Fault("USB shift mode " + std::to_string(mode) + " is not 0");
  const ShiftPins pins{outputOf(clockPin), outputOf(dataPin), outputOf(loadPin)};
  const std::lock_guard<Gate> hold(gate_);
  loadMask_ = pins.load;
  send(shiftedWord(pins, word));
}

std::uint8_t UsbPins::UsbReadPin(std::string_view pin) {
  const UsbPin wanted = usbPin(pin);
  const std::lock_guard<Gate> hold(gate_);
  return (pinsOf(wanted.port) & wanted.mask) != 0 ? 1 : 0;
}

}  // namespace tessarine
