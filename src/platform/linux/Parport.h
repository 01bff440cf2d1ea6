// The parallel ports that the kernel knows, as it lists them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/Kernel.h"

namespace tessarine {

struct Parport {
  std::uint16_t base = 0;
  std::string name;  // "parport0"; the number says nothing of the address

  [[nodiscard]] std::string node() const { return "/dev/" + name; }
};

[[nodiscard]] std::vector<Parport> knownParports(Kernel& kernel);
[[nodiscard]] std::optional<Parport> parportAt(Kernel& kernel, std::uint16_t base);

// Which of the kernel's clients has the port just now ("lp", "ppdev0"); empty for none.
[[nodiscard]] std::string holderOf(Kernel& kernel, const Parport& port);

}  // namespace tessarine
