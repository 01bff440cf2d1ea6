// What the SKY72300-362 can be made to give. The step has no part in it: the ratio goes out with six decimals
// of its fraction, in 18 bits.
#include <cmath>
#include <cstdint>
#include <string>

#include "board/ChipMaps.h"
#include "board/NumberText.h"
#include "board/ReachStrategy.h"
#include "board/SkyRatio.h"

namespace tessarine::board {

namespace {

constexpr double kWholeSteps = 1 << 18;
constexpr double kDecimals = 1e6;

void requireRange(const char* name, double value, double least, double most) {
  if (value >= least && value <= most) return;
  throw RefusedLoad{std::string(name) + " = " + messageText(value) + " cannot be used (" +
                    messageText(least) + " to " + messageText(most) + ")"};
}

Attempt attempt(const ChipModel& /*chip*/, const ReachFields& fields) {
  return attempted(fields, [&](Attempt& result) {
    const ReachFields::Sky& sky = fields.sky;
    requireRange("Main reference division", sky.division, 1, 32);
    requireAboveZero("Reference Frequency", fields.referenceMHz, " MHz");
    const double detector = fields.referenceMHz / sky.division;
    const double ratio = fields.vcoMHz / detector;
    const double whole = std::round(ratio);
    const double rest = std::round((ratio - whole) * kDecimals) / kDecimals;
    const double steps = std::round(rest * kWholeSteps);
    const std::uint32_t n = fitted("N", whole - 32, 9);
    const std::uint32_t fraction = fitted("F", steps < 0 ? steps + kWholeSteps : steps, 18);
    (void)fitted("Auxiliary charge pump", sky.auxiliaryPump, 5);
    if (sky.bandPump) {
      requireRange("Charge pump of the band file", *sky.bandPump, 0, 31);
    } else {
      (void)fitted("Main charge pump", sky.mainPump, 5);
    }
    result.tuning.divideReference(static_cast<std::uint32_t>(sky.division));
    result.tuning.multiplyDetector(skyRatio(
        {.lessWhole = n, .fraction = fraction, .integerOnly = sky.integerOnly, .tenBits = sky.tenBits}));
  });
}

double partsOf(const ReachFields::Sky& sky) {
  if (sky.integerOnly) return 1;
  return sky.tenBits ? 1 << 10 : kWholeSteps;
}

void explain(const ReachFields& fields, double detector, Reach& reach) {
  const std::string steps = frequencyText(detector / partsOf(fields.sky));
  const double off = std::abs(reach.offsetHz / kHertz);
  if (fields.sky.integerOnly) {
    reach.why.push_back("the chip is set to integer-N, in steps of " + steps);
  } else if (off > detector / 2) {
    reach.why.push_back("a fraction of one half is taken as minus one half");
  } else if (fields.sky.tenBits) {
    reach.why.push_back("the chip is set to a fraction of 10 bits, in steps of " + steps);
  } else {
    reach.why.push_back("the fraction has 18 bits, in steps of " + steps +
                        ", and is worked out to six decimals, " + frequencyText(detector / kDecimals));
  }
}

void note(const ReachFields& fields, double detector, Reach& reach) {
  const double n = *reach.tuning.divider("N");
  const double part = std::abs(n - std::round(n));
  if (!fields.sky.integerOnly) {
    reach.notes.push_back(part == 0 ? "fraction 0: no boundary spur"
                                    : "spur at " + frequencyText(part * detector) +
                                          ", the way to the nearest integer boundary");
  }
  if (reach.met && part == 0) return;
  for (int division = 1; division <= 32; ++division) {
    const double other = fields.referenceMHz / division;
    const double whole = std::round(fields.vcoMHz / other);
    if (whole < 32 || whole > 543 || std::abs(whole * other - fields.vcoMHz) * kHertz > kExactHertz) continue;
    reach.notes.push_back("integer-N meets it as well: main reference division " + std::to_string(division) +
                          ", N = " + shortText(whole) + ", detector " + frequencyText(other));
    return;
  }
}

void advise(const ChipModel& /*chip*/, const ReachFields& fields, const Attempt& attempt, Reach& reach) {
  const double detector = *attempt.tuning.detectorMHz;
  if (!reach.met) explain(fields, detector, reach);
  const double grid = detector / partsOf(fields.sky);
  const auto [below, above] = neighbours(fields.vcoMHz, grid);
  reach.belowMHz = below * grid;
  reach.aboveMHz = above * grid;
  note(fields, detector, reach);
}

}  // namespace

constinit const ReachStrategy kSky72300Reach{attempt, advise};

}  // namespace tessarine::board
