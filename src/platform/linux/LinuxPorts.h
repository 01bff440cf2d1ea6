// The two ways to a parallel port on this host.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/Platform.h"
#include "platform/linux/PortTable.h"

namespace tessarine {

// Takes a sentence for the operator about a way out that works.
using Notice = std::function<void(const std::string&)>;

// The driver way: ppdev on the parallel port that has the address, else raw access where that is permitted.
class LinuxPortDriver : public PortDriver {
 public:
  LinuxPortDriver(Kernel& kernel, Gate& gate);

  void DlPortWritePortUchar(std::uint16_t address, std::uint8_t value) override {
    ports_.write(address, value);
  }
  std::uint8_t DlPortReadPortUchar(std::uint16_t address) override { return ports_.read(address); }

  [[nodiscard]] std::string whyNotOpen() const { return ports_.whyNotOpen(); }
  void leave() noexcept { ports_.leave(); }

  Notice notice;

 private:
  PortTable ports_;
};

// The library way: raw access alone.
class LinuxPortLibrary : public PortLibrary {
 public:
  LinuxPortLibrary(Kernel& kernel, Gate& gate);

  void OutputByte1(std::uint16_t address, std::uint8_t value) override { ports_.write(address, value); }
  std::uint8_t InputByte1(std::uint16_t address) override { return ports_.read(address); }

  [[nodiscard]] std::string whyNotOpen() const { return ports_.whyNotOpen(); }
  void leave() noexcept { ports_.leave(); }

 private:
  PortTable ports_;
};

}  // namespace tessarine
