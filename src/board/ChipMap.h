// What a chip's registers look like from the receiving side: tables of registers and fields, bit 0 the last
// bit on the wire. A new register is a new row; no code looks at a word in any other way.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "board/Ratings.h"

namespace tessarine::board {

class Chip;
struct ReachStrategy;
struct Tuning;

struct Field {
  std::string_view name;
  // What each value stands for, 2^width entries; empty for a number. A value that means nothing reads
  // "reserved".
  std::span<const std::string_view> meanings;
  std::uint8_t offset = 0;
  std::uint8_t width = 0;
  bool reserved = false;

  [[nodiscard]] constexpr std::uint32_t mask() const { return ((1U << width) - 1U) << offset; }
  [[nodiscard]] constexpr std::uint32_t value(std::uint32_t bits) const { return (bits & mask()) >> offset; }
  // Empty for a number.
  [[nodiscard]] std::string_view meaning(std::uint32_t bits) const {
    return meanings.empty() ? std::string_view{} : meanings[value(bits)];
  }
};

constexpr Field choice(int offset, int width, std::string_view name,
                       std::span<const std::string_view> meanings) {
  return {name, meanings, static_cast<std::uint8_t>(offset), static_cast<std::uint8_t>(width)};
}
constexpr Field number(int offset, int width, std::string_view name) {
  return choice(offset, width, name, {});
}
constexpr Field reserved(int offset, int width) {
  Field field = number(offset, width, "reserved");
  field.reserved = true;
  return field;
}

// A word goes to the register whose selector value stands in the bits of its selector mask. Selector and
// fields together cover each bit of the register once.
struct Register {
  std::string_view name;
  std::uint8_t width = 0;
  std::uint32_t selectorMask = 0;
  std::uint32_t selectorValue = 0;
  bool neededForLock = false;
  std::span<const Field> fields;

  [[nodiscard]] constexpr std::uint32_t mask() const {
    return width == 32 ? ~std::uint32_t{0} : (1U << width) - 1U;
  }
};

// A setting that keeps the loop from locking.
struct Obstacle {
  std::string_view registerName;
  std::string_view fieldName;
  std::uint32_t value = 0;
  std::string_view reason;
};

// A word of the sequence that brings a chip up after power-on. Without a field name any word of the register
// will do.
struct PowerUpStep {
  std::string_view registerName;
  std::string_view fieldName;
  std::uint32_t value = 0;
  std::string_view wanted;
};

// The setting that brings lock detect out on the pin. Chips with a pin of its own for it have no register
// name.
struct LockOutput {
  std::string_view registerName;
  std::string_view fieldName;
  std::uint32_t value = 0;
};

struct ChipMap {
  std::span<const Register> registers;
  std::span<const Obstacle> obstacles;
  LockOutput lockOutput;
  // Works out the dividers and frequencies from the registers that are loaded.
  void (*tune)(const Chip& chip, Tuning& tuning) = nullptr;
  // Tells beforehand what a load would give; null where nobody can.
  const ReachStrategy* reach = nullptr;
  // True for a chip whose load writes one register several times.
  bool repeatsInLoad = false;
  // What the chip must see once, in this order, before it runs; other words may stand in between.
  std::span<const PowerUpStep> powerUp = {};

  // The register that takes the word in the shift register.
  [[nodiscard]] std::optional<std::size_t> select(std::uint32_t shiftRegister) const;
  [[nodiscard]] std::size_t index(std::string_view registerName) const;  // std::logic_error if there is none
};

struct ChipModel {
  std::string_view name;
  const ChipMap* map = nullptr;
  Ratings ratings = {};
};

[[nodiscard]] std::span<const ChipModel> chipModels();
// Null for a name that no chip has.
[[nodiscard]] const ChipModel* findChipModel(std::string_view name);

}  // namespace tessarine::board
