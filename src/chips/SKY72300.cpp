// The ten words of the SKY72300-362: a 4-bit address and 12 bits of data each, most significant bit first.
//
// The chip divides by N + 32 + F / 2^18 with F in two's complement: the ratio is rounded to the nearest whole
// number, and F is what remains, on either side.
#include <string_view>

#include "chips/Words.h"
#include "engine/BitStrings.h"
#include "engine/Module1.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "platform/Platform.h"

namespace tessarine {

namespace {

constexpr int kPumpWidth = 5;
constexpr double kMaxPump = 31;
constexpr double kMaxRefDiv = 32;
constexpr double kWholeOffset = 32;  // the word holds the division ratio less this
constexpr double kFractionSteps = 1 << 18;
constexpr double kDecimals = 1000000;

struct Division {
  double N;
  double F;  // two's complement of 18 bits
};

Division divisionOf(double Fvco, double C) {
  const double T = Fvco / C;
  const double W = roundHalfAway(T);
  const double D = roundHalfAway((T - W) * kDecimals) / kDecimals;
  const double F = roundHalfAway(D * kFractionSteps);
  return {W - kWholeOffset, F < 0 ? F + kFractionSteps : F};
}

void requireRange(std::string_view name, double value, double least, double most) {
  if (value >= least && value <= most) return;
  throw Fault(joined({name, " = ", messageNumber(value), " cannot be used (", messageNumber(least), " to ",
                      messageNumber(most), ")"}));
}

}  // namespace

void PLL::CalcSKY72300() {
  requireRange("Main reference division", Main_RefDiv, 1, kMaxRefDiv);
  requireAboveZero("Reference Frequency", Fosc, " MHz");
  const double C = Fosc / Main_RefDiv;
  const Division division = divisionOf(Fvco, C);

  const String wholeField = naturalField("N", division.N, 9);
  const String fracField = naturalField("F", division.F, 18);
  const String upperF = fracField.substr(0, 10);
  const String lowerF = fracField.substr(10);
  const String refDivField = naturalField("Main reference division", Main_RefDiv - 1, 5);
  const String auxPump = naturalField("Auxiliary charge pump", Aux_ChrgPump, kPumpWidth);
  const bool ownFile = !SetupFile_SKY72300.empty();
  const String& file = ownFile ? SetupFile_SKY72300 : SetupFile_ADF4113;
  const bool fromFile = !file.empty();
  const BandTable& bands = ownFile ? ChrgPumpBands : CurrentSet2;
  const String setting = fromFile ? bands.settingAt(toSingle(Fvco)) : String();
  const bool usable = startsWithNumber(setting);
  if (usable)
    requireRange("Charge pump of the band file", roundHalfEven(leadingNumber(setting)), 0, kMaxPump);
  const String mainPump =
      usable ? SetupCurrentBits(setting) : naturalField("Main charge pump", Main_ChrgPump, kPumpWidth);
  // Nothing can be refused from here on.

  const auto show = [this](int index, std::string_view name, const String& word) {
    module_.view->showWord(index, joined({name, word}));
  };
  word(R0) = {"0000", "000", wholeField};
  show(0, "R0: ", R0);
  word(r1) = {"0001", "00", upperF};
  show(1, "R1: ", r1);
  word(R2) = {"0010", "0000", lowerF};
  show(2, "R2: ", R2);
  word(R3) = {"0011", "000", "000000000"};
  show(3, "R3: ", R3);
  word(R4) = {"0100", "00", "0000000000"};
  show(4, "R4: ", R4);
  word(R5) = {"0101", "00", "00000", refDivField};
  show(5, "R5: ", R5);
  word(R6) = {"0110", Aux_LDEnable, auxPump, Main_LDEnable, mainPump};
  show(6, "R6: ", R6);
  word(R7) = {"0111", "00", MultiplexerReg};
  show(7, "R7: ", R7);
  word(R8) = {"1000", "00", ModulationControlReg};
  show(8, "R8: ", R8);
  word(R9) = {"1001", ModulationDataReg};
  show(9, "R9: ", R9);

  // Told at the end: while the box is open another command may run.
  if (fromFile && !usable) {
    module_.platform.screen.messageBox(
        joined({quoted(file, kLongestPath), " gives no charge-pump value for ", messageNumber(Fvco), " MHz (",
                quoted(setting), "). The panel's main charge pump is used."}),
        Icon::critical);
  }
}

String PLL::SetupCurrentBits(const String& Text) {
  Integer value = leadingInteger(Text, "Charge pump");
  const String digits = IntToBin(value);
  return digits.size() < kPumpWidth ? String(kPumpWidth - digits.size(), '0') + digits : digits;
}

}  // namespace tessarine
