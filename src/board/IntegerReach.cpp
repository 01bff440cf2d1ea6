// What the dual-modulus integer-N chips can be made to give: multiples of reference / R.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "board/ChipMaps.h"
#include "board/DualModulus.h"
#include "board/NumberText.h"
#include "board/Ratings.h"
#include "board/ReachStrategy.h"

namespace tessarine::board {

namespace {

// What a family's words have room for, and how the program fills them.
struct Counters {
  int swallowBits;  // A
  int mainBits;     // B
  bool roundsSwallow;
  std::uint32_t (*prescaler)(int asked);  // what the chip makes of the field
};
constexpr int kReferenceBits = 14;
constexpr double kMostR = (1 << kReferenceBits) - 1;

// The even modulus of a pair that is named by either of its numbers.
std::uint32_t pairOf(int asked) { return static_cast<std::uint32_t>(asked) & ~1U; }

std::uint32_t adfPrescaler(int asked) {
  const std::uint32_t pair = asked > 0 ? pairOf(asked) : 0;
  return pair == 8 || pair == 16 || pair == 64 ? pair : 32;
}
std::uint32_t fixedPrescaler(int /*asked*/) { return 32; }
template <int lower>
std::uint32_t lmx2315Prescaler(int asked) {
  return asked == lower || asked == lower + 1 ? lower : 2 * lower;
}

constexpr Counters kAdf{6, 13, true, adfPrescaler};
constexpr Counters kLmx{5, 13, true, fixedPrescaler};
constexpr Counters kLmx2315{7, 11, false, lmx2315Prescaler<64>};
constexpr Counters kLmx2325{7, 11, false, lmx2315Prescaler<32>};

// --------------------------------------------------------------------------------------------- What it gives

double quotient(const ReachFields& fields, double megahertz) {
  return megahertz * kKilohertz / fields.stepKHz;
}

void requireQuotients(const ReachFields& fields) {
  if (fields.prescaler < 0)
    throw RefusedLoad{"PreScalar = " + std::to_string(fields.prescaler) + " must be above 0"};
  if (!std::isfinite(fields.vcoMHz)) throw RefusedLoad{"VCO Output Frequency is too large"};
  if (!std::isfinite(fields.referenceMHz)) throw RefusedLoad{"Reference Frequency is too large"};
  if (!std::isfinite(quotient(fields, fields.vcoMHz)) ||
      !std::isfinite(quotient(fields, fields.referenceMHz)))
    throw RefusedLoad{"Step Resolution = " + messageText(fields.stepKHz) + " kHz cannot divide " +
                      messageText(fields.vcoMHz) + " MHz and " + messageText(fields.referenceMHz) + " MHz"};
}

template <const Counters& counters>
Attempt attempt(const ChipModel& /*chip*/, const ReachFields& fields) {
  return attempted(fields, [&](Attempt& result) {
    requireQuotients(fields);
    const double total = quotient(fields, fields.vcoMHz);
    const double main = std::floor(total / fields.prescaler + 1e-9);
    const double rest = total - fields.prescaler * main;
    const double swallow = counters.roundsSwallow ? std::floor(rest + 0.5) : std::max(0.0, std::floor(rest));
    const std::uint32_t a = fitted("A", swallow, counters.swallowBits);
    const std::uint32_t b = fitted("B", main, counters.mainBits);
    const std::uint32_t r = fitted("R", std::floor(quotient(fields, fields.referenceMHz)), kReferenceBits);
    result.tuning.divideReference(r);
    divideDualModulus({.prescaler = counters.prescaler(fields.prescaler), .main = b, .swallow = a},
                      result.tuning);
  });
}

// --------------------------------------------------------------------------- Why not, and what would meet it

void explain(const ReachFields& fields, std::uint32_t prescaler, Reach& reach) {
  const double r = quotient(fields, fields.referenceMHz);
  const std::string step = "the step of " + shortText(fields.stepKHz) + " kHz";
  if (r < 1) {
    reach.why.push_back(step + " is above the reference of " + shortText(fields.referenceMHz) +
                        " MHz: R = 0");
    return;
  }
  if (prescaler != static_cast<std::uint32_t>(fields.prescaler))
    reach.why.push_back("the chip's prescaler is " + std::to_string(prescaler) + "/" +
                        std::to_string(prescaler + 1) + ", the dividers are worked out for " +
                        std::to_string(fields.prescaler));
  const bool whole = isMultiple(fields.referenceMHz, fields.stepKHz / kKilohertz, 1e-12);
  if (!whole || std::floor(r) != std::round(r))
    reach.why.push_back(step + (whole ? " divides" : " does not divide") + " the reference of " +
                        shortText(fields.referenceMHz) + " MHz" +
                        (whole ? ", but the program cuts the quotient down" : "") +
                        ": R = " + shortText(std::floor(r)) + " makes the detector " +
                        frequencyText(fields.referenceMHz / std::floor(r)));
  if (!isMultiple(fields.vcoMHz, fields.stepKHz / kKilohertz, kExactHertz / kHertz))
    reach.why.push_back(notMultiple(fields.vcoMHz, fields.stepKHz));
  if (const auto n = reach.tuning.divider("N"); n && reach.why.empty())
    reach.why.push_back("the program loses a hair of A and cuts it down: N = " + shortText(*n));
}

// Counts N = P x B + A with B of 3 at least and A no larger than B; between the blocks of small B there are
// gaps.
struct Blocks {
  double prescaler;
  double mostMain;
  double mostSwallow;

