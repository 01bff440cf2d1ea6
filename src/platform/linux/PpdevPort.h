// A parallel port through the kernel's driver for programs, ppdev.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

#include "platform/linux/Kernel.h"
#include "platform/linux/OpenPort.h"
#include "platform/linux/Parport.h"

namespace tessarine {

class PpdevPort : public OpenPort {
 public:
  // Claims the port without ever waiting for it, with its lines low. Nothing when it has no device node
  // (ppdev is not loaded); a Fault when it is busy or not permitted.
  // `shared` is called when the port could not be had alone.
  [[nodiscard]] static std::unique_ptr<PpdevPort> open(Kernel& kernel, const Parport& port,
                                                       const std::function<void()>& shared);

  ~PpdevPort() override;
  PpdevPort(const PpdevPort&) = delete;
  PpdevPort& operator=(const PpdevPort&) = delete;

  void write(PortRegister place, std::uint8_t value) override;
  std::uint8_t read(PortRegister place) override;
  void leave() noexcept override;

 private:
  PpdevPort(Kernel& kernel, Parport port) : kernel_(kernel), port_(std::move(port)) {}

  [[nodiscard]] bool openNode();
  [[nodiscard]] int claimExclusively();
  [[nodiscard]] bool claim();  // false: it could not be had alone
  void closeNode();
  void control(unsigned long request, void* argument);

  Kernel& kernel_;
  Parport port_;
  int descriptor_ = -1;
  bool claimed_ = false;
  std::uint8_t controlAsFound_ = 0;
};

}  // namespace tessarine
