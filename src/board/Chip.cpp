#include "board/Chip.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "board/NumberText.h"
#include "board/Ratings.h"

namespace tessarine::board {

std::string Tuning::reason() const {
  std::string text;
  for (const std::string& fault : faults) {
    if (!text.empty()) text += "; ";
    text += fault;
  }
  return text;
}

std::optional<double> Tuning::divider(std::string_view name) const {
  const auto found = std::ranges::find(dividers, name, &Divider::name);
  return found == dividers.end() ? std::nullopt : std::optional<double>(found->value);
}

void Tuning::divideReference(std::uint32_t r, double factor) {
  if (factor != 1) dividers.push_back({"reference factor", factor});
  dividers.push_back({"R", static_cast<double>(r)});
  if (r == 0) {
    faults.emplace_back("R is 0");
  } else if (referenceMHz > 0) {
    detectorMHz = referenceMHz * factor / r;
  }
}

void Tuning::multiplyDetector(double n) {
  dividers.push_back({"N", n});
  if (n <= 0) {
    faults.emplace_back("N is " + shortText(n));
  } else if (detectorMHz) {
    outputMHz = *detectorMHz * n;
  }
}

std::optional<std::size_t> Chip::latch(std::uint32_t shiftRegister) {
  const auto index = map().select(shiftRegister);
  if (index) {
    words_[*index] = shiftRegister & map().registers[*index].mask();
    followPowerUp(*index);
  }
  return index;
}

void Chip::followPowerUp(std::size_t index) {
  if (powerUpStep_ == map().powerUp.size()) return;
  const PowerUpStep& step = map().powerUp[powerUpStep_];
  if (map().registers[index].name != step.registerName) return;
  if (step.fieldName.empty() || value(step.registerName, step.fieldName) == step.value) ++powerUpStep_;
}

bool Chip::loaded(std::string_view registerName) const {
  return words_[map().index(registerName)].has_value();
}

std::uint32_t Chip::value(std::string_view registerName, std::string_view fieldName) const {
  const std::size_t index = map().index(registerName);
  return field(index, fieldName).value(words_[index].value_or(0));
}

std::uint32_t Chip::meaningNumber(std::string_view registerName, std::string_view fieldName) const {
  const std::size_t index = map().index(registerName);
  const std::string_view meaning = field(index, fieldName).meaning(words_[index].value_or(0));
  std::uint32_t result = 0;
  std::from_chars(meaning.data(), meaning.data() + meaning.size(), result);
  return result;
}

const Field& Chip::field(std::size_t index, std::string_view fieldName) const {
  for (const Field& candidate : map().registers[index].fields) {
    if (candidate.name == fieldName) return candidate;
  }
  throw std::logic_error("no field " + std::string(fieldName));
}

Tuning Chip::tune(double referenceMHz) const {
  Tuning tuning;
  tuning.referenceMHz = referenceMHz;
  for (std::size_t index = 0; index < words_.size(); ++index) {
    const Register& spec = map().registers[index];
    if (spec.neededForLock && !words_[index])
      tuning.faults.push_back(std::string(spec.name) + " register never loaded");
  }
  if (tuning.faults.empty() && powerUpStep_ < map().powerUp.size()) {
    tuning.faults.push_back("power-up sequence waits for " + std::string(map().powerUp[powerUpStep_].wanted));
  }
  if (!(referenceMHz > 0)) tuning.faults.emplace_back("no reference");
  for (const Obstacle& obstacle : map().obstacles) {
    if (loaded(obstacle.registerName) && value(obstacle.registerName, obstacle.fieldName) == obstacle.value)
      tuning.faults.emplace_back(obstacle.reason);
  }
  map().tune(*this, tuning);

  for (std::string& sentence : brokenRatings(*model_, tuning)) tuning.notes.push_back(std::move(sentence));
  const LockOutput& output = map().lockOutput;
  tuning.lockPin = tuning.locked() && (output.registerName.empty() ||
                                       value(output.registerName, output.fieldName) == output.value);
  return tuning;
}

}  // namespace tessarine::board
