#include "engine/BitStrings.h"

#include <cmath>

#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"

namespace tessarine {
namespace {

String padded(String digits, int width) {
  const auto wanted = static_cast<std::size_t>(width);
  if (digits.size() < wanted) digits.insert(0, wanted - digits.size(), '0');
  return digits;
}

}  // namespace

String ReverseStr(std::string_view Text) { return {Text.rbegin(), Text.rend()}; }

String naturalField(std::string_view name, double value, int width) {
  const double largest = std::exp2(width) - 1;
  if (!(value >= 0 && value <= largest && value == roundDown(value))) {
    throw Fault(std::string(name) + " = " + messageNumber(value) + " does not fit " + std::to_string(width) +
                (width == 1 ? " bit (0 to " : " bits (0 to ") + messageNumber(largest) + ")");
  }
  return padded(PLL::LongToBin(toLong(value, name)), width);
}

String shiftingField(std::string_view name, double value, int width) {
  String field = naturalField(name, value, width);
  PLL::UpsideSTR(field);
  return field;
}

String PadBits(Integer value, int width) {
  return padded(PLL::IntToBin(value), width).substr(0, static_cast<std::size_t>(width));
}

}  // namespace tessarine
