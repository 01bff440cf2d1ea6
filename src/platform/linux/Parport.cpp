#include "platform/linux/Parport.h"

#include <charconv>
#include <system_error>
#include <utility>

namespace tessarine {
namespace {

constexpr const char* kFolder = "/proc/sys/dev/parport/";

}  // namespace

std::vector<Parport> knownParports(Kernel& kernel) {
  std::vector<Parport> ports;
  for (const std::string& name : kernel.entriesOf(kFolder)) {
    const auto text = kernel.textOf(kFolder + name + "/base-addr");
    if (!text) continue;  // "default" has none
    std::uint16_t base = 0;
    // In decimal, with the address of the extended registers behind it.
    if (std::from_chars(text->data(), text->data() + text->size(), base).ec == std::errc())
      ports.push_back({base, name});
  }
  return ports;
}

std::optional<Parport> parportAt(Kernel& kernel, std::uint16_t base) {
  for (Parport& port : knownParports(kernel))
    if (port.base == base) return std::move(port);
  return std::nullopt;
}

std::string holderOf(Kernel& kernel, const Parport& port) {
  const auto text = kernel.textOf(kFolder + port.name + "/devices/active");
  // A port whose holder cannot be seen counts as held: a claim could wait for ever.
  if (!text) return "unknown";
  std::string holder = text->substr(0, text->find_first_of(" \t\n"));
  return holder == "none" ? std::string() : holder;
}

}  // namespace tessarine