  [[nodiscard]] double lastOf(double main) const {
    return prescaler * main + std::min({main, prescaler - 1, mostSwallow});
  }
  [[nodiscard]] bool has(double n) const {
    const double main = std::floor(n / prescaler);
    return main >= kLeastMain && main <= mostMain && n <= lastOf(main);
  }
  [[nodiscard]] std::optional<double> upTo(double n) const {
    const double main = std::min(std::floor(n / prescaler), mostMain);
    return main < kLeastMain ? std::nullopt : std::optional<double>(std::min(n, lastOf(main)));
  }
  [[nodiscard]] std::optional<double> from(double n) const {
    n = std::max(n, prescaler * kLeastMain);
    if (!has(n)) n = prescaler * (std::floor(n / prescaler) + 1);
    return has(n) ? std::optional<double>(n) : std::nullopt;
  }
};

Blocks blocksOf(const Counters& counters, double prescaler) {
  return {prescaler, std::ldexp(1.0, counters.mainBits) - 1, std::ldexp(1.0, counters.swallowBits) - 1};
}

// R and N for an asked frequency: those of the highest detector frequency that meets it, else the nearest.
struct Choice {
  double r = 0;
  double n = 0;
  double offsetMHz = INFINITY;
};

std::optional<StepAdvice> adviceFor(const ChipModel& chip, const ReachFields& fields, const Choice& choice) {
  const double detector = fields.referenceMHz / choice.r;
  const auto text = stepText(chip, fields, detector * kKilohertz, [&](const Attempt& tried) {
    return tried.refused.empty() && tried.tuning.faults.empty() && tried.tuning.divider("R") == choice.r &&
           tried.tuning.divider("N") == choice.n;
  });
  if (!text) return std::nullopt;
  return StepAdvice{.stepKHz = *text,
                    .r = shortText(choice.r),
                    .n = shortText(choice.n),
                    .detectorMHz = detector,
                    .outputMHz = detector * choice.n};
}

constexpr double kHair = 1 + 1e-12;  // what a typed step may be too small
constexpr int kMostUntypable = 20;   // steps that meet but cannot be typed, before the search gives up

// `blocks` are those of the prescaler that the program splits N by; `chipsPrescaler` makes of B what it
// likes.
void suggest(const ChipModel& chip, const ReachFields& fields, const Blocks& blocks, double chipsPrescaler,
             bool roundsSwallow, Reach& reach) {
  const double asked = fields.vcoMHz;
  const double reference = fields.referenceMHz;
  const double foreign = chipsPrescaler - blocks.prescaler;
  int untypable = 0;
  const Rating& most = chip.ratings.highestOutputMHz;
  Choice closest;
  for (double r = 1; r <= kMostR; ++r) {
    const double ratio = asked / reference * r;
    const double split = std::floor(roundsSwallow ? ratio + 0.5 : ratio * kHair);
    if (split > blocks.lastOf(blocks.mostMain)) break;
    const double n = foreign == 0 ? split : split + foreign * std::floor(split / blocks.prescaler);
    const double output = reference / r * n;
    const double offset = std::abs(output - asked);
    const bool meets = isMet(output, asked);
    // The noise of the doubles makes none nearer.
    if (!meets && offset + kExactHertz / kHertz >= closest.offsetMHz) continue;
    if (!blocks.has(split) || (most.known() && output > most.value)) continue;
    const Choice choice{r, n, offset};
    if (!meets) {
      closest = choice;
      continue;
    }
    if (auto advice = adviceFor(chip, fields, choice)) {
      reach.step = std::move(advice);
      return;
    }
    if (++untypable == kMostUntypable) break;
  }
  if (closest.r == 0) return;
  reach.step = adviceFor(chip, fields, closest);
  reach.onlyClosest = true;
}

template <const Counters& counters>
void advise(const ChipModel& chip, const ReachFields& fields, const Attempt& attempt, Reach& reach) {
  if (!(fields.referenceMHz > 0)) return;
  const std::uint32_t prescaler = counters.prescaler(fields.prescaler);
  if (!reach.met) explain(fields, prescaler, reach);
  if (const auto detector = attempt.tuning.detectorMHz) {
    const Blocks blocks = blocksOf(counters, prescaler);
    const auto [below, above] = neighbours(fields.vcoMHz, *detector);
    if (const auto n = blocks.upTo(below)) reach.belowMHz = *n * *detector;
    if (const auto n = blocks.from(above)) reach.aboveMHz = *n * *detector;
  }
  suggest(chip, fields, blocksOf(counters, fields.prescaler), prescaler, counters.roundsSwallow, reach);
  for (const std::string& fault : attempt.tuning.faults) {
    if (fault.starts_with("A = ") || fault.starts_with("B = ")) reach.limits.push_back(fault);
  }
}

}  // namespace

constinit const ReachStrategy kAdf411xReach{attempt<kAdf>, advise<kAdf>};
constinit const ReachStrategy kLmx23x6Reach{attempt<kLmx>, advise<kLmx>};
constinit const ReachStrategy kLmx2315Reach{attempt<kLmx2315>, advise<kLmx2315>};
constinit const ReachStrategy kLmx2325Reach{attempt<kLmx2325>, advise<kLmx2325>};

}  // namespace tessarine::board
