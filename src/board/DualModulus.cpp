#include "board/DualModulus.h"

#include <string>

namespace tessarine::board {

void divideDualModulus(const DualModulusRatio& ratio, Tuning& tuning) {
  const auto [p, b, a] = ratio;
  tuning.dividers.push_back({"P", static_cast<double>(p)});
  tuning.dividers.push_back({"B", static_cast<double>(b)});
  tuning.dividers.push_back({"A", static_cast<double>(a)});
  tuning.multiplyDetector(static_cast<double>(p) * b + a);
  if (b < kLeastMain) {
    tuning.faults.push_back("B = " + std::to_string(b) + " is below 3");
  } else if (a > b) {
    tuning.faults.push_back("A = " + std::to_string(a) + " is above B = " + std::to_string(b));
  }
}

}  // namespace tessarine::board
