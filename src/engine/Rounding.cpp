#include "engine/Rounding.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "engine/Numbers.h"
#include "platform/Fault.h"

namespace tessarine {
namespace {

template <class Whole>
Whole nearest(double value, std::string_view name, const char* bits) {
  constexpr double least = std::numeric_limits<Whole>::min();
  constexpr double most = std::numeric_limits<Whole>::max();
  const double rounded = roundHalfEven(value);
  if (!(rounded >= least && rounded <= most)) {  // so that a NaN is refused too
    throw Fault(std::string(name) + " = " + messageNumber(value) + " does not fit " + bits + " bits (" +
                messageNumber(least) + " to " + messageNumber(most) + ")");
  }
  return static_cast<Whole>(rounded);
}

}  // namespace

double roundHalfEven(double value) {
  const double lower = std::floor(value);
  const double fraction = value - lower;
  if (fraction < 0.5) return lower;
  if (fraction > 0.5) return lower + 1;
  return std::fmod(lower, 2) == 0 ? lower : lower + 1;
}

double roundHalfUp(double value) { return std::floor(value + 0.5); }

double roundHalfAway(double value) { return std::round(value); }

double roundDown(double value) { return std::floor(value); }

Single toSingle(double value) {
  constexpr double largest = std::numeric_limits<Single>::max();
  if (value > largest) return std::numeric_limits<Single>::infinity();
  if (value < -largest) return -std::numeric_limits<Single>::infinity();
  return static_cast<Single>(value);
}

Integer toInteger(double value, std::string_view name) { return nearest<Integer>(value, name, "16"); }

std::int32_t toLong(double value, std::string_view name) { return nearest<std::int32_t>(value, name, "32"); }

}  // namespace tessarine
