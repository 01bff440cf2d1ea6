// Division by P x B + A, as the chips with a dual-modulus prescaler do it.
#pragma once

#include <cstdint>

#include "board/Chip.h"

namespace tessarine::board {

struct DualModulusRatio {
  std::uint32_t prescaler = 0;  // 8 for 8/9
  std::uint32_t main = 0;       // B
  std::uint32_t swallow = 0;    // A
};

// The prescaler counts P + 1 for A of the B cycles, so it cannot swallow more often than B. Both rules stand
// in the data sheet of the LMX2306, LMX2316 and LMX2326 (page 16); the others have the same counters.
inline constexpr std::uint32_t kLeastMain = 3;

// The detector's frequency must be known by now.
void divideDualModulus(const DualModulusRatio& ratio, Tuning& tuning);

}  // namespace tessarine::board
