// A virtual board on a fake clock, with the hand that clocks words into it.
#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

#include "board/VirtualBoard.h"
#include "board/WireTrace.h"
#include "support/Words.h"

namespace tessarine::board {

// 900 MHz from 10 MHz: R 50, N 4500.
inline const Words kSet4113 = "038092/24 0000C8/24 023211/24"_w;
inline const Words kSet2326 = "001092/21 0000C8/21 104651/21"_w;
inline const Words kSet2325 = "08065/19 08C28/19"_w;

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

  void load(const Words& words) {
    for (const std::string& word : words) load(std::string_view(word));
  }

  [[nodiscard]] std::uint32_t field(std::string_view registerName, std::string_view fieldName) {
    return board().chip()->value(registerName, fieldName);
  }

  // The trace as a value change dump.
  [[nodiscard]] std::string vcd() {
    std::ostringstream out;
    saveVcd(board().trace(), board().lastWrite(), out);
    return out.str();
  }

  std::int64_t microseconds = 1'000'000;
  double referenceMHz;
  Cable cable;
  VirtualBoard port{{[this] { return microseconds; }, [this] { return referenceMHz; }},
                    [this] { return cable; }};
};

}  // namespace tessarine::board
