#include "remote/Decimal.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <system_error>

#include "board/NumberText.h"
#include "platform/Text.h"

namespace tessarine::remote {
namespace {

constexpr int kBeyondUse = 9999;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The length of sign, digits and point at the front; 0 without a digit.
std::size_t plainLength(std::string_view text) {
  std::size_t end = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  bool point = false;
  bool digit = false;
  for (; end < text.size() && (isDigit(text[end]) || (text[end] == '.' && !point)); ++end) {
    (text[end] == '.' ? point : digit) = true;
  }
  return digit ? end : 0;
}

}  // namespace

std::string shifted(std::string_view plain, int exponent) {
  const bool negative = plain.starts_with('-');
  if (negative || plain.starts_with('+')) plain.remove_prefix(1);
  const std::size_t point = std::min(plain.find('.'), plain.size());
  std::string digits(plain.substr(0, point));
  if (point < plain.size()) digits += plain.substr(point + 1);
  // Where the point comes to stand among the digits.
  auto place = static_cast<std::ptrdiff_t>(point) + exponent;
  if (place < 0) {
    digits.insert(0, static_cast<std::size_t>(-place), '0');
    place = 0;
  }
  const auto whole = static_cast<std::size_t>(place);
  if (whole > digits.size()) digits.append(whole - digits.size(), '0');
  std::string before = digits.substr(0, whole);
  std::string behind = digits.substr(whole);
  before.erase(0, std::min(before.find_first_not_of('0'), before.size()));
  behind.erase(behind.find_last_not_of('0') + 1);
  if (before.empty()) before = "0";
  std::string text = behind.empty() ? before : before + '.' + behind;
  return negative && text != "0" ? '-' + text : text;
}

double valueOf(std::string_view plain) {
  double value = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  return result.ec == std::errc() ? value : std::numeric_limits<double>::infinity();
}

std::optional<std::string> fieldNumber(std::string_view field) {
  const std::string_view text = trimmed(field);
  if (text.empty()) return {};
  const std::size_t length = plainLength(text);
  return length == 0 ? std::string("0") : std::string(text.substr(0, length));
}

std::optional<CommandNumber> commandNumber(std::string_view text) {
  const std::size_t length = plainLength(text);
  if (length == 0) return {};
  CommandNumber number{std::string(text.substr(0, length)), 0, {}};
  std::string_view rest = text.substr(length);
  if (!rest.empty() && (rest[0] == 'e' || rest[0] == 'E')) {
    std::string_view power = rest.substr(1);
    if (power.starts_with('+')) power.remove_prefix(1);
    const auto [end, error] = std::from_chars(power.data(), power.data() + power.size(), number.exponent);
    if (error == std::errc::result_out_of_range) {
      number.exponent = power.starts_with('-') ? -kBeyondUse : kBeyondUse;
    }
    if (error != std::errc::invalid_argument) rest = {end, power.data() + power.size()};
  }
  number.exponent = std::clamp(number.exponent, -kBeyondUse, kBeyondUse);
  number.suffix = trimmed(rest);
  return number;
}

std::string plainText(double value) { return shifted(board::fixedText(value, 3), 0); }

}  // namespace tessarine::remote
