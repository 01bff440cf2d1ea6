// SKY72300-362: sixteen bits, a four-bit address first. The divider holds the ratio less 32, the fraction of
// it is an 18-bit two's complement, its upper ten bits in R1 and its lower eight in R2.
#include <string_view>

#include "board/Chip.h"
#include "board/ChipMaps.h"
#include "board/Meanings.h"
#include "board/SkyRatio.h"

namespace tessarine::board {

namespace {

using Text = std::string_view;

constexpr Text kLockPin[] = {"lock detect", "power steering"};
constexpr Text kDividerMode[] = {"fractional-N", "integer-N"};
constexpr Text kFractionWidth[] = {"18 bits", "10 bits"};
constexpr Text kMuxPin[] = {"enabled", "three-state"};

constexpr Field kR0Fields[] = {number(0, 9, "N less 32"), reserved(9, 3)};
constexpr Field kR1Fields[] = {number(0, 10, "fraction, upper bits"), reserved(10, 2)};
constexpr Field kR2Fields[] = {number(0, 8, "fraction, lower bits"), reserved(8, 4)};
constexpr Field kR3Fields[] = {number(0, 9, "aux N less 32"), reserved(9, 3)};
constexpr Field kR4Fields[] = {number(0, 10, "aux fraction"), reserved(10, 2)};
constexpr Field kR5Fields[] = {
    number(0, 5, "reference division less 1"),
    number(5, 5, "aux reference division less 1"),
    reserved(10, 2),
};
constexpr Field kR6Fields[] = {
    number(0, 5, "pump current"),
    choice(5, 1, "lock detect pin", kLockPin),
    number(6, 5, "aux pump current"),
    choice(11, 1, "aux lock detect pin", kLockPin),
};
constexpr Field kR7Fields[] = {
    choice(0, 1, "full power-down", kOffOn),
    choice(1, 1, "power-down", kOffOn),
    choice(2, 1, "divider mode", kDividerMode),
    choice(3, 1, "fraction width", kFractionWidth),
    choice(4, 1, "aux power-down", kOffOn),
    choice(5, 1, "aux divider mode", kDividerMode),
    number(6, 3, "mux select"),
    choice(9, 1, "mux pin", kMuxPin),
    reserved(10, 2),
};
constexpr Field kR8Fields[] = {reserved(0, 4), number(4, 6, "modulation control"), reserved(10, 2)};
constexpr Field kR9Fields[] = {number(0, 12, "modulation data")};

constexpr Register kRegisters[] = {
    {"R0", 16, 0xF000, 0x0000, true, kR0Fields},  {"R1", 16, 0xF000, 0x1000, true, kR1Fields},
    {"R2", 16, 0xF000, 0x2000, true, kR2Fields},  {"R3", 16, 0xF000, 0x3000, false, kR3Fields},
    {"R4", 16, 0xF000, 0x4000, false, kR4Fields}, {"R5", 16, 0xF000, 0x5000, true, kR5Fields},
    {"R6", 16, 0xF000, 0x6000, true, kR6Fields},  {"R7", 16, 0xF000, 0x7000, true, kR7Fields},
    {"R8", 16, 0xF000, 0x8000, false, kR8Fields}, {"R9", 16, 0xF000, 0x9000, false, kR9Fields},
};

constexpr Obstacle kObstacles[] = {
    {"R7", "full power-down", 1, "powered down"},
    {"R7", "power-down", 1, "main synthesizer powered down"},
};

void tune(const Chip& chip, Tuning& tuning) {
  if (chip.loaded("R5")) tuning.divideReference(chip.value("R5", "reference division less 1") + 1);
  if (!chip.loaded("R0") || !chip.loaded("R1") || !chip.loaded("R2") || !chip.loaded("R7")) return;
  tuning.multiplyDetector(skyRatio({
      .lessWhole = chip.value("R0", "N less 32"),
      .fraction = chip.value("R1", "fraction, upper bits") << 8 | chip.value("R2", "fraction, lower bits"),
      .integerOnly = chip.value("R7", "divider mode") == 1,
      .tenBits = chip.value("R7", "fraction width") == 1,
  }));
}

}  // namespace

constinit const ChipMap kSky72300Map{
    kRegisters, kObstacles, {"R6", "lock detect pin", 0}, tune, &kSky72300Reach};

}  // namespace tessarine::board
