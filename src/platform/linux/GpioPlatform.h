// This host with GPIO lines as its way out.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "platform/Platform.h"
#include "platform/linux/GpioLines.h"
#include "platform/linux/GpioWays.h"
#include "platform/linux/GpioWires.h"
#include "platform/linux/HostPlatform.h"
#include "platform/linux/Kernel.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxHost.h"
#include "platform/linux/LinuxPorts.h"

namespace tessarine {

class GpioPlatform : public HostPlatform {
 public:
  // `loadPins` gives the bits of the data register that carry load enable, as the operator has wired it.
  GpioPlatform(GpioWires wires, std::function<std::uint8_t()> loadPins, LinuxClock::Bell bell)
      : GpioPlatform(systemKernel_, std::move(wires), std::move(loadPins), std::move(bell)) {}
  // The same on other system calls, which must outlive it.
  GpioPlatform(Kernel& kernel, GpioWires wires, std::function<std::uint8_t()> loadPins, LinuxClock::Bell bell)
      : lines_(kernel, std::move(wires), [this](const std::string& sentence) { tellOnce(sentence); }),
        driver(kernel, gate_, gpioWay(lines_, std::move(loadPins))),
        usb(lines_, gate_),
        clock(std::move(bell)) {}
  ~GpioPlatform() override { leave(); }
  GpioPlatform(const GpioPlatform&) = delete;
  GpioPlatform& operator=(const GpioPlatform&) = delete;

  // Both ways to a port are the same lines.
  [[nodiscard]] Platform with(Screen& screen) { return {driver, driver, usb, host, clock, screen}; }

  // Why the lines do not work as a port, with the line to type; empty while they do.
  [[nodiscard]] std::string whyNotOpen() const { return driver.whyNotOpen(); }

 protected:
  void leaveAll() noexcept override {
    driver.leave();
    lines_.leave();
  }

 private:
  // The lines have their driver in the kernel already: there is none to bring up and to wait for.
  class HostOfLines : public LinuxHost {
   public:
    std::optional<HostVersion> GetVersionExA() override { return HostVersion{.platform = 1, .major = 4}; }
  };

  SystemKernel systemKernel_;
  GpioLines lines_;

 public:
  LinuxPort driver;
  GpioUsb usb;
  HostOfLines host;
  LinuxClock clock;
};

}  // namespace tessarine
