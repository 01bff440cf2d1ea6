// A parallel port of this host, by its I/O addresses.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/Platform.h"
#include "platform/linux/Notice.h"
#include "platform/linux/PortTable.h"

namespace tessarine {

// Serves as port driver and as port library; what differs is how it opens a port.
class LinuxPort : public PortDriver, public PortLibrary {
 public:
  LinuxPort(Kernel& kernel, Gate& gate, PortTable::Opener opener) : ports_(kernel, gate, std::move(opener)) {}

  void DlPortWritePortUchar(std::uint16_t address, std::uint8_t value) override {
    ports_.write(address, value);
  }
  std::uint8_t DlPortReadPortUchar(std::uint16_t address) override { return ports_.read(address); }
  void OutputByte1(std::uint16_t address, std::uint8_t value) override { ports_.write(address, value); }
  std::uint8_t InputByte1(std::uint16_t address) override { return ports_.read(address); }

  [[nodiscard]] std::string whyNotOpen() const { return ports_.whyNotOpen(); }
  void leave() noexcept { ports_.leave(); }

 private:
  PortTable ports_;
};

// The driver way: ppdev on the parallel port that has the address, else raw access where that is permitted.
[[nodiscard]] PortTable::Opener driverWay(Kernel& kernel, Notice notice);

// The library way: raw access alone.
[[nodiscard]] PortTable::Opener rawWay(Kernel& kernel);

}  // namespace tessarine
