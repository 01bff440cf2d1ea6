// The dual-modulus integer-N chips: output = detector x (P x B + A), detector = reference / R.
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "board/Chip.h"
#include "board/ChipMaps.h"
#include "board/DualModulus.h"
#include "board/Meanings.h"

namespace tessarine::board {

namespace {

using Text = std::string_view;

constexpr Text kPowerDownMode[] = {"asynchronous", "synchronous"};
constexpr Text kMuxout[] = {"three-state",      "digital lock detect",    "N divider output",   "logic high",
                            "R divider output", "open-drain lock detect", "serial data output", "logic low"};
constexpr Text kTimerCycles[] = {"3 cycles",  "7 cycles",  "11 cycles", "15 cycles", "19 cycles", "23 cycles",
                                 "27 cycles", "31 cycles", "35 cycles", "39 cycles", "43 cycles", "47 cycles",
                                 "51 cycles", "55 cycles", "59 cycles", "63 cycles"};
constexpr Text kFunctionLatch[] = {"function", "initialization"};

// ---- ADF4106, ADF4110 to ADF4113: 24 bits, two control bits at the low end

constexpr Text kAntiBacklash[] = {"2.9 ns", "1.3 ns", "6.0 ns", "2.9 ns"};
constexpr Text kCurrentSetChosen[] = {"current setting 1", "current setting 2"};
constexpr Text kFastlockMode[] = {"mode 1", "mode 2"};
// Nominal: steps of an eighth; no sheet at hand states the currents.
constexpr Text kPumpCurrent[] = {"0.625 mA", "1.250 mA", "1.875 mA", "2.500 mA",
                                 "3.125 mA", "3.750 mA", "4.375 mA", "5.000 mA"};
constexpr Text kAdfPrescaler[] = {"8/9", "16/17", "32/33", "64/65"};

constexpr Field kAdfRFields[] = {
    number(2, 14, "R"),
    choice(16, 2, "anti-backlash width", kAntiBacklash),
    number(18, 2, "test mode"),
    choice(20, 1, "lock detect precision", kLockPrecision),
    number(21, 2, "prescaler resynchronization"),
    reserved(23, 1),
};
constexpr Field kAdfNFields[] = {
    number(2, 6, "A"),
    number(8, 13, "B"),
    choice(21, 1, "CP gain", kCurrentSetChosen),
    reserved(22, 2),
};
constexpr Field kAdfFunctionFields[] = {
    choice(0, 1, "latch", kFunctionLatch),
    choice(2, 1, "counter reset", kOffOn),
    choice(3, 1, "power-down", kOffOn),
    choice(4, 3, "muxout", kMuxout),
    choice(7, 1, "detector polarity", kPolarity),
    choice(8, 1, "CP three-state", kOffOn),
    choice(9, 1, "fastlock", kOffOn),
    choice(10, 1, "fastlock mode", kFastlockMode),
    choice(11, 4, "timer", kTimerCycles),
    choice(15, 3, "current setting 1", kPumpCurrent),
    choice(18, 3, "current setting 2", kPumpCurrent),
    choice(21, 1, "power-down mode", kPowerDownMode),
    choice(22, 2, "prescaler", kAdfPrescaler),
};
// Function and initialization words fill the same register; the lowest bit tells which of them came.
constexpr Register kAdfRegisters[] = {
    {"R", 24, 0b11, 0b00, true, kAdfRFields},
    {"N", 24, 0b11, 0b01, true, kAdfNFields},
    {"function", 24, 0b10, 0b10, true, kAdfFunctionFields},
};

// ---- LMX2306, LMX2316, LMX2326, ADF4118: 21 bits, two control bits at the low end

// As the program's own panel says.
constexpr Text kPumpGain[] = {"0.25 mA", "1 mA"};

constexpr Field kLmxRFields[] = {
    number(2, 14, "R"),
    number(16, 4, "test mode"),
    choice(20, 1, "lock detect precision", kLockPrecision),
};
constexpr Field kLmxNFields[] = {
    number(2, 5, "A"),
    number(7, 13, "B"),
    choice(20, 1, "CP gain", kPumpGain),
};
constexpr Field kLmxFunctionFields[] = {
    choice(0, 1, "latch", kFunctionLatch),
    choice(2, 1, "counter reset", kOffOn),
    choice(3, 1, "power-down", kOffOn),
    choice(4, 3, "muxout", kMuxout),
    choice(7, 1, "detector polarity", kPolarity),
    choice(8, 1, "CP three-state", kOffOn),
    choice(9, 1, "fastlock", kOffOn),
    choice(10, 1, "fastlock control", kOffOn),
    choice(11, 1, "timer enable", kOffOn),
    choice(12, 4, "timer", kTimerCycles),
    number(16, 3, "test mode"),
    choice(19, 1, "power-down mode", kPowerDownMode),
    reserved(20, 1),
};
constexpr Register kLmxRegisters[] = {
    {"R", 21, 0b11, 0b00, true, kLmxRFields},
    {"N", 21, 0b11, 0b01, true, kLmxNFields},
    {"function", 21, 0b10, 0b10, true, kLmxFunctionFields},
};

constexpr Obstacle kFunctionObstacles[] = {
    {"function", "power-down", 1, "powered down"},
    {"function", "counter reset", 1, "counter reset is on"},
    {"function", "CP three-state", 1, "pump in three-state"},
};

// ---- LMX2315, LMX2320, LMX2325: 19 bits, one control bit; lock detect has a pin of its own

constexpr Text kPrescaler64[] = {"128/129", "64/65"};
constexpr Text kPrescaler32[] = {"64/65", "32/33"};

constexpr std::array<Field, 3> lmx2315RFields(std::span<const Text> prescalers) {
  return {number(1, 14, "R"), choice(15, 1, "prescaler", prescalers), reserved(16, 3)};
}
constexpr auto kLmx2315RFields = lmx2315RFields(kPrescaler64);
constexpr auto kLmx2325RFields = lmx2315RFields(kPrescaler32);
constexpr Field kLmx2315NFields[] = {
    number(1, 7, "A"),
    number(8, 11, "B"),
};
constexpr Register kLmx2315Registers[] = {
    {"R", 19, 0b1, 0b1, true, kLmx2315RFields},
    {"N", 19, 0b1, 0b0, true, kLmx2315NFields},
};
constexpr Register kLmx2325Registers[] = {
    {"R", 19, 0b1, 0b1, true, kLmx2325RFields},
    {"N", 19, 0b1, 0b0, true, kLmx2315NFields},
};

void dualModulus(std::uint32_t p, const Chip& chip, Tuning& tuning) {
  divideDualModulus({.prescaler = p, .main = chip.value("N", "B"), .swallow = chip.value("N", "A")}, tuning);
}

void tuneAdf411x(const Chip& chip, Tuning& tuning) {
  if (chip.loaded("R")) tuning.divideReference(chip.value("R", "R"));
  if (chip.loaded("N") && chip.loaded("function"))
    dualModulus(chip.meaningNumber("function", "prescaler"), chip, tuning);
}

void tuneLmx23x6(const Chip& chip, Tuning& tuning) {
  // No bit tells the prescaler of these chips; the boards carry the 32/33 types that the panel offers.
  constexpr std::uint32_t kPrescaler = 32;
  if (chip.loaded("R")) tuning.divideReference(chip.value("R", "R"));
  if (chip.loaded("N")) dualModulus(kPrescaler, chip, tuning);
}

void tuneLmx2315(const Chip& chip, Tuning& tuning) {
  if (!chip.loaded("R")) return;
  tuning.divideReference(chip.value("R", "R"));
  if (chip.loaded("N")) dualModulus(chip.meaningNumber("R", "prescaler"), chip, tuning);
}

constexpr LockOutput kMuxLockDetect{"function", "muxout", 1};

}  // namespace

constinit const ChipMap kAdf411xMap{kAdfRegisters, kFunctionObstacles, kMuxLockDetect, tuneAdf411x,
                                    &kAdf411xReach};
constinit const ChipMap kLmx23x6Map{kLmxRegisters, kFunctionObstacles, kMuxLockDetect, tuneLmx23x6,
                                    &kLmx23x6Reach};
constinit const ChipMap kLmx2315Map{kLmx2315Registers, {}, {}, tuneLmx2315, &kLmx2315Reach};
constinit const ChipMap kLmx2325Map{kLmx2325Registers, {}, {}, tuneLmx2315, &kLmx2325Reach};

}  // namespace tessarine::board
