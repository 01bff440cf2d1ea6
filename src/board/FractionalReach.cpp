// What the chips that divide by INT + FRAC / MOD can be made to give: multiples of detector / MOD.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "board/ChipMaps.h"
#include "board/FractionalN.h"
#include "board/NumberText.h"
#include "board/Ratings.h"
#include "board/ReachStrategy.h"

namespace tessarine::board {

namespace {

constexpr double kMostPart = 4095;  // of FRAC and MOD
constexpr int kPartBits = 12;
constexpr int kReferenceBits = 4;

// How the program works out a family's dividers.
struct Rules {
  int wholeBits;        // of INT
  double modulusGuard;  // lifts a quotient that misses a whole number by noise
  double (*fraction)(double parts);
};

double roundsUp(double parts) { return std::floor(parts + 0.5); }
double cutsDown(double parts) { return std::floor(parts + 1e-5); }

constexpr Rules k425x{8, 1e-5, roundsUp};
constexpr Rules k4153{9, 1e-4, roundsUp};
constexpr Rules k4193{8, 1e-5, cutsDown};

// --------------------------------------------------------------------------------------------- What it gives

struct Parts {
  float detectorMHz = 0;  // as the program keeps it
  double whole = 0;
  double fraction = 0;
  double modulus = 0;
};

// The detector over the reference.
double factorOf(const ReachFields& fields, double r) {
  return (1 + (fields.doubler ? 1.0 : 0.0)) / (r * (1 + (fields.halver ? 1.0 : 0.0)));
}

void requireReference(const ReachFields& fields) {
  requireAboveZero("Reference Frequency", fields.referenceMHz, " MHz");
  requireAboveZero("Step Resolution", fields.stepKHz, " kHz");
}

float detectorOf(const ReachFields& fields, double r) {
  const float detector = single(fields.referenceMHz * factorOf(fields, r));
  if (!std::isfinite(detector))
    throw RefusedLoad{"Reference Frequency = " + messageText(fields.referenceMHz) + " MHz is too large"};
  return detector;
}

double modulusOf(const Rules& rules, const ReachFields& fields, float detectorMHz) {
  return std::floor(detectorMHz * 1000.0 / fields.stepKHz + rules.modulusGuard);
}

Parts partsOf(const Rules& rules, const ReachFields& fields, float detectorMHz, double modulus) {
  const double whole = std::floor(fields.vcoMHz / detectorMHz);
  return {detectorMHz, whole, rules.fraction((fields.vcoMHz / detectorMHz - whole) * modulus), modulus};
}

void tuneTo(const ReachFields& fields, const Parts& parts, std::uint32_t r, Attempt& result) {
  result.modulus = parts.modulus;
  result.calculatedMHz = parts.detectorMHz;
  result.tuning.divideReference(r, factorOf(fields, 1));
  const int prescaler = fields.file ? fields.file->prescaler : fields.prescaler;
  divideFractional({.integer = static_cast<std::uint32_t>(parts.whole),
                    .fraction = static_cast<std::uint32_t>(parts.fraction),
                    .modulus = static_cast<std::uint32_t>(parts.modulus),
                    .prescaler = prescaler == 8 || prescaler == 9 ? 8U : 4U},
                   result.tuning);
}

void requireFit(const Parts& parts, const char* wholeName, int wholeBits) {
  (void)fitted(wholeName, parts.whole, wholeBits);
  (void)fitted("FRAC", parts.fraction, kPartBits);
  (void)fitted("MOD", parts.modulus, kPartBits);
}

double nearestEven(double value) {
  const double lower = std::floor(value);
  const double rest = value - lower;
  const bool down = rest < 0.5 || (rest == 0.5 && std::fmod(lower, 2) == 0);
  return down ? lower : lower + 1;
}

Attempt attempt425x(const ChipModel& /*chip*/, const ReachFields& fields) {
  return attempted(fields, [&](Attempt& result) {
    const double counter = nearestEven(fields.r);
    requireInteger("R counter", fields.r);
    requireAboveZero("R counter", counter);
    requireReference(fields);
    const float detector = detectorOf(fields, fields.r);
    const Parts parts = partsOf(k425x, fields, detector, modulusOf(k425x, fields, detector));
    const std::uint32_t r = fitted("R counter", counter, kReferenceBits);
    requireFit(parts, "INT", k425x.wholeBits);
    tuneTo(fields, parts, r, result);
  });
}

// The reduction works on numbers of 16 bits.
void reduce(Parts& parts) {
  requireInteger("FRAC", parts.fraction);
  requireInteger("MOD", parts.modulus);
  if (parts.fraction == 0) return;
  double divisor = parts.fraction;
  for (double rest = std::fmod(parts.modulus, divisor); rest != 0;) {
    const double before = divisor;
    divisor = rest;
    rest = std::fmod(before, divisor);
  }
  parts.fraction /= divisor;
  parts.modulus /= divisor;
}

Attempt attempt4153(const ChipModel& /*chip*/, const ReachFields& fields) {
  return attempted(fields, [&](Attempt& result) {
    requireAboveZero("R counter", fields.r);
    const float detector = detectorOf(fields, fields.r);
    requireReference(fields);
    const double modulus = modulusOf(k4153, fields, detector);
    Parts parts = partsOf(k4153, fields, detector, modulus);
    if (fields.lowestTerms) reduce(parts);
    (void)fitted("INT", parts.whole, k4153.wholeBits);
    (void)fitted("FRAC", parts.fraction, kPartBits);
    const std::uint32_t r = fitted("R counter", fields.r, kReferenceBits);
    (void)fitted("MOD", parts.modulus, kPartBits);
    (void)fitted("Resync", fields.resync, 4);
    tuneTo(fields, parts, r, result);
    result.modulus = modulus;
  });
}

// A number too wide for its field keeps its leftmost bits.
std::uint32_t leftmost(double value, int bits) {
  auto kept = static_cast<std::uint32_t>(static_cast<std::int32_t>(value)) & 0xFFFFU;
  while (kept >> static_cast<unsigned>(bits) != 0) kept >>= 1U;
  return kept;
}

Attempt attempt4193(const ChipModel& /*chip*/, const ReachFields& fields) {
  return attempted(fields, [&](Attempt& result) {
    const std::uint32_t r = leftmost(fields.r, kReferenceBits);
    float detector = 0;
    double modulus = 0;
    if (fields.file) {
      detector = fields.file->detectorMHz;
      requireAboveZero("PFD of the setup file", detector, " MHz");
      modulus = fields.file->modulus;
    } else {
      requireAboveZero("R counter", r);
      requireReference(fields);
      detector = detectorOf(fields, r);
      modulus = modulusOf(k4193, fields, detector);
    }
    const Parts parts = partsOf(k4193, fields, detector, modulus);
    requireFit(parts, "N", k4193.wholeBits);
    tuneTo(fields, parts, r, result);
  });
}

// ----------------------------------------------------------------------------------------------- Why not

void explain(const ReachFields& fields, const Attempt& attempt, double detector, Reach& reach) {
  const std::string step = "the step of " + shortText(fields.stepKHz) + " kHz";
  const bool sameDetector = std::abs(attempt.calculatedMHz - detector) <= 1e-6 * detector;
  if (!sameDetector) {
    reach.why.push_back("the dividers are worked out for a detector frequency of " +
                        frequencyText(attempt.calculatedMHz) + ", the chip's is " + frequencyText(detector));
  }
  if (attempt.modulus < 1) {
    reach.why.push_back((fields.file ? "the setup file's MOD is 0"
                                     : step + " is above the detector frequency of " +
                                           frequencyText(detector) + ": MOD = 0"));
    return;
  }
  const double grid = detector / attempt.modulus;
  if (!fields.file && !isMultiple(detector, fields.stepKHz / kKilohertz, 1e-12)) {
    reach.why.push_back(step + " does not divide the detector frequency of " + frequencyText(detector) +
                        ": MOD = " + shortText(attempt.modulus) + " makes steps of " + frequencyText(grid));
  }
  if (!isMultiple(fields.vcoMHz, grid, kExactHertz / kHertz)) {
    reach.why.push_back(notMultiple(fields.vcoMHz, grid * kKilohertz));
  } else if (sameDetector) {
    reach.why.push_back("the program keeps the detector frequency as " + messageText(attempt.calculatedMHz) +
                        " MHz, and misses the step by it");
  }
}

// ---------------------------------------------------------------------------------------- What would meet it

std::string ratioText(const Tuning& tuning) {
  return shortText(*tuning.divider("INT")) + '+' + shortText(*tuning.divider("FRAC")) + '/' +
         shortText(*tuning.divider("MOD"));
}

bool fits(const ChipModel& chip, const Attempt& tried) {
  return tried.refused.empty() && tried.tuning.faults.empty() && brokenRatings(chip, tried.tuning).empty();
}

StepAdvice adviceOf(std::string step, const Tuning& tuning) {
  return {.stepKHz = std::move(step),
          .r = shortText(*tuning.divider("R")),
          .n = ratioText(tuning),
          .detectorMHz = *tuning.detectorMHz,
          .outputMHz = *tuning.outputMHz};
}

// The step for a modulus, if it can be typed and the chip allows what comes of it.
std::optional<StepAdvice> adviceFor(const ChipModel& chip, const ReachFields& fields, double detector,
                                    double modulus) {
  std::optional<Tuning> tuning;
  auto text = stepText(chip, fields, detector * kKilohertz / modulus, [&](const Attempt& tried) {
    if (!fits(chip, tried) || tried.modulus != modulus) return false;
    tuning = tried.tuning;
    return true;
  });
  if (!text) return std::nullopt;
  return adviceOf(std::move(*text), *tuning);
}

void suggest(const Rules& rules, const ChipModel& chip, const ReachFields& fields, const Attempt& attempt,
             double detector, Reach& reach) {
  if (reach.met && fits(chip, attempt)) {
    reach.step = adviceOf(messageText(fields.stepKHz), attempt.tuning);
    return;
  }
  const auto calculated = static_cast<float>(attempt.calculatedMHz);
  // The coarsest step of the exact ones, else of those that are near enough, else of the nearest.
  double nearest = INFINITY;
  double choice = 0;
  // Nobody advises a FRAC equal to MOD to a chip that is not known to take it.
  const Rating& rated = chip.ratings.leastAboveFraction;
  const double leastAbove = rated.known() ? rated.value : 1;
  for (double modulus = 2; modulus <= kMostPart; ++modulus) {
    const Parts parts = partsOf(rules, fields, calculated, modulus);
    if (modulus - parts.fraction < leastAbove) continue;
    const double offset =
        std::abs(detector * (parts.whole + parts.fraction / modulus) - fields.vcoMHz) * kHertz;
    const double rank = offset <= kExactHertz ? 0 : offset <= kMetHertz * 0.9 ? kExactHertz : offset;
    if (rank >= nearest) continue;
    nearest = rank;
    choice = modulus;
    if (rank == 0) break;
  }
  if (choice == 0) return;
  reach.step = adviceFor(chip, fields, calculated, choice);
  reach.onlyClosest = reach.step && !isMet(reach.step->outputMHz, fields.vcoMHz);
}

// ------------------------------------------------------------------------------------------------ How pure

void noteSpurs(const ReachFields& fields, const Attempt& attempt, Reach& reach) {
  const Tuning& tuning = attempt.tuning;
  if (!tuning.outputMHz || *tuning.divider("MOD") == 0) return;
  const double modulus = *tuning.divider("MOD");
  const double part = std::fmod(*tuning.divider("FRAC"), modulus);
  if (part == 0) {
    reach.notes.emplace_back("FRAC = 0: no boundary spur");
    return;
  }
  const double away = std::min(part, modulus - part) * *tuning.detectorMHz / modulus;
  const bool onGrid = isMultiple(away, fields.stepKHz / kKilohertz, 1e-12);
  reach.notes.push_back("spur at " + frequencyText(away) + ", the way to the nearest integer boundary" +
                        (fields.file ? std::string()
                                     : std::string(onGrid ? ": on" : ": off") + " the step grid of " +
                                           shortText(fields.stepKHz) + " kHz"));
}

// With another R, which is the operator's to choose.
void noteIntegerN(const ChipModel& chip, ReachFields fields, const Attempt& attempt, Reach& reach) {
  if (fields.file || (reach.met && attempt.tuning.divider("FRAC") == 0.0)) return;
  for (fields.r = 1; fields.r <= 15; ++fields.r) {
    const double detector = fields.referenceMHz * factorOf(fields, fields.r);
    if (!isMultiple(fields.vcoMHz, detector, kExactHertz / kHertz)) continue;
    fields.stepKHz = detector * kKilohertz / 2;
    const Attempt tried = chip.map->reach->attempt(chip, fields);
    if (!fits(chip, tried) || tried.tuning.divider("FRAC") != 0.0) continue;
    reach.notes.push_back("integer-N meets it as well: R = " + shortText(fields.r) + ", N = " +
                          shortText(*tried.tuning.divider("INT")) + ", detector " + frequencyText(detector));
    return;
  }
}

template <const Rules& rules>
void advise(const ChipModel& chip, const ReachFields& fields, const Attempt& attempt, Reach& reach) {
  const auto detector = attempt.tuning.detectorMHz;
  if (!detector) return;
  if (!reach.met) explain(fields, attempt, *detector, reach);
  const double modulus = std::max(1.0, attempt.modulus);
  const double grid = *detector / modulus;
  const auto [below, above] = neighbours(fields.vcoMHz, grid);
  const double most = std::ldexp(modulus, rules.wholeBits) - 1;
  if (below >= modulus) reach.belowMHz = std::min(below, most) * grid;
  if (above <= most) reach.aboveMHz = std::max(above, modulus) * grid;
  if (!fields.file) suggest(rules, chip, fields, attempt, *detector, reach);
  noteSpurs(fields, attempt, reach);
  noteIntegerN(chip, fields, attempt, reach);
}

}  // namespace

constinit const ReachStrategy kAdf425xReach{attempt425x, advise<k425x>};
constinit const ReachStrategy kAdf4153Reach{attempt4153, advise<k4153>};
constinit const ReachStrategy kAdf4193Reach{attempt4193, advise<k4193>};

}  // namespace tessarine::board
