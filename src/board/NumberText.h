// Numbers as text, with a decimal point in every locale.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>

namespace tessarine::board {

// With `decimals` digits behind the point.
[[nodiscard]] inline std::string fixedText(double value, int decimals) {
  char text[400];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
  return {text, end};
}

// At most twelve significant digits, none of them idle.
[[nodiscard]] inline std::string shortText(double value) {
  char text[400];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 12).ptr;
  return {text, end};
}

// The lowest `width` bits, the highest of them first.
[[nodiscard]] inline std::string binaryText(std::uint32_t bits, int width) {
  std::string text;
  for (int bit = width - 1; bit >= 0; --bit) text += (bits >> bit & 1U) != 0 ? '1' : '0';
  return text;
}

// As many hexadecimal digits as `width` bits need.
[[nodiscard]] inline std::string hexText(std::uint32_t bits, int width) {
  std::string text;
  for (int digit = (width + 3) / 4 - 1; digit >= 0; --digit)
    text += "0123456789ABCDEF"[bits >> (4 * digit) & 0xFU];
  return text;
}

}  // namespace tessarine::board
