#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "board/BoardBench.h"

namespace tessarine::board {
namespace {

struct Word {
  std::uint32_t bits;
  int width;
};
using Words = std::vector<Word>;

// 4/5, INT 100, FRAC 1, MOD 50, R 1, digital lock detect.
const Words kSet4153 = {{0x3C2, 16}, {0x383, 11}, {0x1040C9, 24}, {0x190004, 24}};
// The same way out with INT 20; the mux brings out the RF loop's lock.
const Words kSet4252 = {{0x603, 11}, {0x0682, 16}, {0x008191, 21}, {0x0A0008, 24}};

// The power-up of the ADF4193, with the words for 1747.2 MHz from 26 MHz: INT 67, FRAC 26, MOD 130, 8/9.
const Words kPowerUp4193 = {{0xFD, 8},      {0x005B, 16},   {0x0007, 16},   {0x000E, 16},  {0x900E, 16},
                            {0x007FF4, 24}, {0x00400C, 24}, {0x004004, 24}, {0x0002, 16},  {0x108411, 24},
                            {0x2180D0, 24}, {0x007B, 16},   {0x05, 8},      {0x2180D0, 24}};
// What a full load sends after it.
const Words kFullLoad4193 = {{0x108411, 24}, {0x0002, 16},   {0x2180D0, 24}, {0x007B, 16}, {0x004004, 24},
                             {0x00400C, 24}, {0x007FF4, 24}, {0x05, 8},      {0x900E, 16}};

const Words kSetSky = {{0x005B, 16}, {0x11D3, 16}, {0x20A9, 16}, {0x3000, 16}, {0x4000, 16},
                       {0x5000, 16}, {0x67DF, 16}, {0x7010, 16}, {0x8000, 16}, {0x9000, 16}};
// 1000 MHz, 2000 MHz, 12.5 kHz, 10 MHz, channel 100.
const Words kSetUmc = {
    {0x19000001, 32}, {0x29000002, 32}, {0x3200007D, 32}, {0x47000001, 32}, {0x00000064, 32}};

// The set with one word changed: the one at `place`.
Words with(Words words, std::size_t place, std::uint32_t bits) {
  words[place].bits = bits;
  return words;
}

Words joined(Words words, const Words& more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

void loadAll(BoardBench& bench, const Words& words) {
  for (const Word& word : words) bench.load(word.bits, word.width);
}

struct TunedCase {
  const char* what;
  const char* chip;
  double referenceMHz;
  Words words;
  double detectorMHz;
  double outputMHz;
};

const TunedCase kTuned[] = {
    {"INT 100 + 1/50", "ADF4153", 10, kSet4153, 10, 1000.2},
    {"doubler, R 4, the words of a sister",
     "ADF4156",
     26,
     {{0x0BC2, 16}, {0x383, 11}, {0x110209, 24}, {0x190004, 24}},
     13,
     1300 + 13.0 / 130},
    {"8/9, the highest bits of all fields",
     "ADF4153",
     1,
     {{0x3C2, 16}, {0x3C3, 11}, {0x17FFFD, 24}, {0x7FFFF8, 24}},
     1.0 / 15,
     (511 + 4094.0 / 4095) / 15},
    {"INT 20 + 1/50", "ADF4252", 10, kSet4252, 10, 200.2},
    {"doubler, R 2, 8/9",
     "ADF4251",
     10,
     {{0x603, 11}, {0x0682, 16}, {0x190191, 21}, {0x0A0008, 24}},
     10,
     200.2},
    {"power-up alone", "ADF4193", 26, kPowerUp4193, 26, 1747.2},
    {"a full load after it", "ADF4193", 26, joined(kPowerUp4193, kFullLoad4193), 26, 1747.2},
    {"reference halved, R 2", "ADF4193", 104, joined(kPowerUp4193, {{0x510411, 24}}), 26, 1747.2},
    {"doubler and halver cancel out", "ADF4193", 26, joined(kPowerUp4193, {{0x588411, 24}}), 26, 1747.2},
    {"positive fraction", "SKY72300-362", 10, kSetSky, 10, 1230 + 10 * 119721.0 / 262144},
    {"negative fraction", "SKY72300-362", 10, with(with(with(kSetSky, 0, 0x005C), 1, 0x1266), 2, 0x2066), 10,
     1240 - 10 * 104858.0 / 262144},
    {"minus one half", "SKY72300-362", 10, with(with(kSetSky, 1, 0x1200), 2, 0x2000), 10, 1225},
    {"reference divided by 32", "SKY72300-362", 32, with(kSetSky, 5, 0x501F), 1, 123 + 119721.0 / 262144},
    {"integer-N", "SKY72300-362", 10, with(kSetSky, 7, 0x7014), 10, 1230},
    {"ten-bit fraction", "SKY72300-362", 10, with(kSetSky, 7, 0x7018), 10, 1230 + 10 * 467.0 / 1024},
    {"start and a hundred steps", "UMC", 10, kSetUmc, 0, 1001.25},
};

TEST(FractionalChips, TuneAndLockToWordsClockedIn) {
  for (const TunedCase& c : kTuned) {
    SCOPED_TRACE(std::string(c.chip) + ": " + c.what);
    BoardBench bench(c.chip, c.referenceMHz);
    loadAll(bench, c.words);
    const Tuning& tuning = bench.tuning();
    EXPECT_EQ(tuning.reason(), "");
    ASSERT_TRUE(tuning.outputMHz);
    EXPECT_NEAR(*tuning.outputMHz, c.outputMHz, 1e-9);
    EXPECT_NEAR(tuning.detectorMHz.value_or(0), c.detectorMHz, 1e-12);
    EXPECT_TRUE(tuning.lockPin);
  }
}

struct UnlockedCase {
  const char* what;
  const char* chip;
  Words words;
  const char* reason;
};

const UnlockedCase kUnlocked[] = {
    {"reset, three-state, power-down", "ADF4153", with(kSet4153, 0, 0x3DE),
     "powered down; counter reset is on; pump in three-state"},
    {"R 0", "ADF4153", with(kSet4153, 2, 0x1000C9), "R is 0"},
    {"MOD 0", "ADF4153", with(kSet4153, 2, 0x104001), "MOD is 0"},
    {"without the control word",
     "ADF4156",
     {{0x383, 11}, {0x1040C9, 24}, {0x190004, 24}},
     "control register never loaded"},
    {"RF part", "ADF4252", with(kSet4252, 1, 0x06BA),
     "RF synthesizer powered down; RF counter reset is on; RF pump in three-state"},
    {"master", "ADF4251", with(kSet4252, 0, 0x63B), "powered down; counter reset is on; pump in three-state"},
    {"held by the first word of the power-up",
     "ADF4193",
     {{0xFD, 8}},
     "R0 register never loaded; R1 register never loaded; R2 register never loaded; R3 register never "
     "loaded; "
     "R6 register never loaded; R7 register never loaded; pump powered down; differential amplifier powered "
     "down; "
     "counter reset is on; pump in three-state"},
    {"never powered up", "ADF4193", kFullLoad4193, "R7 register never loaded"},
    {"CPO grounded by an update", "ADF4193", joined(kPowerUp4193, {{0x004B, 16}}), "pump output is grounded"},
    {"powered down", "SKY72300-362", with(kSetSky, 7, 0x7013), "powered down; main synthesizer powered down"},
    {"ten pulses without data",
     "SKY72300-362",
     {{0, 0}, {0, 0}},
     "R1 register never loaded; R2 register never loaded; R5 register never loaded; R6 register never "
     "loaded; "
     "R7 register never loaded"},
    {"without the channel",
     "UMC",
     {{0x19000001, 32}, {0x3200007D, 32}, {0x47000001, 32}},
     "channel register never loaded"},
};

TEST(FractionalChips, TellWhyTheyDoNotLock) {
  for (const UnlockedCase& c : kUnlocked) {
    SCOPED_TRACE(std::string(c.chip) + ": " + c.what);
    BoardBench bench(c.chip);
    loadAll(bench, c.words);
    EXPECT_EQ(bench.tuning().reason(), c.reason);
    EXPECT_FALSE(bench.tuning().lockPin);
  }
}

TEST(FractionalChips, OtherMuxSettingsKeepTheLockPinLow) {
  const UnlockedCase cases[] = {
      {"R divider output", "ADF4153", with(kSet4153, 2, 0x4040C9), ""},
      {"RF/IF lock detect", "ADF4252", with(kSet4252, 0, 0x683), ""},
      {"logic high", "ADF4193", joined(kPowerUp4193, {{0x901E, 16}}), ""},
      {"power steering", "SKY72300-362", with(kSetSky, 6, 0x67FF), ""},
  };
  for (const UnlockedCase& c : cases) {
    SCOPED_TRACE(std::string(c.chip) + ": " + c.what);
    BoardBench bench(c.chip);
    loadAll(bench, c.words);
    EXPECT_EQ(bench.tuning().reason(), c.reason);
    EXPECT_FALSE(bench.tuning().lockPin);
  }
}

TEST(FractionalChips, EachTimerHasItsOwnWordBehindOneAddress) {
  BoardBench bench("ADF4193");
  bench.load(0x007FF4, 24);
  bench.load(0x0040AC, 24);
  bench.load(0x004044, 24);
  EXPECT_EQ(bench.field("R4 ICP", "time-out"), 511U);
  EXPECT_EQ(bench.field("R4 SW3", "time-out"), 5U);
  EXPECT_EQ(bench.field("R4 SW1/SW2", "time-out"), 2U);
  EXPECT_FALSE(bench.board().chip()->loaded("R4 no timer"));
  bench.load("");  // the power-up's strobe of a timer without a word
  EXPECT_EQ(bench.field("R4 SW1/SW2", "time-out"), 2U);
}

TEST(FractionalChips, ThePowerUpIsOneLoadAlthoughItRepeatsRegisters) {
  BoardBench bench("ADF4193", 26);
  loadAll(bench, {kPowerUp4193.begin(), kPowerUp4193.begin() + 2});
  bench.microseconds += 100'000;
  loadAll(bench, {kPowerUp4193.begin() + 2, kPowerUp4193.end()});
  EXPECT_EQ(bench.board().lastLoad().size(), kPowerUp4193.size());
  bench.microseconds += 200'000;
  bench.load(0x2180D0, 24);
  EXPECT_EQ(bench.board().lastLoad().size(), 1U);
}

TEST(FractionalChips, WordsForNoRegisterChangeNothing) {
  BoardBench bench("ADF4252");
  loadAll(bench, kSet4252);
  bench.load(0x000004, 24);  // an address of the IF synthesizer
  EXPECT_TRUE(bench.tuning().locked());
  EXPECT_EQ(bench.board().lastLoad().back().registerIndex, std::nullopt);
}

TEST(FractionalChips, NoteWhatTheChipCannotFollow) {
  BoardBench bench("ADF4153");
  loadAll(bench, with(with(kSet4153, 3, 0x0780C8), 2, 0x1040C9));  // INT 30, FRAC 50
  EXPECT_EQ(bench.tuning().notes,
            (std::vector<std::string>{"FRAC = 50 is not below MOD = 50",
                                      "INT = 30 is below 31, the least with prescaler 4"}));
  EXPECT_DOUBLE_EQ(*bench.tuning().outputMHz, 310);
  bench.load(0x320004, 24);  // INT 200, FRAC 1: 2000.2 MHz
  EXPECT_EQ(bench.tuning().notes,
            (std::vector<std::string>{"the output is above 2000 MHz, the highest with prescaler 4"}));
}

}  // namespace
}  // namespace tessarine::board
