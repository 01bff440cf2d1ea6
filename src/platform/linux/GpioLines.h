// The GPIO lines that stand in for the connector.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/GpioChips.h"
#include "platform/linux/GpioWires.h"
#include "platform/linux/Kernel.h"
#include "platform/linux/Notice.h"

namespace tessarine {

// The caller of each operation holds the gate.
class GpioLines {
 public:
  GpioLines(Kernel& kernel, GpioWires wires, Notice notice)
      : kernel_(kernel), wires_(std::move(wires)), notice_(std::move(notice)) {}

  // Takes all lines, the outputs low, unless they are taken. So does each of the next three. A Fault tells
  // what is in the way; it gives the lines back until the next call.
  void open();
  // The eight bits of the data register. Lines of a chip change at once; a bit without a line is remembered.
  // `load` is the one that carries load enable.
  void write(std::uint8_t bits, std::uint8_t load);
  // The levels of the lines as they are.
  [[nodiscard]] std::uint8_t read();
  [[nodiscard]] bool lock();  // false without a line for it

  [[nodiscard]] const GpioWires& wires() const { return wires_; }

  // Outputs low, then load enable alone an input, then the others, and given back.
  void leave() noexcept;

 private:
  struct Taken {
    GpioChip chip;
    int request = -1;  // descriptor; its bit n is the line of chip.roles[n]
  };

  void take(const GpioChip& chip);
  void call(const Taken& taken, unsigned long request, void* argument);
  void change(const Taken& taken, std::uint64_t mask, std::uint8_t bits);
  void watchSpeed(const Taken& taken, double seconds);
  [[nodiscard]] unsigned levels(unsigned wanted);

  Kernel& kernel_;
  GpioWires wires_;
  Notice notice_;
  std::vector<Taken> taken_;
  std::uint8_t driven_ = 0;
  std::uint8_t load_ = 1U << kLoadRole;
  int slowOnes_ = 0;  // changes in a row
};

}  // namespace tessarine
