// A chip on the board: the registers that it latched since power-on, and what they make of its loop.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/ChipMap.h"

namespace tessarine::board {

// What the registers say of the loop.
struct Tuning {
  struct Divider {
    std::string_view name;
    double value = 0;
  };

  double referenceMHz = 0;
  std::vector<Divider> dividers;
  std::optional<double> detectorMHz;
  std::optional<double> outputMHz;
  std::vector<std::string> faults;  // why the loop cannot lock; none: it is locked
  std::vector<std::string> notes;   // limits of the chip that the setting exceeds
  bool lockPin = false;             // the level of the lock-detect pin

  [[nodiscard]] bool locked() const { return faults.empty(); }
  [[nodiscard]] std::string reason() const;  // all faults in one line
  [[nodiscard]] std::optional<double> divider(std::string_view name) const;

  // Steps of a tune function: the detector runs at `referenceMHz` x `factor` / R, the output at detector x N.
  void divideReference(std::uint32_t r, double factor = 1);
  void multiplyDetector(double n);
};

class Chip {
 public:
  explicit Chip(const ChipModel& model) : model_(&model), words_(model.map->registers.size()) {}

  [[nodiscard]] const ChipModel& model() const { return *model_; }
  [[nodiscard]] const ChipMap& map() const { return *model_->map; }

  // The register that took the word; none if the word selects no register of this chip.
  std::optional<std::size_t> latch(std::uint32_t shiftRegister);

  // The word of a register, by its place in the map; none before its first load.
  [[nodiscard]] std::optional<std::uint32_t> word(std::size_t index) const { return words_[index]; }

  // By name; a name that the map lacks is a std::logic_error. Fields of a register that isn't loaded read 0.
  [[nodiscard]] bool loaded(std::string_view registerName) const;
  [[nodiscard]] std::uint32_t value(std::string_view registerName, std::string_view fieldName) const;
  // The number in front of the field's meaning: 8 for "8/9".
  [[nodiscard]] std::uint32_t meaningNumber(std::string_view registerName, std::string_view fieldName) const;

  [[nodiscard]] Tuning tune(double referenceMHz) const;

 private:
  void followPowerUp(std::size_t index);
  [[nodiscard]] const Field& field(std::size_t index, std::string_view fieldName) const;

  const ChipModel* model_;
  std::vector<std::optional<std::uint32_t>> words_;
  std::size_t powerUpStep_ = 0;  // the one that comes next
};

}  // namespace tessarine::board
