// Which line of the port is which wire of the board.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "board/WireReceiver.h"

namespace tessarine::board {

// The masks of the three wires within the byte of one port. A mask of 0 is a wire that is not connected.
struct Cable {
  std::uint16_t port = 0x378;
  std::uint8_t clock = 1;
  std::uint8_t data = 2;
  std::uint8_t loadEnable = 4;

  [[nodiscard]] Levels levels(std::uint8_t lines) const {
    return {(lines & clock) != 0, (lines & data) != 0, (lines & loadEnable) != 0};
  }
};

// The USB interface's own cable on its port "B": clock B3, data B2, load enable B1.
inline constexpr std::string_view kUsbWirePort = "B";
inline constexpr Cable kUsbCable{.port = 0, .clock = 8, .data = 4, .loadEnable = 2};

// The mask of a pin such as "B3" within `port`; 0 for a pin of another port.
[[nodiscard]] constexpr std::uint8_t pinMask(std::string_view pin, std::string_view port) {
  if (pin.size() != port.size() + 1 || !pin.starts_with(port)) return 0;
  const char bit = pin.back();
  if (bit < '0' || bit > '7') return 0;
  return static_cast<std::uint8_t>(1U << static_cast<unsigned>(bit - '0'));
}

// The levels of port "B" one after the other while the USB interface shifts `word`: each bit is put on the
// data line before the clock rises, the last character first; then load enable pulses and all lines go low.
template <class Drive>
void shiftWordWave(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                   std::string_view word, Drive&& drive) {
  const std::uint8_t clock = pinMask(clockPin, kUsbWirePort);
  const std::uint8_t data = pinMask(dataPin, kUsbWirePort);
  drive(std::uint8_t{0});
  for (std::size_t left = word.size(); left > 0; --left) {
    const std::uint8_t level = word[left - 1] == '1' ? data : std::uint8_t{0};
    drive(level);
    drive(static_cast<std::uint8_t>(level | clock));
    drive(level);
  }
  drive(std::uint8_t{0});
  drive(pinMask(loadPin, kUsbWirePort));
  drive(std::uint8_t{0});
}

}  // namespace tessarine::board
