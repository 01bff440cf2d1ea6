#include "platform/linux/LinuxHost.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <system_error>

#include "platform/Fault.h"
#include "platform/linux/Detached.h"

namespace tessarine {
namespace {

constexpr long kNoSuchKey = 2;

bool startsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

// Blanks and the like stand in the table as a backslash and three octal digits.
std::string withoutEscapes(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape = text[i] == '\\' && i + 3 < text.size();
    plain += escape ? static_cast<char>(std::stoi(text.substr(i + 1, 3), nullptr, 8)) : text[i];
    if (escape) i += 3;
  }
  return plain;
}

bool standsForDrive(std::string_view device, std::string_view place, std::string_view type) {
  for (const char* folder : {"/media/", "/run/media/", "/mnt"})
    if (startsWith(place, folder)) return true;
  for (const char* network : {"nfs", "cifs", "smb3", "fuse.sshfs", "9p"})
    if (startsWith(type, network)) return true;
  // Loop devices are program packages; what is under /boot and /etc belongs to the system.
  if (!startsWith(device, "/dev/") || startsWith(device, "/dev/loop")) return false;
  return !startsWith(place, "/boot") && !startsWith(place, "/etc/") && !startsWith(place, "/snap/");
}

}  // namespace

std::vector<std::string> volumesOf(std::string_view mountTable) {
  std::vector<std::string> volumes{"/"};
  std::istringstream lines{std::string(mountTable)};
  std::string line;
  while (std::getline(lines, line)) {
    std::istringstream fields(line);
    std::string device;
    std::string place;
    std::string type;
    if (!(fields >> device >> place >> type) || !standsForDrive(device, place, type)) continue;
    place = withoutEscapes(place);
    if (std::find(volumes.begin(), volumes.end(), place) == volumes.end()) volumes.push_back(place);
  }
  return volumes;
}

// A host that needs the port driver brought up before the port is used.
std::optional<HostVersion> LinuxHost::GetVersionExA() { return HostVersion{2, 4, 0}; }

void LinuxHost::startPortDriver() {
  for (const std::string& program : modprobe_) {
    std::error_code error;
    if (std::filesystem::exists(program, error))
      return startDetached({program, "-q", "ppdev"}, Terminal::none);
  }
  throw Fault("The program modprobe is missing: the module ppdev cannot be loaded");
}

void LinuxHost::startProgram(const std::string& path) { startDetached({path}, Terminal::shared); }

long LinuxHost::RegOpenKeyExA(std::uint32_t, const std::string&, std::uint32_t, std::uintptr_t& handle) {
  handle = 0;
  return kNoSuchKey;
}

long LinuxHost::RegQueryValueExA(std::uintptr_t, const std::string&, std::uint32_t& type, std::string& data) {
  type = 0;
  data.clear();
  return kNoSuchKey;
}

void LinuxHost::RegCloseKey(std::uintptr_t) {}

std::vector<std::string> LinuxHost::drives() {
  std::ifstream file(mounts_);
  const std::string table{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  std::vector<std::string> volumes = volumesOf(table);
  const auto isNoFolder = [](const std::string& volume) {  // a single file can be mounted too
    std::error_code error;
    return !std::filesystem::is_directory(volume, error);
  };
  volumes.erase(std::remove_if(volumes.begin() + 1, volumes.end(), isNoFolder), volumes.end());
  return volumes;
}

}  // namespace tessarine
