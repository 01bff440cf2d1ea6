// Division by INT + FRAC / MOD, as the fractional chips do it.
#pragma once

#include <cstdint>

#include "board/Chip.h"

namespace tessarine::board {

struct FractionalRatio {
  std::uint32_t integer = 0;
  std::uint32_t fraction = 0;
  std::uint32_t modulus = 0;
  std::uint32_t prescaler = 0;  // 4 for 4/5, 8 for 8/9
};

// The detector's frequency must be known by now.
void divideFractional(const FractionalRatio& ratio, Tuning& tuning);

}  // namespace tessarine::board
