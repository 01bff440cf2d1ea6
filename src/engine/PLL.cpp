#include "engine/PLL.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "engine/BitStrings.h"
#include "platform/Fault.h"

namespace tessarine {

PLL::PLL(Module1& module) : module_(module) {}

String PLL::IntToBin(Integer& Num1) {
  if (Num1 < 0) return LongToBin(65536 + Num1);  // the two's complement pattern
  String digits = LongToBin(Num1);
  Num1 = 0;
  return digits;
}

String PLL::LongToBin(std::int32_t Num1) {
  if (Num1 <= 0) return "0";
  String digits;
  for (; Num1 > 0; Num1 /= 2) digits.push_back(Num1 % 2 == 0 ? '0' : '1');
  UpsideSTR(digits);
  return digits;
}

Integer PLL::BinToInt(const String& str1) {
  std::int32_t value = 0;
  for (const char digit : str1) {
    if (digit != '0' && digit != '1') throw Fault(quoted(str1) + " is no binary number");
    value = 2 * value + (digit == '1' ? 1 : 0);
    if (value > std::numeric_limits<Integer>::max()) {
      throw Fault("The binary number " + str1 + " does not fit 15 bits (0 to 32767)");
    }
  }
  return static_cast<Integer>(value);
}

void PLL::UpsideSTR(String& str1) { std::reverse(str1.begin(), str1.end()); }

}  // namespace tessarine
