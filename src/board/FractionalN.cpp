#include "board/FractionalN.h"

namespace tessarine::board {

void divideFractional(const FractionalRatio& ratio, Tuning& tuning) {
  tuning.dividers.push_back({"P", static_cast<double>(ratio.prescaler)});
  tuning.dividers.push_back({"INT", static_cast<double>(ratio.integer)});
  tuning.dividers.push_back({"FRAC", static_cast<double>(ratio.fraction)});
  tuning.dividers.push_back({"MOD", static_cast<double>(ratio.modulus)});
  const double part = ratio.modulus == 0 ? 0 : static_cast<double>(ratio.fraction) / ratio.modulus;
  tuning.multiplyDetector(ratio.integer + part);

  if (ratio.modulus == 0) tuning.faults.emplace_back("MOD is 0");
}

}  // namespace tessarine::board
