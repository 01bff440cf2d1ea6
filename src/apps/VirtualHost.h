// The host that the program sees beside the virtual board: one that reaches ports through the driver, whose
// start it confirms at once, and that has no registry and one drive.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace tessarine {

class VirtualHost : public Host {
 public:
  std::optional<HostVersion> GetVersionExA() override {
    return HostVersion{.platform = 2, .major = 5, .minor = 1};
  }
  void startPortDriver() override {}
  void startProgram(const std::string& /*path*/) override {}
  long RegOpenKeyExA(std::uint32_t /*root*/, const std::string& /*key*/, std::uint32_t /*access*/,
                     std::uintptr_t& /*handle*/) override {
    return kNotFound;
  }
  long RegQueryValueExA(std::uintptr_t /*handle*/, const std::string& /*name*/, std::uint32_t& /*type*/,
                        std::string& /*data*/) override {
    return kNotFound;
  }
  void RegCloseKey(std::uintptr_t /*handle*/) override {}
  std::vector<std::string> drives() override { return {"/"}; }

 private:
  static constexpr long kNotFound = 2;
};

}  // namespace tessarine
