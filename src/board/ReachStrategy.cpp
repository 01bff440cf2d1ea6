#include "board/ReachStrategy.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "board/NumberText.h"

namespace tessarine::board {

void requireAboveZero(std::string_view name, double value, std::string_view unit) {
  if (value > 0 && std::isfinite(value)) return;
  throw RefusedLoad{std::string(name) + " = " + messageText(value) + std::string(unit) +
                    (value > 0 ? " is too large" : " must be above 0")};
}

std::uint32_t fitted(std::string_view name, double value, int bits) {
  const double most = std::ldexp(1.0, bits) - 1;
  if (value >= 0 && value <= most && value == std::floor(value)) return static_cast<std::uint32_t>(value);
  throw RefusedLoad{std::string(name) + " = " + messageText(value) + " does not fit " + std::to_string(bits) +
                    " bits (0 to " + messageText(most) + ")"};
}

void requireInteger(std::string_view name, double value) {
  if (value >= -32768.5 && value < 32767.5) return;
  throw RefusedLoad{std::string(name) + " = " + messageText(value) +
                    " does not fit 16 bits (-32768 to 32767)"};
}

void requirePrescaler(const ReachFields& fields) {
  if (fields.prescaler == 0) throw RefusedLoad{"Pls. set Prescalar"};
}

float single(double value) {
  constexpr double kMost = std::numeric_limits<float>::max();
  constexpr float kInfinite = std::numeric_limits<float>::infinity();
  if (std::abs(value) > kMost) return value > 0 ? kInfinite : -kInfinite;
  return static_cast<float>(value);
}

bool isMultiple(double value, double of, double tolerance) {
  return std::abs(value - std::round(value / of) * of) <= std::max(tolerance, std::abs(value) * 1e-14);
}

Neighbours neighbours(double askedMHz, double gridMHz) {
  const double count = askedMHz / gridMHz;
  if (isMultiple(askedMHz, gridMHz, kExactHertz / kHertz)) return {std::round(count), std::round(count)};
  return {std::floor(count), std::ceil(count)};
}

namespace {

double roundedTo(double value, int digits) {
  char text[64];
  const auto end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, digits - 1).ptr;
  double rounded = 0;
  std::from_chars(text, end, rounded);
  return rounded;
}

}  // namespace

std::optional<std::string> stepText(const ChipModel& chip, ReachFields fields, double stepKHz,
                                    const std::function<bool(const Attempt&)>& wanted) {
  // A quotient by the step is rounded down to R or MOD, in some chips to A or FRAC too: one that is a hair
  // too small does no harm.
  struct Form {
    int digits;
    double shift;  // of the last digit
  };
  constexpr Form kForms[] = {{6, 0}, {8, -0.5}, {12, 0}, {12, -0.5}, {12, -1.5}, {14, -1.5}, {15, -0.5}};
  for (const auto& [digits, shift] : kForms) {
    const double unit = std::pow(10.0, std::floor(std::log10(stepKHz)) + 1 - digits);
    const double shifted = stepKHz + shift * unit;
    fields.stepKHz = roundedTo(shifted, digits);
    if (wanted(chip.map->reach->attempt(chip, fields))) return messageText(fields.stepKHz);
  }
  return std::nullopt;
}

std::string notMultiple(double askedMHz, double stepKHz) {
  return shortText(askedMHz) + " MHz is no multiple of the step of " + shortText(stepKHz) + " kHz";
}

}  // namespace tessarine::board
