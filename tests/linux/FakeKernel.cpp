#include "linux/FakeKernel.h"

#include <linux/ppdev.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <regex>
#include <utility>

namespace tessarine {

std::string hexByte(unsigned value) {
  char text[16];
  std::snprintf(text, sizeof text, "%02X", value);
  return text;
}

bool isInTheManual(std::string sentence) {
  std::ifstream file(TESSARINE_SOURCE_DIR "/docs/hardware.md");
  const std::string manual{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const auto holds = [&](const std::string& part) { return manual.find(part) != std::string::npos; };
  bool found = holds("\n| " + sentence.substr(0, std::min(sentence.find(". "), sentence.find(" (ppdev0)"))));
  const std::size_t line = sentence.find("ype");
  if (line == std::string::npos) return found;
  sentence.erase(0, sentence.find(": ", line) + 2);
  sentence.erase(std::min(sentence.size(), sentence.find(" (and")));
  const std::regex joints("; | && | \\| ");
  for (std::sregex_token_iterator part(sentence.begin(), sentence.end(), joints, -1), end; part != end;
       ++part)
    found = found && holds(*part);
  return found;
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
  open_[nextDescriptor_] = {.path = path, .base = parports_[path]};
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

int FakeKernel::ioctl(int descriptor, unsigned long request, void* argument) {
  static const std::map<unsigned long, const char*> kNames = {
      {PPEXCL, "PPEXCL"},   {PPCLAIM, "PPCLAIM"},       {PPRELEASE, "PPRELEASE"},   {PPWDATA, "PPWDATA"},
      {PPRDATA, "PPRDATA"}, {PPWCONTROL, "PPWCONTROL"}, {PPRCONTROL, "PPRCONTROL"}, {PPDATADIR, "PPDATADIR"}};
  Open& file = open_.at(descriptor);
  std::string& call = calls_.emplace_back(kNames.at(request));
  if (broken) return -EIO;
  if (request == PPCLAIM) return claim(file);
  if (request == PPEXCL) file.exclusive = true;
  const bool isData = request == PPWDATA || request == PPRDATA;
  const auto address = static_cast<std::uint16_t>(file.base + (isData ? 0 : 2));
  auto* const byte = static_cast<std::uint8_t*>(argument);
  if (request == PPWDATA || request == PPWCONTROL) {
    call += " " + hexByte(*byte);
    registers_[address] = *byte;
  } else if (request == PPRDATA || request == PPRCONTROL) {
    *byte = at(address);
  } else if (request == PPDATADIR) {
    call += " " + std::to_string(*static_cast<int*>(argument));
  }
  return file.claimed || request == PPEXCL ? 0 : -EPERM;
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
  return found == files.end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::string> FakeKernel::entriesOf(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& [path, text] : files)
    if (path.starts_with(folder))
      names.insert(path.substr(folder.size(), path.find('/', folder.size()) - folder.size()));
  return {names.begin(), names.end()};
}

}  // namespace tessarine
