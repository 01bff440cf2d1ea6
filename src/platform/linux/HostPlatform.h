// What the platforms on this host have in common: notices, told once, and the orderly end.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "platform/linux/Kernel.h"
#include "platform/linux/Notice.h"

namespace tessarine {

class HostPlatform {
 public:
  HostPlatform() = default;
  virtual ~HostPlatform() = default;  // a platform leaves in its own
  HostPlatform(const HostPlatform&) = delete;
  HostPlatform& operator=(const HostPlatform&) = delete;

  // Takes what the operator should know though nothing failed, each sentence once.
  Notice notice;

  // All lines to rest, everything closed. A later operation opens anew.
  void leave() noexcept;

  // The same from another thread, for good: an operation under way is waited for, a later one waits for ever.
  void leaveForGood() noexcept;

 protected:
  void tellOnce(const std::string& sentence);
  virtual void leaveAll() noexcept = 0;

  mutable Gate gate_;

 private:
  std::set<std::string> told_;
};

}  // namespace tessarine
