// The host: what the program asks of the system around it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Platform.h"

namespace tessarine {

class LinuxHost : public Host {
 public:
  // `modprobe`: where the program that loads modules may lie, the first that exists counts.
  explicit LinuxHost(std::vector<std::string> modprobe = {"/sbin/modprobe", "/usr/sbin/modprobe"},
                     std::string mounts = "/proc/self/mounts")
      : modprobe_(std::move(modprobe)), mounts_(std::move(mounts)) {}

  std::optional<HostVersion> GetVersionExA() override;
  void startPortDriver() override;  // a Fault when it cannot be started
  void startProgram(const std::string& path) override;
  long RegOpenKeyExA(std::uint32_t root, const std::string& key, std::uint32_t access,
                     std::uintptr_t& handle) override;
  long RegQueryValueExA(std::uintptr_t handle, const std::string& name, std::uint32_t& type,
                        std::string& data) override;
  void RegCloseKey(std::uintptr_t handle) override;
  std::vector<std::string> drives() override;

 private:
  std::vector<std::string> modprobe_;
  std::string mounts_;
};

// The places of a mount table that stand for drives: "/" first, then disks, network shares and what is
// mounted where users mount things, in the table's order.
[[nodiscard]] std::vector<std::string> volumesOf(std::string_view mountTable);

}  // namespace tessarine
