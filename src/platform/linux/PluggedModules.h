// The USB modules that are plugged in, as the kernel lists them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/Kernel.h"

namespace tessarine {

// A kind of module, and which of its pins are those of the USB interface.
struct ModuleKind {
  std::string_view product;  // identifier, in hexadecimal digits
  std::string_view name;
  // One channel, A, serves both ports: B0 to B3 are its AD0 to AD3, the outputs, and A3 is AD7. Else each
  // port is the channel of its name and all pins of B are outputs.
  bool singlePort = false;

  [[nodiscard]] char channelOf(char port) const { return singlePort ? 'A' : port; }
  [[nodiscard]] std::uint8_t outputsOf(char channel) const {
    if (singlePort) return 0x0F;
    return channel == 'B' ? 0xFF : 0;
  }
  // The pins of a port among those that its channel has read.
  [[nodiscard]] std::uint8_t pinsOf(char port, std::uint8_t read) const {
    if (!singlePort) return read;
    return static_cast<std::uint8_t>(port == 'B' ? read & 0x0F : (read & 0x80) >> 4);
  }
};

struct PluggedModule {
  std::vector<int> place;  // number of the bus, then of the ports on the way to the module
  std::string name;        // "1-2.4": the same for the kernel
  int bus = 0;
  int device = 0;  // on the bus; another one each time it is plugged in
  ModuleKind kind;

  [[nodiscard]] std::string node() const;  // "/dev/bus/usb/001/004"
};

// In bus order, which does not change when one is unplugged and plugged in again.
[[nodiscard]] std::vector<PluggedModule> pluggedModules(Kernel& kernel);

// What has a channel: a driver's name, "usbfs" for a program, empty for nobody.
[[nodiscard]] std::string driverOf(Kernel& kernel, const PluggedModule& module, char channel);

}  // namespace tessarine
