// A kernel with GPIO chips, as tests see it.
#pragma once

#include <linux/gpio.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "linux/FakeKernel.h"

namespace tessarine {

// Chips by node, each with its lines' names. What happens to lines is recorded as texts.
struct GpioKernel : FakeKernel {
  std::map<std::string, std::vector<std::string>> chips;
  std::map<std::string, std::string> holders;  // of lines
  std::map<std::string, int> level;
  std::vector<std::string> calls;
  std::vector<std::uint8_t> levels;  // GPIO17, DATA and LOAD, a bit each, after each change
  double changeTakes = 0;
  int result = 0;  // of whatever changes a line
  int takeResult = 0;
  int infoResult = 0;
  std::set<int> requested;  // descriptors

  void add(const std::string& chip, std::vector<std::string> lines) {
    chips["/dev/" + chip] = std::move(lines);
    nodes["/dev/" + chip] = 0;
  }
  int open(const std::string& path, int flags) override {
    const int descriptor = FakeKernel::open(path, flags);
    if (descriptor >= 0) lines_[descriptor] = chips[path];
    return descriptor;
  }
  void close(int descriptor) override {
    FakeKernel::close(descriptor);
    if (requested.erase(descriptor) != 0) calls.emplace_back("give back");
  }
  int ioctl(int descriptor, unsigned long request, void* argument) override {
    const std::vector<std::string>& lines = lines_[descriptor];
    if (request == GPIO_GET_CHIPINFO_IOCTL) {
      static_cast<gpiochip_info*>(argument)->lines = static_cast<std::uint32_t>(lines.size());
    } else if (request == GPIO_V2_GET_LINEINFO_IOCTL) {
      if (infoResult < 0) return infoResult;
      auto& info = *static_cast<gpio_v2_line_info*>(argument);
      std::strncpy(info.name, lines[info.offset].c_str(), sizeof info.name - 1);
      if (!holders.contains(lines[info.offset])) return 0;
      info.flags = GPIO_V2_LINE_FLAG_USED;
      std::strncpy(info.consumer, holders[lines[info.offset]].c_str(), sizeof info.consumer - 1);
    } else if (request == GPIO_V2_GET_LINE_IOCTL) {
      if (takeResult < 0) return takeResult;
      auto& taken = *static_cast<gpio_v2_line_request*>(argument);
      taken.fd = 100 + descriptor;
      for (std::size_t i = 0; i < taken.num_lines; ++i) lines_[taken.fd].push_back(lines[taken.offsets[i]]);
      requested.insert(taken.fd);
      configure("take", lines_[taken.fd], taken.config);
    } else if (result < 0) {
      return result;
    } else if (request == GPIO_V2_LINE_SET_CONFIG_IOCTL) {
      configure("make", lines, *static_cast<gpio_v2_line_config*>(argument));
    } else {
      auto& values = *static_cast<gpio_v2_line_values*>(argument);
      const bool sets = request == GPIO_V2_LINE_SET_VALUES_IOCTL;
      std::string call = "set";
      for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::uint64_t bit = std::uint64_t{1} << i;
        if ((values.mask & bit) == 0) continue;
        int& high = level[lines[i]];
        if (!sets && high != 0) values.bits |= bit;
        if (sets) high = (values.bits & bit) != 0 ? 1 : 0;
        call += " " + lines[i] + "=" + std::to_string(high);
      }
      if (!sets) return 0;
      now += changeTakes;
      calls.push_back(call);
      levels.push_back(
          static_cast<std::uint8_t>(level["GPIO17"] | level["DATA"] << 1U | level["LOAD"] << 2U));
    }
    return 0;
  }

 private:
  void configure(std::string call, const std::vector<std::string>& lines, const gpio_v2_line_config& config) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const bool other = config.num_attrs != 0 && (config.attrs[0].mask >> i & 1U) != 0;
      const std::uint64_t flags = other ? config.attrs[0].attr.flags : config.flags;
      call += " " + lines[i] + (flags == GPIO_V2_LINE_FLAG_INPUT ? ":in" : ":out");
    }
    calls.push_back(call);
  }
  std::map<int, std::vector<std::string>> lines_;  // of chips and of requests
};

}  // namespace tessarine
