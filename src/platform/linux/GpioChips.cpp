#include "platform/linux/GpioChips.h"

#include <fcntl.h>
#include <linux/gpio.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <string_view>

#include "platform/Fault.h"
#include "platform/linux/Advice.h"

namespace tessarine {
namespace {

// Data is set before the clock and load enable, where one write changes lines of several chips.
constexpr std::array<std::size_t, kGpioRoles.size()> kRolesInOrder{1, 0, 2, 3, 4, 5, 6, 7, 8};

struct Place {
  std::string node;
  std::uint32_t offset = 0;
  std::string holder;
};

using Places = std::array<std::vector<Place>, kGpioRoles.size()>;

// A text of the kernel's, which ends with its field if it is long.
template <std::size_t Size>
std::string textOf(const char (&field)[Size]) {
  return {std::begin(field), std::find(std::begin(field), std::end(field), '\0')};
}

std::string holderIn(const gpio_v2_line_info& info) {
  if ((info.flags & GPIO_V2_LINE_FLAG_USED) == 0) return {};
  const std::string consumer = textOf(info.consumer);
  return consumer.empty() ? "somebody without a name" : consumer;
}

void lookThrough(Kernel& kernel, const std::string& node, int descriptor, const GpioWires& wires,
                 Places& places) {
  gpiochip_info chip{};
  int result = kernel.ioctl(descriptor, GPIO_GET_CHIPINFO_IOCTL, &chip);
  for (std::uint32_t offset = 0; result >= 0 && offset < chip.lines; ++offset) {
    gpio_v2_line_info info{};
    info.offset = offset;
    result = kernel.ioctl(descriptor, GPIO_V2_GET_LINEINFO_IOCTL, &info);
    const std::string name = textOf(info.name);
    for (std::size_t role = 0; result >= 0 && role < wires.size() && !name.empty(); ++role)
      if (wires.at(role) == name) places.at(role).push_back({node, offset, holderIn(info)});
  }
  if (result == -EINVAL || result == -ENOTTY) throw Fault(advice::gpioTooOld(node));
  // Any other failure, as of a chip that is just being unplugged, leaves its lines missing.
}

// Not by the chips' own names: some systems have a second name, a link, for a chip.
std::vector<std::string> chipNodes(Kernel& kernel) {
  std::vector<std::string> nodes;
  for (const std::string& name : kernel.entriesOf("/dev/"))
    if (name.starts_with("gpiochip") && !kernel.linkOf("/dev/" + name)) nodes.push_back("/dev/" + name);
  return nodes;
}

const Place& theOne(const std::string& line, const std::vector<Place>& places,
                    const std::string& closedNode) {
  if (places.empty() && !closedNode.empty()) throw Fault(advice::gpioNotPermitted(closedNode));
  if (places.empty()) throw Fault(advice::gpioLineMissing(line));
  if (places.size() > 1) throw Fault(advice::gpioLineTwice(line, places[0].node, places[1].node));
  if (!places[0].holder.empty()) throw Fault(advice::gpioLineBusy(line, places[0].holder));
  return places[0];
}

}  // namespace

std::vector<GpioChip> chipsWith(Kernel& kernel, const GpioWires& wires) {
  Places places;
  std::string closedNode;
  const std::vector<std::string> nodes = chipNodes(kernel);
  if (nodes.empty()) throw Fault(advice::gpioMissing());
  for (const std::string& node : nodes) {
    const int descriptor = kernel.open(node, O_RDWR);
    if (descriptor == -EACCES || descriptor == -EPERM) closedNode = node;
    if (descriptor < 0) continue;  // or unplugged a moment ago
    try {
      lookThrough(kernel, node, descriptor, wires, places);
    } catch (const Fault&) {
      kernel.close(descriptor);
      throw;
    }
    kernel.close(descriptor);
  }
  std::vector<GpioChip> chips;
  for (const std::size_t role : kRolesInOrder) {
    const std::string& name = wires.at(role);
    if (name.empty()) continue;
    const std::string line = name + " (" + std::string(kGpioRoles.at(role)) + ')';
    const Place& place = theOne(line, places.at(role), closedNode);
    auto chip = std::ranges::find(chips, place.node, &GpioChip::node);
    if (chip == chips.end()) chip = chips.insert(chips.end(), {place.node, {}, {}});
    chip->roles.push_back(role);
    chip->offsets.push_back(place.offset);
  }
  return chips;
}

}  // namespace tessarine
