#include <gtest/gtest.h>

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "board/BoardBench.h"
#include "board/NumberText.h"
#include "support/Sum.h"

namespace tessarine::board {
namespace {

// 4/5, INT 100, FRAC 1, MOD 50, R 1, digital lock detect.
const Words kSet4153 = "3C2/16 383/11 1040C9/24 190004/24"_w;
// The same way out with INT 20; the mux brings out the RF loop's lock.
const Words kSet4252 = "603/11 0682/16 008191/21 0A0008/24"_w;

// The power-up of the ADF4193, with the words for 1747.2 MHz from 26 MHz: INT 67, FRAC 26, MOD 130, 8/9.
const Words kPowerUp4193 =
    "FD/8 005B/16 0007/16 000E/16 900E/16 007FF4/24 00400C/24 004004/24 0002/16 108411/24 "
    "2180D0/24 007B/16 05/8 2180D0/24"_w;
// What a full load sends after it.
const Words kFullLoad4193 =
    "108411/24 0002/16 2180D0/24 007B/16 004004/24 00400C/24 007FF4/24 05/8 900E/16"_w;

const Words kSetSky = "005B/16 11D3/16 20A9/16 3000/16 4000/16 5000/16 67DF/16 7010/16 8000/16 9000/16"_w;
// 1000 MHz, 2000 MHz, 12.5 kHz, 10 MHz, channel 100.
const Words kSetUmc = "19000001/32 29000002/32 3200007D/32 47000001/32 00000064/32"_w;

// The set with one word changed: the one at `place`.
Words with(Words words, std::size_t place, std::uint32_t bits) {
  words[place] = std::bitset<32>(bits).to_string().substr(32 - words[place].size());
  return words;
}

Words joined(Words words, const Words& more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

const std::string kAbove550 = "; the output is above 550 MHz, the highest of the ADF4110";

// Words worked out by hand from the frequencies.
const struct {
  const char* what;
  const char* chip;
  Words words;
  std::string text;  // the output and its detector, or else why there is none; lock pin; notes
  double referenceMHz = 10;
} kWords[] = {
    {"8/9", "ADF4113", kSet4113, "900 MHz from 0.2"},
    {"64/65, an initialization word, second current setting", "ADF4106", "C38093/24 000050/24 204E21/24"_w,
     "5000 MHz from 1", 20},
    {"21 bits, fixed 32/33", "LMX2316", kSet2326, "900 MHz from 0.2"},
    {"an N word without its top bit", "LMX2326", "001092/21 0000C8/21 04651/20"_w, "900 MHz from 0.2"},
    {"as many to swallow as cycles", "LMX2316", with(kSet2326, 2, 0x000211), "26.4 MHz from 0.2"},
    {"19 bits, select 1 is 32/33", "LMX2325", kSet2325, "900 MHz from 0.2"},
    {"INT 100 + 1/50", "ADF4153", kSet4153, "1000.2 MHz from 10"},
    {"doubler, R 4, the words of a sister", "ADF4156", "0BC2/16 383/11 110209/24 190004/24"_w,
     "1300.1 MHz from 13", 26},
    {"8/9, the highest bits of all fields", "ADF4153", "3C2/16 3C3/11 17FFFD/24 7FFFF8/24"_w,
     "34.1333170533 MHz from 0.0666666666667", 1},
    {"INT 20 + 1/50", "ADF4252", kSet4252, "200.2 MHz from 10"},
    {"power-up alone", "ADF4193", kPowerUp4193, "1747.2 MHz from 26", 26},
    {"positive fraction", "SKY72300-362", kSetSky, "1234.56699371 MHz from 10"},
    {"minus one half", "SKY72300-362", with(with(kSetSky, 1, 0x1200), 2, 0x2000), "1225 MHz from 10"},
    {"integer-N", "SKY72300-362", with(kSetSky, 7, 0x7014), "1230 MHz from 10"},
    {"ten-bit fraction", "SKY72300-362", with(kSetSky, 7, 0x7018), "1234.56054688 MHz from 10"},
    {"start and a hundred steps", "UMC", kSetUmc, "1001.25 MHz from 0"},
    {"without a stop", "UMC", "19000001/32 3200007D/32 47000001/32 00000064/32"_w, "1001.25 MHz from 0"},
    {"without a crystal", "UMC", kSetUmc, "no reference", 0},

    {"fresh from power-on", "ADF4113", Words{},
     "R register never loaded; N register never loaded; function register never loaded"},
    {"counter reset", "ADF4113", with(kSet4113, 0, 0x038096), "counter reset is on"},
    {"power-down", "ADF4113", with(kSet4113, 0, 0x03809A), "powered down"},
    {"three-state", "ADF4113", with(kSet4113, 0, 0x038192), "pump in three-state"},
    {"all three", "LMX2326", with(kSet2326, 0, 0x00119E),
     "powered down; counter reset is on; pump in three-state"},
    {"R 0", "ADF4113", with(kSet4113, 1, 0), "R is 0"},
    {"N 0", "ADF4113", with(kSet4113, 2, 1), "N is 0; B = 0 is below 3"},
    {"more to swallow than cycles", "LMX2316", with(kSet2326, 2, 0x000215), "A = 5 is above B = 4"},
    {"B 2", "LMX2325", with(kSet2325, 1, 0x00204), "B = 2 is below 3"},
    {"reset, three-state, power-down", "ADF4153", with(kSet4153, 0, 0x3DE),
     "powered down; counter reset is on; pump in three-state"},
    {"MOD 0", "ADF4153", with(kSet4153, 2, 0x104001), "MOD is 0"},
    {"without the control word", "ADF4156", "383/11 1040C9/24 190004/24"_w, "control register never loaded"},
    {"RF part", "ADF4252", with(kSet4252, 1, 0x06BA),
     "RF synthesizer powered down; RF counter reset is on; RF pump in three-state"},
    {"master", "ADF4251", with(with(kSet4252, 0, 0x63B), 3, 0x0F8008),
     "powered down; counter reset is on; pump in three-state"},
    {"held by the first word of the power-up", "ADF4193", "FD/8"_w,
     "R0 register never loaded; R1 register never loaded; R2 register never loaded; "
     "R3 register never loaded; R6 register never loaded; R7 register never loaded; pump powered down; "
     "differential amplifier powered down; counter reset is on; pump in three-state"},
    {"never powered up", "ADF4193", kFullLoad4193, "R7 register never loaded"},
    {"R7 before the counters are held", "ADF4193", joined("0007/16"_w, kFullLoad4193),
     "power-up sequence waits for R5 with the counters in reset"},
    {"without R0 behind the release", "ADF4193", Words(kPowerUp4193.begin(), kPowerUp4193.end() - 1),
     "power-up sequence waits for R0 behind the release"},
    {"CPO grounded by an update", "ADF4193", joined(kPowerUp4193, "004B/16"_w), "pump output is grounded"},
    {"powered down", "SKY72300-362", with(kSetSky, 7, 0x7013), "powered down; main synthesizer powered down"},
    {"ten pulses without data", "SKY72300-362", "0/0 0/0"_w,
     "R1 register never loaded; R2 register never loaded; R5 register never loaded; "
     "R6 register never loaded; R7 register never loaded"},
    {"without the channel", "UMC", "19000001/32 3200007D/32 47000001/32"_w, "channel register never loaded"},

    {"N divider output", "ADF4113", with(kSet4113, 0, 0x0380A2), "900 MHz from 0.2, pin low"},
    {"R divider output", "ADF4153", with(kSet4153, 2, 0x4040C9), "1000.2 MHz from 10, pin low"},
    {"RF/IF lock detect", "ADF4252", with(kSet4252, 0, 0x683), "200.2 MHz from 10, pin low"},
    {"logic high", "ADF4193", joined(kPowerUp4193, "901E/16"_w), "1747.2 MHz from 26, pin low", 26},
    {"power steering", "SKY72300-362", with(kSetSky, 6, 0x67FF), "1234.56699371 MHz from 10, pin low"},

    {"too high", "ADF4110", kSet4113, "900 MHz from 0.2" + kAbove550},
    {"at the bound", "ADF4110", with(kSet4113, 2, 0x015719), "550 MHz from 0.2"},
    {"another crystal", "UMC", kSetUmc,
     "1001.25 MHz from 0; the ref register says 10 MHz, the crystal has 20 MHz", 20},
    {"above the stop", "UMC", with(kSetUmc, 4, 90'000),
     "2125 MHz from 0; the output is above the stop frequency, 2000 MHz"},
    {"at the stop", "UMC", with(kSetUmc, 4, 80'000), "2000 MHz from 0"},
    {"least INT not known", "ADF4153", with(with(kSet4153, 3, 0x0780C8), 2, 0x1040C9), "310 MHz from 10"},
    {"FRAC above MOD", "ADF4153", with(kSet4153, 3, 0x0780CC),
     "310.2 MHz from 10; FRAC = 51 is above MOD = 50"},
    {"FRAC equal to MOD, INT 22", "ADF4156", with(kSet4153, 3, 0x0580C8),
     "230 MHz from 10; FRAC = 50 is not below MOD = 50; INT = 22 is below 23, the least for this chip"},
    {"INT 20", "ADF4251", kSet4252, "200.2 MHz from 10; INT = 20 is below 31, the least for this chip"},
    {"MOD 1", "ADF4251", with(with(kSet4252, 2, 0x8009), 3, 0x180000),
     "480 MHz from 10; MOD = 1 is below 2, the least for this chip"},
    {"too low", "ADF4251", with(kSet4252, 3, 0x180008),
     "96.04 MHz from 2; the output is below 100 MHz, the lowest of the ADF4251", 2},
    {"detector and prescaler", "ADF4251", with(kSet4252, 3, 0x180008),
     "1920.8 MHz from 40; detector 40 MHz is above 30 MHz, the most for this chip; behind the prescaler 4 "
     "the "
     "output is above 375 MHz",
     40},
};

TEST(Chips, TuneAndLockToWordsClockedInOrTellWhyNot) {
  std::string described;
  for (const auto& c : kWords) {
    BoardBench bench(c.chip, c.referenceMHz);
    bench.load(c.words);
    described += bench.port.describe();
    const Tuning& tuning = bench.tuning();
    std::string text = tuning.reason();
    if (tuning.locked())
      text = shortText(*tuning.outputMHz) + " MHz from " + shortText(tuning.detectorMHz.value_or(0));
    const bool pin = bench.port.UsbReadPin("A3") != 0;
    if (pin != tuning.locked()) text += pin ? ", pin high" : ", pin low";
    for (const std::string& note : tuning.notes) text += "; " + note;
    EXPECT_EQ(text, c.text) << c.chip << ": " << c.what;
    EXPECT_EQ(bench.port.UsbReadPort("A"), pin ? 8 : 0);
  }
  expectSum("described", described, 1275212872);
}

TEST(Chips, LoseTheirRegistersOnlyWhenTheChipChanges) {
  BoardBench bench("ADF4113");
  bench.load(kSet4113);
  bench.board().plug("ADF4113");
  EXPECT_TRUE(bench.tuning().locked());
  bench.board().plug("ADF4112");
  EXPECT_FALSE(bench.board().chip()->loaded("R"));
  EXPECT_TRUE(bench.board().lastLoad().empty());
  EXPECT_EQ(bench.tuning().outputMHz, std::nullopt);
  bench.load("");  // the shift register is empty, too: all zeros go to R
  EXPECT_TRUE(bench.board().chip()->loaded("R"));
  EXPECT_EQ(bench.field("R", "R"), 0U);
  bench.board().plug("no such chip");
  EXPECT_EQ(bench.port.describe(),
            "chip\tnone\ndetector\tnone\noutput\tnone\nlock\t0\tno chip\npin\t0\n"
            "history\t2 changes\t900.000000 MHz\t900.000000 MHz\nfault\tnone\n");
}

TEST(Chips, ThePowerUpIsOneLoadAlthoughItRepeatsRegisters) {
  BoardBench bench("ADF4193", 26);
  bench.load(Words(kPowerUp4193.begin(), kPowerUp4193.begin() + 2));
  bench.microseconds += 100'000;
  bench.load(Words(kPowerUp4193.begin() + 2, kPowerUp4193.end()));
  EXPECT_EQ(bench.board().lastLoad().size(), kPowerUp4193.size());
  bench.microseconds += 200'000;
  bench.load(kPowerUp4193.back());
  EXPECT_EQ(bench.board().lastLoad().size(), 1U);
}

}  // namespace
}  // namespace tessarine::board
