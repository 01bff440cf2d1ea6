#include "board/FractionalN.h"

#include <string>

#include "board/NumberText.h"

namespace tessarine::board {

namespace {

// The modulator swings the integer part by some counts; below these the dual-modulus divider cannot follow.
std::uint32_t leastInteger(std::uint32_t prescaler) { return prescaler == 4 ? 31 : 91; }

constexpr double kHighestMHzOf4 = 2000;  // what a 4/5 prescaler can follow

}  // namespace

void divideFractional(const FractionalRatio& ratio, Tuning& tuning) {
  tuning.dividers.push_back({"P", static_cast<double>(ratio.prescaler)});
  tuning.dividers.push_back({"INT", static_cast<double>(ratio.integer)});
  tuning.dividers.push_back({"FRAC", static_cast<double>(ratio.fraction)});
  tuning.dividers.push_back({"MOD", static_cast<double>(ratio.modulus)});
  const double part = ratio.modulus == 0 ? 0 : static_cast<double>(ratio.fraction) / ratio.modulus;
  tuning.multiplyDetector(ratio.integer + part);

  if (ratio.modulus == 0) {
    tuning.faults.emplace_back("MOD is 0");
  } else if (ratio.fraction >= ratio.modulus) {
    tuning.notes.push_back("FRAC = " + std::to_string(ratio.fraction) +
                           " is not below MOD = " + std::to_string(ratio.modulus));
  }
  if (ratio.integer < leastInteger(ratio.prescaler))
    tuning.notes.push_back("INT = " + std::to_string(ratio.integer) + " is below " +
                           std::to_string(leastInteger(ratio.prescaler)) + ", the least with prescaler " +
                           std::to_string(ratio.prescaler));
  if (ratio.prescaler == 4 && tuning.outputMHz && *tuning.outputMHz > kHighestMHzOf4)
    tuning.notes.push_back("the output is above " + shortText(kHighestMHzOf4) +
                           " MHz, the highest with prescaler 4");
}

}  // namespace tessarine::board
