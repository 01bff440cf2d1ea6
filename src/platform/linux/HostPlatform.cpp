#include "platform/linux/HostPlatform.h"

#include <chrono>
#include <mutex>

namespace tessarine {

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
