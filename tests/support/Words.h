// Words as texts of bits.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

using Words = std::vector<std::string>;

// From hexadecimal and width, highest bit first as it goes out: "038092/24 C8/24".
inline Words operator""_w(const char* text, std::size_t) {
  std::istringstream in(text);
  Words words;
  std::uint32_t bits = 0;
  std::size_t width = 0;
  for (char slash = 0; in >> std::hex >> bits >> slash >> std::dec >> width;)
    words.push_back(std::bitset<32>(bits).to_string().substr(32 - width));
  return words;
}

// Each word from its other end: words in shifting order as they go out, or back.
inline Words reversed(Words words) {
  for (std::string& word : words) word.assign(word.rbegin(), word.rend());
  return words;
}

// Bits `low` to `low + width - 1` of a word in shifting order; bits beyond its end count as 0.
inline unsigned bitsOf(std::string_view word, std::size_t low, std::size_t width) {
  unsigned value = 0;
  for (std::size_t bit = width; bit-- > 0;)
    value = 2 * value + (low + bit < word.size() && word[low + bit] == '1' ? 1 : 0);
  return value;
}

}  // namespace tessarine
