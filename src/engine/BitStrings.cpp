#include "engine/BitStrings.h"

#include <cstddef>
#include <cstdint>

#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"

namespace tessarine {
namespace {

// The value as a number of at most `width` bits, 31 at most.
std::uint32_t fittingBits(std::string_view name, double value, int width) {
  const double largest = (std::uint32_t{1} << static_cast<unsigned>(width)) - 1;
  if (!(value >= 0 && value <= largest && value == roundDown(value))) {
    throw Fault(std::string(name) + " = " + messageNumber(value) + " does not fit " + std::to_string(width) +
                (width == 1 ? " bit (0 to " : " bits (0 to ") + messageNumber(largest) + ")");
  }
  return static_cast<std::uint32_t>(toLong(value, name));
}

char digitOf(std::uint32_t bits) { return (bits & 1U) == 0 ? '0' : '1'; }

}  // namespace

String ReverseStr(std::string_view Text) { return {Text.rbegin(), Text.rend()}; }

String naturalField(std::string_view name, double value, int width) {
  std::uint32_t bits = fittingBits(name, value, width);
  String field(static_cast<std::size_t>(width), '0');
  for (auto digit = field.rbegin(); bits != 0; ++digit, bits >>= 1U) *digit = digitOf(bits);
  return field;
}

String shiftingField(std::string_view name, double value, int width) {
  std::uint32_t bits = fittingBits(name, value, width);
  String field(static_cast<std::size_t>(width), '0');
  for (auto digit = field.begin(); bits != 0; ++digit, bits >>= 1U) *digit = digitOf(bits);
  return field;
}

String PadBits(Integer value, int width) {
  const auto wanted = static_cast<std::size_t>(width);
  String digits = PLL::IntToBin(value);
  if (digits.size() < wanted) digits.insert(0, wanted - digits.size(), '0');
  return digits.substr(0, wanted);
}

}  // namespace tessarine
