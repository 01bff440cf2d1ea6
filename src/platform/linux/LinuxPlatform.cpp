#include "platform/linux/LinuxPlatform.h"

#include <sys/prctl.h>

#include <chrono>
#include <mutex>
#include <utility>

namespace tessarine {

LinuxPlatform::LinuxPlatform(LinuxClock::Bell bell)
    : LinuxPlatform(systemKernel_, libFtdi_, std::move(bell)) {}

LinuxPlatform::LinuxPlatform(Kernel& kernel, FtdiLibrary& ftdi, LinuxClock::Bell bell)
    : driver(kernel, gate_, driverWay(kernel, [this](const std::string& sentence) { tellOnce(sentence); })),
      library(kernel, gate_, rawWay(kernel)),
      usb(ftdi, kernel, gate_, [this](const std::string& sentence) { tellOnce(sentence); }),
      clock(std::move(bell)) {
  // Waits of this thread end on time, not up to 50 microseconds late to save the computer a wake-up: a load
  // has many short ones.
  ::prctl(PR_SET_TIMERSLACK, 1);
}

LinuxPlatform::~LinuxPlatform() { leave(); }

std::string LinuxPlatform::whyNotOpen() const {
  const std::string reason = driver.whyNotOpen();
  return reason.empty() ? library.whyNotOpen() : reason;
}

void LinuxPlatform::tellOnce(const std::string& sentence) {
  if (notice && told_.insert(sentence).second) notice(sentence);
}

void LinuxPlatform::leave() noexcept {
  const std::lock_guard<Gate> hold(gate_);
  leaveAll();
}

void LinuxPlatform::leaveForGood() noexcept {
  // Operations are short; one that hangs must not keep the lines from being lowered.
  (void)gate_.try_lock_for(std::chrono::seconds(2));
  leaveAll();
}

void LinuxPlatform::leaveAll() noexcept {
  driver.leave();
  library.leave();
  usb.leave();
}

}  // namespace tessarine
