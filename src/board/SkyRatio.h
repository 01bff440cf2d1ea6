// The division ratio of the SKY72300-362: N and a fraction in two's complement.
#pragma once

#include <cstdint>

namespace tessarine::board {

struct SkyDivider {
  std::uint32_t lessWhole = 0;  // the ratio's whole part less 32
  std::uint32_t fraction = 0;   // 18 bits
  bool integerOnly = false;
  bool tenBits = false;  // the upper ten of them count
};

// `bits` as a two's complement of `width` bits, as a part of a whole.
[[nodiscard]] inline double signedPart(std::uint32_t bits, int width) {
  const double whole = static_cast<double>(1U << width);
  return bits / whole - ((bits >> (width - 1)) != 0 ? 1 : 0);
}

[[nodiscard]] inline double skyRatio(const SkyDivider& divider) {
  double part = 0;
  if (!divider.integerOnly)
    part = divider.tenBits ? signedPart(divider.fraction >> 8, 10) : signedPart(divider.fraction, 18);
  return divider.lessWhole + 32 + part;
}

}  // namespace tessarine::board
