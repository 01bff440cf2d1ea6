// ADF4193: three control bits at the low end. One of its addresses holds three timers, told apart by two more
// bits, and the chip is up only after its power-up sequence, the one place that loads R7.
#include <string_view>

#include "board/ChipMaps.h"
#include "board/FractionalN.h"
#include "board/Meanings.h"

namespace tessarine::board {

namespace {

using Text = std::string_view;

constexpr Text kPumpAdjust[] = {"nominal", "adjusted"};
constexpr Text kPumpOutput[] = {"grounded", "normal"};
constexpr Text kAmplifier[] = {"in use", "reserved", "reserved", "powered down"};
constexpr Text kModulator[] = {"initial state, dither off, 3 ns lock detect",
                               "reserved",
                               "reserved",
                               "dither on",
                               "reserved",
                               "reserved",
                               "reserved",
                               "reserved",
                               "reserved",
                               "10 ns lock detect",
                               "reserved",
                               "reserved",
                               "reserved",
                               "reserved",
                               "reserved",
                               "reserved"};
constexpr Text kMux[] = {"three-state",        "digital lock detect",
                         "N divider output",   "logic high",
                         "R counter output",   "serial data output",
                         "logic low",          "R divider/2 output",
                         "N divider/2 output", "ICP time-out",
                         "SW1/SW2 time-out",   "SW3 time-out",
                         "reserved",           "reserved",
                         "reserved",           "reserved"};

constexpr Field kR0Fields[] = {
    number(3, 12, "FRAC"),
    number(15, 8, "INT"),
    reserved(23, 1),
};
constexpr Field kR1Fields[] = {
    number(3, 12, "MOD"),
    number(15, 4, "R"),
    choice(19, 1, "reference doubler", kOffOn),
    choice(20, 1, "prescaler", kFractionalPrescaler),
    reserved(21, 1),
    choice(22, 1, "reference halver", kOffOn),
    choice(23, 1, "CP adjust", kPumpAdjust),
};
constexpr Field kR2Fields[] = {
    number(3, 12, "phase"),
    reserved(15, 1),
};
constexpr Field kR3Fields[] = {
    choice(3, 1, "detector polarity", kPolarity),
    reserved(4, 1),
    choice(5, 1, "CP output", kPumpOutput),
    reserved(6, 10),
};
constexpr Field kTimerFields[] = {
    number(5, 9, "time-out"),
    reserved(14, 10),
};
constexpr Field kR5Fields[] = {
    choice(3, 1, "counter reset", kOffOn),
    choice(4, 1, "CP three-state", kOffOn),
    choice(5, 1, "CP power-down", kOffOn),
    choice(6, 2, "differential amplifier", kAmplifier),
};
constexpr Field kR6Fields[] = {
    choice(3, 4, "muxout", kMux),
    reserved(7, 5),
    choice(12, 4, "modulator and lock detect", kModulator),
};
constexpr Field kR7Fields[] = {
    reserved(3, 13),
};

constexpr Register kRegisters[] = {
    {"R0", 24, 0b111, 0b000, true, kR0Fields},
    {"R1", 24, 0b111, 0b001, true, kR1Fields},
    {"R2", 16, 0b111, 0b010, true, kR2Fields},
    {"R3", 16, 0b111, 0b011, true, kR3Fields},
    {"R4 SW1/SW2", 24, 0b11111, 0b00100, false, kTimerFields},
    {"R4 SW3", 24, 0b11111, 0b01100, false, kTimerFields},
    {"R4 ICP", 24, 0b11111, 0b10100, false, kTimerFields},
    {"R4 no timer", 24, 0b11111, 0b11100, false, kTimerFields},
    {"R5", 8, 0b111, 0b101, true, kR5Fields},
    {"R6", 16, 0b111, 0b110, true, kR6Fields},
    {"R7", 16, 0b111, 0b111, true, kR7Fields},
};

constexpr Obstacle kObstacles[] = {
    {"R5", "CP power-down", 1, "pump powered down"},
    {"R5", "differential amplifier", 3, "differential amplifier powered down"},
    {"R5", "counter reset", 1, "counter reset is on"},
    {"R5", "CP three-state", 1, "pump in three-state"},
    {"R3", "CP output", 0, "pump output is grounded"},
};

constexpr PowerUpStep kPowerUp[] = {
    {"R5", "counter reset", 1, "R5 with the counters in reset"},
    {"R7", "", 0, "R7 behind it"},
    {"R5", "counter reset", 0, "R5 that releases the counters"},
    {"R0", "", 0, "R0 behind the release"},
};

void tune(const Chip& chip, Tuning& tuning) {
  if (!chip.loaded("R1")) return;
  const double doubler = 1 + chip.value("R1", "reference doubler");
  const double halver = 1 + chip.value("R1", "reference halver");
  tuning.divideReference(chip.value("R1", "R"), doubler / halver);
  if (!chip.loaded("R0")) return;
  divideFractional({.integer = chip.value("R0", "INT"),
                    .fraction = chip.value("R0", "FRAC"),
                    .modulus = chip.value("R1", "MOD"),
                    .prescaler = chip.meaningNumber("R1", "prescaler")},
                   tuning);
}

}  // namespace

constinit const ChipMap kAdf4193Map{kRegisters, kObstacles, {"R6", "muxout", 1}, tune, &kAdf4193Reach,
                                    true,       kPowerUp};

}  // namespace tessarine::board
