// ADF4251, ADF4252, ADF4153, ADF4156: words of different lengths in one 24-bit shift register, told apart by
// the control bits at the low end.
#include <string_view>

#include "board/ChipMaps.h"
#include "board/FractionalN.h"
#include "board/Meanings.h"

namespace tessarine::board {

namespace {

using Text = std::string_view;

// ---- ADF4251, ADF4252: the RF synthesizer, three control bits

// Nominal: no sheet at hand states the currents.
constexpr Text kRfPumpCurrent[] = {"0.625 mA", "1.875 mA", "3.125 mA", "4.375 mA"};
constexpr Text kEnabled[] = {"enabled", "disabled"};
constexpr Text kMasterMux[] = {"logic low",
                               "IF analog lock detect",
                               "IF R divider output",
                               "IF N divider output",
                               "RF analog lock detect",
                               "RF/IF analog lock detect",
                               "IF digital lock detect",
                               "logic high",
                               "RF R divider output",
                               "RF N divider output",
                               "three-state",
                               "logic low",
                               "RF digital lock detect",
                               "RF/IF digital lock detect",
                               "logic high",
                               "logic low"};

constexpr Field k425xNFields[] = {
    number(3, 12, "FRAC"),
    number(15, 8, "INT"),
    reserved(23, 1),
};
constexpr Field k425xRFields[] = {
    number(3, 12, "MOD"),
    number(15, 4, "R"),
    choice(19, 1, "reference doubler", kOffOn),
    choice(20, 1, "prescaler", kFractionalPrescaler),
};
// The three noise bits work together: 000 lowest spur, 001 low noise and spur, 111 lowest noise.
constexpr Field k425xControlFields[] = {
    choice(3, 1, "counter reset", kOffOn),
    choice(4, 1, "CP three-state", kOffOn),
    choice(5, 1, "power-down", kOffOn),
    number(6, 1, "noise and spur 1"),
    choice(7, 1, "detector polarity", kPolarity),
    reserved(8, 1),
    choice(9, 2, "pump current", kRfPumpCurrent),
    number(11, 1, "noise and spur 2"),
    reserved(12, 3),
    number(15, 1, "noise and spur 3"),
};
constexpr Field k425xMasterFields[] = {
    choice(3, 1, "counter reset", kOffOn), choice(4, 1, "CP three-state", kOffOn),
    choice(5, 1, "power-down", kOffOn),    choice(6, 1, "crystal oscillator", kEnabled),
    choice(7, 4, "muxout", kMasterMux),
};
constexpr Register k425xRegisters[] = {
    {"N", 24, 0b111, 0b000, true, k425xNFields},
    {"R", 21, 0b111, 0b001, true, k425xRFields},
    {"RF control", 16, 0b111, 0b010, true, k425xControlFields},
    {"master", 11, 0b111, 0b011, true, k425xMasterFields},
};
constexpr Obstacle k425xObstacles[] = {
    {"RF control", "power-down", 1, "RF synthesizer powered down"},
    {"RF control", "counter reset", 1, "RF counter reset is on"},
    {"RF control", "CP three-state", 1, "RF pump in three-state"},
    {"master", "power-down", 1, "powered down"},
    {"master", "counter reset", 1, "counter reset is on"},
    {"master", "CP three-state", 1, "pump in three-state"},
};

// ---- ADF4153, ADF4156: two control bits

constexpr Text k4153Mux[] = {"three-state",      "digital lock detect", "N divider output", "logic high",
                             "R divider output", "analog lock detect",  "fastlock switch",  "logic low"};
// Nominal, the top bit halves the current; no sheet at hand states the currents.
constexpr Text k4153PumpCurrent[] = {"0.63 mA", "1.25 mA", "1.88 mA", "2.50 mA", "3.13 mA", "3.75 mA",
                                     "4.38 mA", "5.00 mA", "0.31 mA", "0.63 mA", "0.94 mA", "1.25 mA",
                                     "1.57 mA", "1.88 mA", "2.19 mA", "2.50 mA"};
constexpr Text kNoiseMode[] = {"lowest spur", "reserved", "reserved",           "reserved",
                               "reserved",    "reserved", "reserved",           "reserved",
                               "reserved",    "reserved", "reserved",           "reserved",
                               "reserved",    "reserved", "low noise and spur", "lowest noise"};

constexpr Field k4153NFields[] = {
    number(2, 12, "FRAC"),
    number(14, 9, "INT"),
    choice(23, 1, "fastlock", kOffOn),
};
constexpr Field k4153RFields[] = {
    number(2, 12, "MOD"),
    number(14, 4, "R"),
    choice(18, 1, "prescaler", kFractionalPrescaler),
    reserved(19, 1),
    choice(20, 3, "muxout", k4153Mux),
    choice(23, 1, "load control", kOffOn),
};
constexpr Field k4153ControlFields[] = {
    choice(2, 1, "counter reset", kOffOn),        choice(3, 1, "CP three-state", kOffOn),
    choice(4, 1, "power-down", kOffOn),           choice(5, 1, "lock detect precision", kLockPrecision),
    choice(6, 1, "detector polarity", kPolarity), choice(7, 4, "pump current", k4153PumpCurrent),
    choice(11, 1, "reference doubler", kOffOn),   number(12, 4, "resync"),
};
constexpr Field k4153NoiseFields[] = {
    choice(2, 1, "lowest noise", kOffOn),
    reserved(3, 3),
    choice(6, 4, "noise and spur mode", kNoiseMode),
    reserved(10, 1),
};
constexpr Register k4153Registers[] = {
    {"N", 24, 0b11, 0b00, true, k4153NFields},
    {"R", 24, 0b11, 0b01, true, k4153RFields},
    {"control", 16, 0b11, 0b10, true, k4153ControlFields},
    {"noise and spur", 11, 0b11, 0b11, true, k4153NoiseFields},
};
constexpr Obstacle k4153Obstacles[] = {
    {"control", "power-down", 1, "powered down"},
    {"control", "counter reset", 1, "counter reset is on"},
    {"control", "CP three-state", 1, "pump in three-state"},
};

void divideByWords(const Chip& chip, Tuning& tuning) {
  if (!chip.loaded("N") || !chip.loaded("R")) return;
  divideFractional({.integer = chip.value("N", "INT"),
                    .fraction = chip.value("N", "FRAC"),
                    .modulus = chip.value("R", "MOD"),
                    .prescaler = chip.meaningNumber("R", "prescaler")},
                   tuning);
}

void tune425x(const Chip& chip, Tuning& tuning) {
  if (chip.loaded("R"))
    tuning.divideReference(chip.value("R", "R"), 1 + chip.value("R", "reference doubler"));
  divideByWords(chip, tuning);
}

// The doubler stands in another word than R.
void tune4153(const Chip& chip, Tuning& tuning) {
  if (!chip.loaded("R") || !chip.loaded("control")) return;
  tuning.divideReference(chip.value("R", "R"), 1 + chip.value("control", "reference doubler"));
  divideByWords(chip, tuning);
}

}  // namespace

constinit const ChipMap kAdf425xMap{
    k425xRegisters, k425xObstacles, {"master", "muxout", 12}, tune425x, &kAdf425xReach};
constinit const ChipMap kAdf4153Map{
    k4153Registers, k4153Obstacles, {"R", "muxout", 1}, tune4153, &kAdf4153Reach};

}  // namespace tessarine::board
