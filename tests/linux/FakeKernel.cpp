#include "linux/FakeKernel.h"

#include <linux/ppdev.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <utility>

namespace tessarine {

std::string hexByte(unsigned value) {
  char text[16];
  std::snprintf(text, sizeof text, "%02X", value);
  return text;
}

bool isInTheManual(const std::string& sentence) {
  std::ifstream file(TESSARINE_SOURCE_DIR "/docs/hardware.md");
  const std::string manual{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const std::size_t end = std::min(sentence.find(". "), sentence.find(" (ppdev0)"));
  return manual.find("\n| " + sentence.substr(0, end)) != std::string::npos;
}

void FakeKernel::addPort(std::uint16_t base, const std::string& name) {
  for (int offset = 0; offset < 3; ++offset) answering_.insert(static_cast<std::uint16_t>(base + offset));
  if (name.empty()) return;
  const std::string folder = "/proc/sys/dev/parport/" + name;
  files[folder + "/base-addr"] = std::to_string(base) + "\t0\n";
  files[folder + "/devices/active"] = "none\n";
  files["/proc/sys/dev/parport/default/timeslice"] = "200\n";
  parports_["/dev/" + name] = base;
  nodes["/dev/" + name] = 0;
}

std::vector<std::string> FakeKernel::taken() { return std::exchange(calls_, {}); }

std::uint8_t FakeKernel::at(std::uint16_t address) const {
  if (!answering_.contains(address)) return 0xFF;
  const auto found = registers_.find(address);
  return found == registers_.end() ? std::uint8_t{0} : found->second;
}

int FakeKernel::open(const std::string& path, int) {
  calls_.push_back("open " + path);
  const auto node = nodes.find(path);
  if (node == nodes.end()) return -ENOENT;
  if (node->second < 0) return node->second;
  const auto parport = parports_.find(path);
  Open& file = open_[nextDescriptor_];
  file.path = path;
  if (parport != parports_.end()) file.base = parport->second;
  return nextDescriptor_++;
}

void FakeKernel::close(int descriptor) {
  calls_.emplace_back("close");
  open_.erase(descriptor);
}

int FakeKernel::flock(int, int) {
  calls_.emplace_back("flock");
  return flockResult;
}

int FakeKernel::claim(Open& file) {
  const std::string& active = files["/proc/sys/dev/parport" + file.path.substr(4) + "/devices/active"];
  if (othersExclusive || (file.exclusive && othersRegistered)) return -ENXIO;
  if (active != "none\n") {
    waitedForEver = true;
    return -EINTR;
  }
  file.claimed = true;
  registers_[static_cast<std::uint16_t>(file.base + 2)] = 0x0C;
  return 0;
}

int FakeKernel::transfer(Open& file, unsigned long request, void* argument) {
  auto& value = *static_cast<std::uint8_t*>(argument);
  const auto control = static_cast<std::uint16_t>(file.base + 2);
  switch (request) {
    case PPWDATA:
      calls_.push_back("PPWDATA " + hexByte(value));
      registers_[file.base] = value;
      break;
    case PPRDATA:
      calls_.emplace_back("PPRDATA");
      value = at(file.base);
      break;
    case PPWCONTROL:
      calls_.push_back("PPWCONTROL " + hexByte(value));
      registers_[control] = value;
      break;
    case PPRCONTROL:
      calls_.emplace_back("PPRCONTROL");
      value = at(control);
      break;
    case PPDATADIR:
      calls_.push_back("PPDATADIR " + std::to_string(*static_cast<int*>(argument)));
      break;
    default:
      return -ENOTTY;
  }
  return file.claimed ? 0 : -EPERM;
}

int FakeKernel::ioctl(int descriptor, unsigned long request, void* argument) {
  Open& file = open_.at(descriptor);
  int result = 0;
  if (request == PPEXCL) {
    calls_.emplace_back("PPEXCL");
    file.exclusive = true;
  } else if (request == PPCLAIM) {
    calls_.emplace_back("PPCLAIM");
    result = claim(file);
  } else if (request == PPRELEASE) {
    calls_.emplace_back("PPRELEASE");
  } else {
    result = transfer(file, request, argument);
  }
  return broken ? -EIO : result;
}

ssize_t FakeKernel::pread(int, std::uint8_t& byte, off_t offset) {
  calls_.push_back("pread " + hexByte(static_cast<unsigned>(offset)));
  byte = at(static_cast<std::uint16_t>(offset));
  return broken ? 0 : 1;
}

ssize_t FakeKernel::pwrite(int, std::uint8_t byte, off_t offset) {
  calls_.push_back("pwrite " + hexByte(static_cast<unsigned>(offset)) + " " + hexByte(byte));
  registers_[static_cast<std::uint16_t>(offset)] = byte;
  return broken ? 0 : 1;
}

int FakeKernel::ioperm(unsigned long first, unsigned long count) {
  calls_.push_back("ioperm " + hexByte(static_cast<unsigned>(first)) + " " + std::to_string(count));
  return iopermResult;
}

std::optional<std::string> FakeKernel::textOf(const std::string& path) {
  const auto found = files.find(path);
  if (found == files.end()) return std::nullopt;
  return found->second;
}

std::vector<std::string> FakeKernel::entriesOf(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& [path, text] : files)
    if (path.starts_with(folder))
      names.insert(path.substr(folder.size(), path.find('/', folder.size()) - folder.size()));
  return {names.begin(), names.end()};
}

std::optional<std::string> FakeKernel::linkOf(const std::string& path) {
  const auto found = links.find(path);
  if (found == links.end()) return std::nullopt;
  return found->second;
}

}  // namespace tessarine
