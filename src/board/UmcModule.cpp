// The UMC module: 32-bit words of a register code, a power of ten and a 24-bit mantissa, in Hz. It works out
// its own dividers: the output is the start frequency plus channel times step.
#include <cmath>
#include <cstdint>
#include <string_view>

#include "board/Chip.h"
#include "board/ChipMaps.h"
#include "board/NumberText.h"

namespace tessarine::board {

namespace {

constexpr Field kFields[] = {number(0, 24, "mantissa"), number(24, 4, "exponent")};

constexpr std::uint32_t kCodeMask = 0xF0000000;
constexpr Register kRegisters[] = {
    {"channel", 32, kCodeMask, 0x00000000, true, kFields},
    {"start", 32, kCodeMask, 0x10000000, true, kFields},
    {"stop", 32, kCodeMask, 0x20000000, false, kFields},
    {"stepsize", 32, kCodeMask, 0x30000000, true, kFields},
    {"ref", 32, kCodeMask, 0x40000000, true, kFields},
};

double plainValue(const Chip& chip, std::string_view name) {
  return chip.value(name, "mantissa") * std::pow(10.0, chip.value(name, "exponent"));
}

double megahertz(const Chip& chip, std::string_view name) { return plainValue(chip, name) / 1e6; }

void tune(const Chip& chip, Tuning& tuning) {
  if (chip.loaded("ref") && tuning.referenceMHz > 0 && megahertz(chip, "ref") != tuning.referenceMHz)
    tuning.notes.push_back("the ref register says " + shortText(megahertz(chip, "ref")) +
                           " MHz, the crystal has " + shortText(tuning.referenceMHz) + " MHz");
  if (!chip.loaded("start") || !chip.loaded("stepsize") || !chip.loaded("channel")) return;
  const double channel = plainValue(chip, "channel");
  tuning.dividers.push_back({"channel", channel});
  if (!(tuning.referenceMHz > 0)) return;
  tuning.outputMHz = (plainValue(chip, "start") + channel * plainValue(chip, "stepsize")) / 1e6;
  if (chip.loaded("stop") && *tuning.outputMHz > megahertz(chip, "stop"))
    tuning.notes.push_back("the output is above the stop frequency, " + shortText(megahertz(chip, "stop")) +
                           " MHz");
}

}  // namespace

constinit const ChipMap kUmcMap{kRegisters, {}, {}, tune};

}  // namespace tessarine::board
