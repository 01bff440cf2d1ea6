// A parallel port that has been opened, whatever the way to it.
#pragma once

#include <cstdint>
#include <string>

namespace tessarine {

// Registers of a parallel port, counted from its base address. The status register is of no use here.
enum class PortRegister : std::uint8_t { data = 0, control = 2 };

class OpenPort {
 public:
  virtual ~OpenPort() = default;
  // One system call each; a Fault when the port does not take or give the byte.
  virtual void write(PortRegister place, std::uint8_t value) = 0;
  virtual std::uint8_t read(PortRegister place) = 0;
  // Why the data register reads otherwise than written, where that can be told; else empty.
  [[nodiscard]] virtual std::string whyOtherwise(std::uint8_t /*written*/, std::uint8_t /*read*/) const {
    return {};
  }
  // Lines low, control register as it was found, port closed. Called once, from any thread.
  virtual void leave() noexcept = 0;
};

}  // namespace tessarine
