// What the families tell of their reach, and what they share for it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "board/Chip.h"
#include "board/Reach.h"

namespace tessarine::board {

// What a load of some fields comes to.
struct Attempt {
  std::string refused;
  Tuning tuning;
  double modulus = 1;        // FRAC counts in parts of it
  double calculatedMHz = 0;  // the detector frequency that the program reckons with, where it rounds it
};

struct ReachStrategy {
  Attempt (*attempt)(const ChipModel& chip, const ReachFields& fields);
  // Fills in reasons, neighbours, step and notes.
  void (*advise)(const ChipModel& chip, const ReachFields& fields, const Attempt& attempt, Reach& reach);
};

// Thrown by an attempt; the text is the program's own message.
struct RefusedLoad {
  std::string why;
};

void requireAboveZero(std::string_view name, double value, std::string_view unit = {});
// The value as a field of so many bits.
[[nodiscard]] std::uint32_t fitted(std::string_view name, double value, int bits);
// Whether the value has an Integer near it.
void requireInteger(std::string_view name, double value);
void requirePrescaler(const ReachFields& fields);
// What the program keeps of a detector frequency.
[[nodiscard]] float single(double value);

// Carries out an attempt up to where it is refused.
template <class Body>
[[nodiscard]] Attempt attempted(const ReachFields& fields, Body&& body) {
  Attempt attempt;
  attempt.tuning.referenceMHz = fields.referenceMHz;
  try {
    requirePrescaler(fields);
    body(attempt);
  } catch (const RefusedLoad& refused) {
    attempt.refused = refused.why;
  }
  return attempt;
}

inline constexpr double kHertz = 1e6;         // in a megahertz
inline constexpr double kKilohertz = 1e3;     // in a megahertz
inline constexpr double kMetHertz = 0.5;      // an output this near meets the asked frequency
inline constexpr double kExactHertz = 0.001;  // what lies this near differs by the noise of a double

[[nodiscard]] inline bool isMet(double outputMHz, double askedMHz) {
  return (outputMHz > askedMHz ? outputMHz - askedMHz : askedMHz - outputMHz) * kHertz <= kMetHertz;
}
[[nodiscard]] bool isMultiple(double value, double of, double tolerance);

// The multiples of `gridMHz` around a frequency; both the same where it is one.
struct Neighbours {
  double below = 0;
  double above = 0;
};
[[nodiscard]] Neighbours neighbours(double askedMHz, double gridMHz);

// The shortest text of a step that, typed in, is loaded as `wanted` says.
[[nodiscard]] std::optional<std::string> stepText(const ChipModel& chip, ReachFields fields, double stepKHz,
                                                  const std::function<bool(const Attempt&)>& wanted);

[[nodiscard]] std::string notMultiple(double askedMHz, double stepKHz);

}  // namespace tessarine::board
