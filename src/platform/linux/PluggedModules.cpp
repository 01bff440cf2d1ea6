#include "platform/linux/PluggedModules.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "platform/Text.h"

namespace tessarine {
namespace {

constexpr const char* kDevices = "/sys/bus/usb/devices/";
constexpr std::string_view kVendor = "0403";
constexpr std::array kKinds{
    ModuleKind{.product = "6010", .name = "FT2232H"},
    ModuleKind{.product = "6011", .name = "FT4232H"},
    ModuleKind{.product = "6014", .name = "FT232H", .singlePort = true},
};

std::string trimmedText(const std::optional<std::string>& text) {
  return std::string(trimmed(text.value_or(""), " \n"));
}

// The numbers of a text, whatever stands between them.
std::vector<int> numbersOf(std::string_view text) {
  std::vector<int> numbers;
  const char* const end = text.data() + text.size();
  for (const char* at = text.data(); at != end;) {
    int number = 0;
    const auto [behind, error] = std::from_chars(at, end, number);
    if (error == std::errc()) numbers.push_back(number);
    at = behind == end ? end : behind + 1;
  }
  return numbers;
}

std::string threeDigits(int number) {
  const std::string digits = std::to_string(number);
  return digits.size() < 3 ? std::string(3 - digits.size(), '0') + digits : digits;
}

}  // namespace

std::string PluggedModule::node() const {
  return "/dev/bus/usb/" + threeDigits(bus) + "/" + threeDigits(device);
}

std::vector<PluggedModule> pluggedModules(Kernel& kernel) {
  std::vector<PluggedModule> modules;
  for (const std::string& name : kernel.entriesOf(kDevices)) {
    const std::string folder = kDevices + name;
    if (trimmedText(kernel.textOf(folder + "/idVendor")) != kVendor) continue;
    const std::string product = trimmedText(kernel.textOf(folder + "/idProduct"));
    const auto* const kind = std::ranges::find(kKinds, product, &ModuleKind::product);
    const std::vector<int> bus = numbersOf(kernel.textOf(folder + "/busnum").value_or(""));
    const std::vector<int> device = numbersOf(kernel.textOf(folder + "/devnum").value_or(""));
    if (kind == kKinds.end() || bus.empty() || device.empty()) continue;
    modules.push_back({numbersOf(name), name, bus.front(), device.front(), *kind});
  }
  std::ranges::sort(modules, {}, &PluggedModule::place);
  return modules;
}

std::string driverOf(Kernel& kernel, const PluggedModule& module, char channel) {
  const std::string interface = module.name + (channel == 'A' ? ":1.0" : ":1.1");  // of configuration 1
  const std::string link = kernel.linkOf(kDevices + interface + "/driver").value_or("");
  return link.substr(link.rfind('/') + 1);
}

}  // namespace tessarine
