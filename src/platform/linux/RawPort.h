// A parallel port through its I/O addresses: /dev/port, else the port instructions.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/linux/Kernel.h"
#include "platform/linux/OpenPort.h"

namespace tessarine {

class RawPort : public OpenPort {
 public:
  // Where the processor has no port instructions, /dev/port reads addresses that nothing is mapped to, and
  // stops the kernel: there is no raw access then, and nothing here for it.
#if defined(__x86_64__) || defined(__i386__)
  static constexpr bool kExists = true;
#else
  static constexpr bool kExists = false;
#endif

  // A Fault when the address belongs to something else, the port is busy, or raw access is not permitted or
  // is forbidden.
  [[nodiscard]] static std::unique_ptr<RawPort> open(Kernel& kernel, std::uint16_t base);
  // The same, but nothing where the kernel does not let the program at the addresses; `error` is its reason.
  [[nodiscard]] static std::unique_ptr<RawPort> openIfLetIn(Kernel& kernel, std::uint16_t base, int& error);

  ~RawPort() override;
  RawPort(const RawPort&) = delete;
  RawPort& operator=(const RawPort&) = delete;

  void write(PortRegister place, std::uint8_t value) override;
  std::uint8_t read(PortRegister place) override;
  void leave() noexcept override;

 private:
  RawPort(Kernel& kernel, std::uint16_t base) : kernel_(kernel), base_(base) {}

  [[nodiscard]] int letIn();
  [[nodiscard]] std::uint16_t address(PortRegister place) const;

  Kernel& kernel_;
  std::uint16_t base_;
  int descriptor_ = -1;  // of /dev/port; below 0: the port instructions
  std::uint8_t controlAsFound_ = 0;
};

}  // namespace tessarine
