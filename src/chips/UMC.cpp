// The words of the UMC module, which takes values in decimal form: a register code, a power of ten and a
// mantissa. Nothing of a word is kept: each is built, sent and forgotten.
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "chips/Words.h"
#include "engine/BitStrings.h"
#include "engine/Module1.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "transport/PortAccess.h"

namespace tessarine {

namespace {

constexpr double kHzPerMHz = 1000000;
constexpr Single kHzPerKHz = 1000;
constexpr Integer kStrobeMs = 10;

struct Register {
  std::string_view code;
  double value;  // Hz; for the channel a plain number
  bool cutsZeros;
};

Register registerOf(const PLL& pll, const String& name) {
  if (name == "channel") return {"0000", static_cast<double>(pll.Channel), false};
  if (name == "start") return {"0001", pll.StartFreq * kHzPerMHz, true};
  if (name == "stop") return {"0010", pll.StopFreq * kHzPerMHz, true};
  if (name == "stepsize") return {"0011", static_cast<double>(pll.StepSize * kHzPerKHz), true};
  if (name == "ref") return {"0100", pll.RefFreq * kHzPerMHz, true};
  throw Fault(joined({"The UMC module has no register \"", name, "\""}));
}

// All digits of a value that is not negative, rounded to a whole number.
String wholeDecimal(double value) {
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), roundHalfEven(value),
                                 std::chars_format::fixed, 0);
  return {digits.data(), end.ptr};
}

String wordOf(const Register& source, const String& name) {
  if (!(source.value >= 0 && std::isfinite(source.value))) {
    throw Fault(joined({"UMC ", name, " = ", messageNumber(source.value),
                        source.value < 0 ? " must not be negative" : " is too large"}));
  }
  String digits = wholeDecimal(source.value);
  std::size_t zeros = 0;
  if (source.cutsZeros) {
    zeros = digits.size() - (digits.find_last_not_of('0') + 1);
    digits.erase(digits.size() - zeros);
  }
  return joined({
      source.code,
      naturalField(joined({"Exponent of UMC ", name}), static_cast<double>(zeros), 4),
      naturalField(joined({"Mantissa of UMC ", name}), leadingNumber(digits), 24),
  });
}

}  // namespace

// All words are built before the first is sent: a module that is set by half runs at a frequency that nobody
// asked for.
void PLL::Set_UMC() {
  const Integer before = Channel;
  std::array<String, 5> words;
  try {
    if (CalcChannel) {
      requireAboveZero("UMC step size", StepSize, " kHz");
      Channel = toInteger((Fvco - StartFreq) / (StepSize / 1000.0), "UMC channel");
    }
    std::size_t place = 0;
    for (const char* const name : {"start", "stop", "stepsize", "ref", "channel"}) {
      words[place++] = wordOf(registerOf(*this, name), name);
    }
  } catch (const Fault&) {
    Channel = before;
    throw;
  }
  for (String& word : words) send32Bits(word);
}

void PLL::Send32BitReg(const String& Reg1) { send32Bits(wordOf(registerOf(*this, Reg1), Reg1)); }

void PLL::send32Bits(String word) {
  UpsideSTR(word);
  ShiftOut(word);
  PortWrite(module_, module_.PortAddress, LEbit);
  DelayMs(module_, kStrobeMs);
  PortWrite(module_, module_.PortAddress, 0);
}

}  // namespace tessarine
