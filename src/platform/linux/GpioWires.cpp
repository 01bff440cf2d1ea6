#include "platform/linux/GpioWires.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <ios>
#include <sstream>
#include <string>
#include <string_view>

#include "platform/Fault.h"
#include "platform/Text.h"

namespace tessarine {
namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::size_t kMostBytes = 1 << 16;

std::string textOf(const std::string& path) {
  std::string text(kMostBytes, ' ');
  bool read = false;
  try {
    std::ifstream file(path);
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    read = file.eof() && !file.bad();  // an endless file is none
    text.resize(static_cast<std::size_t>(file.gcount()));
  } catch (const std::ios::failure&) {  // a directory opens, but does not read
  }
  if (!read) throw Fault(path + " cannot be read");
  return text;
}

void takeWire(GpioWires& wires, std::string_view line) {
  const std::string_view role = line.substr(0, line.find_first_of(" \t"));
  const std::string name{trimmed(line.substr(role.size()), kBlanks)};
  const auto* const known = std::ranges::find(kGpioRoles, role);
  if (known == kGpioRoles.end()) throw Fault(quoted(role) + " is no role");
  if (name.empty()) throw Fault(std::string(role) + " names no line");
  std::string& place = wires.at(static_cast<std::size_t>(known - kGpioRoles.begin()));
  if (!place.empty()) throw Fault(std::string(role) + " stands there twice");
  if (std::ranges::find(wires, name) != wires.end()) throw Fault(quoted(name) + " stands there twice");
  place = name;
}

}  // namespace

GpioWires usualGpioWires() {
  GpioWires wires;
  wires[kClockRole] = "GPIO17";
  wires[kDataRole] = "GPIO27";
  wires[kLoadRole] = "GPIO22";
  wires[kLockRole] = "GPIO23";
  return wires;
}

GpioWires readGpioWires(const std::string& path) {
  GpioWires wires;
  std::istringstream lines(textOf(path));
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    const std::string_view wire = trimmed(std::string_view(line).substr(0, line.find('#')), kBlanks);
    try {
      if (!wire.empty()) takeWire(wires, wire);
    } catch (const Fault& fault) {
      throw Fault(path + ", line " + std::to_string(number) + ": " + fault.what());
    }
  }
  for (const std::size_t role : {kClockRole, kDataRole, kLoadRole}) {
    if (wires.at(role).empty()) throw Fault(path + " leaves out " + std::string(kGpioRoles.at(role)));
  }
  return wires;
}

}  // namespace tessarine
