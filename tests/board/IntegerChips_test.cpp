#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "board/BoardBench.h"

namespace tessarine::board {
namespace {

constexpr const char* kAdfFunction = "000000111000000010010010";
constexpr const char* kAdfR50 = "000000000000000011001000";
constexpr const char* kAdfN4500 = "000000100011001000010001";
constexpr const char* kLmxFunction = "000000001000010010010";

void loadAdf4113(BoardBench& bench) {
  for (const char* word : {kAdfFunction, kAdfR50, kAdfN4500}) bench.load(word);
}

struct TunedCase {
  const char* what;
  const char* chip;
  double referenceMHz;
  std::vector<std::string> words;  // highest bit first
  std::vector<std::pair<std::string, double>> dividers;
  double detectorMHz;
  double outputMHz;
};

// Words worked out by hand from the frequencies.
const TunedCase kTuned[] = {
    {"8/9, B 562, A 4",
     "ADF4113",
     10,
     {kAdfFunction, kAdfR50, kAdfN4500},
     {{"R", 50}, {"P", 8}, {"B", 562}, {"A", 4}, {"N", 4500}},
     0.2,
     900},
    {"64/65, an initialization word, second current setting",
     "ADF4106",
     20,
     {"110000111000000010010011", "000000000000000001010000", "001000000100111000100001"},
     {{"R", 20}, {"P", 64}, {"B", 78}, {"A", 8}, {"N", 5000}},
     1,
     5000},
    {"16/17",
     "ADF4111",
     13,
     {"010000111000000010010010", "000000000000000100000100", "000000010011100000100001"},
     {{"R", 65}, {"P", 16}, {"B", 312}, {"A", 8}, {"N", 5000}},
     0.2,
     1000},
    {"21 bits, fixed 32/33",
     "LMX2316",
     10,
     {kLmxFunction, "000000000000011001000", "100000100011001010001"},
     {{"R", 50}, {"P", 32}, {"B", 140}, {"A", 20}, {"N", 4500}},
     0.2,
     900},
    {"an N word without its top bit",
     "LMX2326",
     10,
     {kLmxFunction, "000000000000011001000", "00000100011001010001"},
     {{"R", 50}, {"P", 32}, {"B", 140}, {"A", 20}, {"N", 4500}},
     0.2,
     900},
    {"19 bits, select 1 is 32/33",
     "LMX2325",
     10,
     {"0001000000001100101", "0001000110000101000"},
     {{"R", 50}, {"P", 32}, {"B", 140}, {"A", 20}, {"N", 4500}},
     0.2,
     900},
    {"select 0 is 128/129",
     "LMX2320",
     10,
     {"0000000000001100101", "0000010001100101000"},
     {{"R", 50}, {"P", 128}, {"B", 35}, {"A", 20}, {"N", 4500}},
     0.2,
     900},
    {"select 1 is 64/65",
     "LMX2315",
     10,
     {"0001000000001100101", "0000100011000101000"},
     {{"R", 50}, {"P", 64}, {"B", 70}, {"A", 20}, {"N", 4500}},
     0.2,
     900},
};

TEST(IntegerChips, TuneAndLockToWordsClockedIn) {
  for (const TunedCase& c : kTuned) {
    SCOPED_TRACE(std::string(c.chip) + ": " + c.what);
    BoardBench bench(c.chip, c.referenceMHz);
    for (const std::string& word : c.words) bench.load(word);
    const Tuning& tuning = bench.tuning();
    ASSERT_TRUE(tuning.detectorMHz && tuning.outputMHz) << tuning.reason();
    EXPECT_NEAR(*tuning.detectorMHz, c.detectorMHz, 1e-12);
    EXPECT_NEAR(*tuning.outputMHz, c.outputMHz, 1e-9);
    std::vector<std::pair<std::string, double>> dividers;
    for (const Tuning::Divider& divider : tuning.dividers) dividers.emplace_back(divider.name, divider.value);
    EXPECT_EQ(dividers, c.dividers);
    EXPECT_EQ(tuning.reason(), "");
    EXPECT_TRUE(tuning.lockPin);
  }
}

struct UnlockedCase {
  const char* what;
  const char* chip;
  std::vector<std::string> words;
  const char* reason;
};

const UnlockedCase kUnlocked[] = {
    {"fresh from power-on",
     "ADF4113",
     {},
     "R register never loaded; N register never loaded; function register never loaded"},
    {"only part of the set", "ADF4113", {kAdfFunction, kAdfN4500}, "R register never loaded"},
    {"counter reset", "ADF4113", {"000000111000000010010110", kAdfR50, kAdfN4500}, "counter reset is on"},
    {"power-down", "ADF4113", {"000000111000000010011010", kAdfR50, kAdfN4500}, "powered down"},
    {"three-state", "ADF4113", {"000000111000000110010010", kAdfR50, kAdfN4500}, "pump in three-state"},
    {"all three",
     "LMX2326",
     {"000000001000110011110", "000000000000011001000", "100000100011001010001"},
     "powered down; counter reset is on; pump in three-state"},
    {"R 0", "ADF4113", {kAdfFunction, "000000000000000000000000", kAdfN4500}, "R is 0"},
    {"N 0", "ADF4113", {kAdfFunction, kAdfR50, "000000000000000000000001"}, "N is 0; B = 0 is below 3"},
    {"more to swallow than cycles",
     "LMX2316",
     {kLmxFunction, "000000000000011001000", "000000000001000010101"},
     "A = 5 is above B = 4"},
    {"B 2", "LMX2325", {"0001000000001100101", "0000000001000000100"}, "B = 2 is below 3"},
};

TEST(IntegerChips, TellWhyTheyDoNotLock) {
  for (const UnlockedCase& c : kUnlocked) {
    SCOPED_TRACE(std::string(c.chip) + ": " + c.what);
    BoardBench bench(c.chip);
    for (const std::string& word : c.words) bench.load(word);
    EXPECT_EQ(bench.tuning().reason(), c.reason);
    EXPECT_FALSE(bench.tuning().locked());
    EXPECT_FALSE(bench.tuning().lockPin);
  }
}

TEST(IntegerChips, TheLockPinFollowsTheMuxAndTheLoopDoesNot) {
  BoardBench bench("ADF4113");
  loadAdf4113(bench);
  EXPECT_EQ(bench.port.UsbReadPin("A3"), 1);
  EXPECT_EQ(bench.port.UsbReadPort("A"), 8);
  bench.load("000000111000000010100010");  // muxout: N divider output
  EXPECT_TRUE(bench.tuning().locked());
  EXPECT_EQ(bench.port.UsbReadPin("A3"), 0);
  EXPECT_EQ(bench.port.UsbReadPort("A"), 0);
}

TEST(IntegerChips, LoseTheirRegistersOnlyWhenTheChipChanges) {
  BoardBench bench("ADF4113");
  loadAdf4113(bench);
  bench.board().plug("ADF4113");
  EXPECT_TRUE(bench.tuning().locked());
  bench.board().plug("ADF4112");
  EXPECT_FALSE(bench.board().chip()->loaded("R"));
  EXPECT_EQ(bench.tuning().outputMHz, std::nullopt);
  bench.write(0);
  bench.write(bench.cable.loadEnable);  // the shift register is empty, too: all zeros go to R
  EXPECT_TRUE(bench.board().chip()->loaded("R"));
  EXPECT_EQ(bench.field("R", "R"), 0U);
  bench.board().plug("no such chip");
  EXPECT_EQ(bench.tuning().reason(), "no chip");
}

TEST(IntegerChips, TakeTheReferenceAsItIsAtTheLatch) {
  BoardBench bench("ADF4113");
  loadAdf4113(bench);
  bench.referenceMHz = 20;
  EXPECT_DOUBLE_EQ(*bench.tuning().outputMHz, 900);
  bench.load(kAdfN4500);
  EXPECT_DOUBLE_EQ(*bench.tuning().outputMHz, 1800);
}

TEST(IntegerChips, NoteWhatIsBeyondTheRatings) {
  BoardBench bench("ADF4110", 10);  // 550 MHz, 200 MHz behind the prescaler
  loadAdf4113(bench);
  EXPECT_EQ(bench.tuning().notes,
            (std::vector<std::string>{"the output is above 550 MHz, the highest of the ADF4110"}));
  EXPECT_TRUE(bench.tuning().locked());
  bench.referenceMHz = 20;
  bench.board().retune();
  EXPECT_EQ(bench.tuning().notes.front(), "behind the prescaler 8 the output is above 200 MHz");
}

}  // namespace
}  // namespace tessarine::board
