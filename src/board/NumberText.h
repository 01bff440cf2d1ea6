// Numbers as text, with a decimal point in every locale.
#pragma once

#include <algorithm>
#include <charconv>
#include <cmath>
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

// As the program's messages have it: fifteen significant digits at most and no exponent below 1e15.
[[nodiscard]] inline std::string messageText(double value) {
  constexpr double kLongest = 1e15;
  constexpr int kDigits = 15;
  char text[400];
  if (!(std::abs(value) < kLongest)) {
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6).ptr;
    return {text, end};
  }
  if (value == 0) return "0";
  const auto end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, kDigits - 1).ptr;
  const char* exponent = std::find(text, end, 'e') + 1;
  if (*exponent == '+') ++exponent;
  int power = 0;
  std::from_chars(exponent, end, power);
  std::string plain = fixedText(value, std::max(0, kDigits - 1 - power));
  if (plain.find('.') != std::string::npos) plain.erase(plain.find_last_not_of('0') + 1);
  if (plain.back() == '.') plain.pop_back();
  return plain;
}

// A frequency in the unit of its size: "10 MHz", "200 kHz".
[[nodiscard]] inline std::string frequencyText(double megahertz) {
  if (megahertz >= 1) return shortText(megahertz) + " MHz";
  if (megahertz >= 1e-3) return shortText(megahertz * 1e3) + " kHz";
  return shortText(megahertz * 1e6) + " Hz";
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
