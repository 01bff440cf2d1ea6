// The chip's end of the three wires: bits at the rising clock edge, a latch at the rising load-enable edge.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessarine::board {

struct Levels {
  bool clock = false;
  bool data = false;
  bool loadEnable = false;

  bool operator==(const Levels&) const = default;
};

class WireReceiver {
 public:
  // What one change of the levels did. A bit counts before a latch when both edges come at once.
  struct Edges {
    bool bit = false;
    bool latch = false;
  };

  Edges drive(Levels next);

  [[nodiscard]] Levels levels() const { return levels_; }

  // The last 32 bits clocked in since power-on, the last one at bit 0. A latch leaves them in place, so that
  // a pulse without new bits latches the same word again and a short word keeps older bits above it.
  [[nodiscard]] std::uint32_t shiftRegister() const { return shiftRegister_; }

  // The bits clocked in since they were last taken, first on the wire first, as "0" and "1". Bounded: without
  // load pulses the oldest bits are forgotten.
  [[nodiscard]] std::string_view bits() const { return bits_; }
  [[nodiscard]] std::string takeBits();

  // Clears the shift register, not the list of bits: that one belongs to the wire, not to the chip.
  void powerOn() { shiftRegister_ = 0; }

 private:
  Levels levels_;
  std::uint32_t shiftRegister_ = 0;
  std::string bits_;
};

}  // namespace tessarine::board
