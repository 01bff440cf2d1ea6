#include "platform/linux/BitBang.h"

#include <cstddef>

namespace tessarine {

std::vector<std::uint8_t> shiftedWord(const ShiftPins& pins, std::string_view word) {
  std::vector<std::uint8_t> levels{0};
  levels.reserve(3 * word.size() + 4);
  for (std::size_t behind = word.size(); behind > 0; --behind) {
    const std::uint8_t data = word[behind - 1] == '1' ? pins.data : std::uint8_t{0};
    levels.push_back(data);
    levels.push_back(static_cast<std::uint8_t>(data | pins.clock));
    levels.push_back(data);
  }
  levels.push_back(0);
  levels.push_back(pins.load);
  levels.push_back(0);
  return levels;
}

}  // namespace tessarine
