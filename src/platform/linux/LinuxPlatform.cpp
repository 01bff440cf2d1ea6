#include "platform/linux/LinuxPlatform.h"

#include <utility>

namespace tessarine {

LinuxPlatform::LinuxPlatform(LinuxClock::Bell bell)
    : LinuxPlatform(systemKernel_, libFtdi_, std::move(bell)) {}

LinuxPlatform::LinuxPlatform(Kernel& kernel, FtdiLibrary& ftdi, LinuxClock::Bell bell)
    : driver(kernel, gate_, driverWay(kernel, [this](const std::string& sentence) { tellOnce(sentence); })),
      library(kernel, gate_, rawWay(kernel)),
      usb(ftdi, kernel, gate_, [this](const std::string& sentence) { tellOnce(sentence); }),
      clock(std::move(bell)) {}

std::string LinuxPlatform::whyNotOpen() const {
  const std::string reason = driver.whyNotOpen();
  return reason.empty() ? library.whyNotOpen() : reason;
}

void LinuxPlatform::leaveAll() noexcept {
  driver.leave();
  library.leave();
  usb.leave();
}

}  // namespace tessarine
