#include "platform/linux/HostPlatform.h"

#include <sys/prctl.h>

#include <chrono>
#include <mutex>

namespace tessarine {

HostPlatform::HostPlatform() {
  // Waits of this thread end on time, not up to 50 microseconds late to save the computer a wake-up: a load
  // has many short ones.
  ::prctl(PR_SET_TIMERSLACK, 1);
}

void HostPlatform::tellOnce(const std::string& sentence) {
  if (notice && told_.insert(sentence).second) notice(sentence);
}

void HostPlatform::leave() noexcept {
  const std::lock_guard<Gate> hold(gate_);
  leaveAll();
}

void HostPlatform::leaveForGood() noexcept {
  // Operations are short; one that hangs must not keep the lines from being lowered.
  (void)gate_.try_lock_for(std::chrono::seconds(2));
  leaveAll();
}

}  // namespace tessarine
