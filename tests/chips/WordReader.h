// Words as the chip sees them: numbers from bit positions.
#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

namespace tessarine {

// Bits `low` to `low + width - 1` of a word in shifting order; bits beyond its end count as 0.
inline unsigned bitsOf(std::string_view word, std::size_t low, std::size_t width) {
  unsigned value = 0;
  for (std::size_t bit = width; bit-- > 0;) {
    const bool set = low + bit < word.size() && word[low + bit] == '1';
    value = 2 * value + (set ? 1 : 0);
  }
  return value;
}

// A word in shifting order as hexadecimal from its highest bit down, and its length: "2180D0/24".
inline std::string hexOf(std::string_view word) {
  std::ostringstream text;
  for (std::size_t low = (word.size() + 3) / 4 * 4; low > 0; low -= 4) {
    text << std::uppercase << std::hex << bitsOf(word, low - 4, 4);
  }
  text << '/' << std::dec << word.size();
  return text.str();
}

}  // namespace tessarine
