// Everything of this host in one object, and its orderly end.
#pragma once

#include <set>
#include <string>

#include "platform/Platform.h"
#include "platform/linux/FtdiChannel.h"
#include "platform/linux/Kernel.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxHost.h"
#include "platform/linux/LinuxPorts.h"
#include "platform/linux/Notice.h"
#include "platform/linux/UsbModule.h"

namespace tessarine {

class LinuxPlatform {
 public:
  explicit LinuxPlatform(LinuxClock::Bell bell = LinuxClock::terminalBell);
  // The same on other system calls and another USB library, which must outlive it.
  LinuxPlatform(Kernel& kernel, FtdiLibrary& ftdi, LinuxClock::Bell bell);
  ~LinuxPlatform();  // leaves
  LinuxPlatform(const LinuxPlatform&) = delete;
  LinuxPlatform& operator=(const LinuxPlatform&) = delete;

  [[nodiscard]] Platform with(Screen& screen) { return {driver, library, usb, host, clock, screen}; }

  // Why the parallel port does not work, with the line to type; empty while it does. The message of a failed
  // write names the address alone, so a face shows this beside it.
  [[nodiscard]] std::string whyNotOpen() const;

  // Takes what the operator should know though nothing failed, each sentence once.
  Notice notice;

  // Parallel lines low and control registers as they were found, the module's pins inputs, everything closed.
  // A later operation opens anew.
  void leave() noexcept;

  // The same from another thread, for good: an operation under way is waited for, a later one waits for ever.
  void leaveForGood() noexcept;

 private:
  SystemKernel systemKernel_;
  LibFtdi libFtdi_;
  mutable Gate gate_;
  std::set<std::string> told_;

 public:
  LinuxPort driver;
  LinuxPort library;
  UsbModule usb;
  LinuxHost host;
  LinuxClock clock;

 private:
  void tellOnce(const std::string& sentence);
  void leaveAll() noexcept;
};

}  // namespace tessarine
