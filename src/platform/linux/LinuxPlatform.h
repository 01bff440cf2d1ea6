// Everything of this host in one object, and its orderly end.
#pragma once

#include <string>

#include "platform/Platform.h"
#include "platform/linux/FtdiChannel.h"
#include "platform/linux/HostPlatform.h"
#include "platform/linux/Kernel.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxHost.h"
#include "platform/linux/LinuxPorts.h"
#include "platform/linux/UsbModule.h"

namespace tessarine {

class LinuxPlatform : public HostPlatform {
 public:
  explicit LinuxPlatform(LinuxClock::Bell bell = LinuxClock::terminalBell);
  // The same on other system calls and another USB library, which must outlive it.
  LinuxPlatform(Kernel& kernel, FtdiLibrary& ftdi, LinuxClock::Bell bell);
  ~LinuxPlatform() override { leave(); }
  LinuxPlatform(const LinuxPlatform&) = delete;
  LinuxPlatform& operator=(const LinuxPlatform&) = delete;

  [[nodiscard]] Platform with(Screen& screen) { return {driver, library, usb, host, clock, screen}; }

  // Why the parallel port does not work, with the line to type; empty while it does. The message of a failed
  // write names the address alone, so a face shows this beside it.
  [[nodiscard]] std::string whyNotOpen() const;

 protected:
  // Parallel lines low and control registers as they were found, the module's pins inputs.
  void leaveAll() noexcept override;

 private:
  SystemKernel systemKernel_;
  LibFtdi libFtdi_;

 public:
  LinuxPort driver;
  LinuxPort library;
  UsbModule usb;
  LinuxHost host;
  LinuxClock clock;
};

}  // namespace tessarine
