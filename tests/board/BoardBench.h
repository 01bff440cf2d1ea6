// A virtual board on a fake clock, with the hand that clocks words into it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "board/VirtualBoard.h"

namespace tessarine::board {

class BoardBench {
 public:
  explicit BoardBench(std::string_view chip = {}, double crystalMHz = 10) : referenceMHz(crystalMHz) {
    board().plug(chip);
  }

  [[nodiscard]] EvaluationBoard& board() { return port.board(); }
  [[nodiscard]] const Tuning& tuning() { return board().tuning(); }

  void write(unsigned lines) { port.DlPortWritePortUchar(cable.port, static_cast<std::uint8_t>(lines)); }

  // Clocks a word in, first character first, and gives the load pulse, 10 ms before and after it.
  void load(std::string_view bits) {
    write(0);
    for (const char bit : bits) {
      const unsigned level = bit == '1' ? cable.data : 0U;
      write(level);
      write(level | cable.clock);
      write(level);
    }
    write(0);
    microseconds += 10'000;
    write(cable.loadEnable);
    microseconds += 10'000;
  }

  // The same for a word given by its value.
  void load(std::uint32_t word, int width) {
    std::string bits;
    for (int bit = width - 1; bit >= 0; --bit) bits += (word >> bit & 1U) != 0 ? '1' : '0';
    load(bits);
  }

  [[nodiscard]] std::uint32_t field(std::string_view registerName, std::string_view fieldName) {
    return board().chip()->value(registerName, fieldName);
  }

  std::int64_t microseconds = 1'000'000;
  double referenceMHz;
  Cable cable;
  VirtualBoard port{{[this] { return microseconds; }, [this] { return referenceMHz; }},
                    [this] { return cable; }};
};

}  // namespace tessarine::board
