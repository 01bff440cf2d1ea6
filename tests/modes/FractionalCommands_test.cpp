// The fractional chips, the ADF4193 and the SKY72300-362 as the operator works them: type, click, read the
// captions, read the wire.
#include <algorithm>
#include <bitset>
#include <fstream>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using Texts = std::vector<std::string>;

std::string reversed(const std::string& text) { return {text.rbegin(), text.rend()}; }

// A word of `width` bits, most significant first, as it shows and as it goes out.
std::string bits(unsigned value, std::size_t width) {
  return std::bitset<24>(value).to_string().substr(24 - width);
}

TEST(FractionalCommands, WorkedExamplesToTheBit) {
  const struct {
    const char* model;
    const char* vco;
    Texts stored;  // M, F, R, N with bit 0 first
  } rows[] = {
      {"ADF4153",
       "1000.2",
       {"0100001111000000", "11000001110", "100100110000001000001000", "001000000000000010011000"}},
      {"ADF4156",
       "1000.2",
       {"0100001111000000", "11000001110", "100100110000001000001000", "001000000000000010011000"}},
      {"ADF4252",
       "200.2",
       {"11000000011", "0100000101100000", "100010011000000100000", "000100000000000001010000"}},
      {"ADF4251",
       "200.2",
       {"11000000011", "0100000101100000", "100010011000000100000", "000100000000000001010000"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.model);
    ProgramBench bench;
    bench.open();
    bench.pick(row.model);
    bench.tune(row.vco, "4/5");
    bench.forget();
    bench.click("AllCommand");
    EXPECT_TRUE(bench.messages().empty());
    const Texts captions = {"Mregister", "Fregister", "Rregister", "Nregister"};
    Texts sent;
    for (std::size_t i = 0; i < captions.size(); ++i) {
      EXPECT_EQ(bench.value(captions[i]), reversed(row.stored[i])) << captions[i];
      sent.push_back(reversed(row.stored[i]));
    }
    EXPECT_EQ(bench.host.port.latches(), sent);
    EXPECT_EQ(bench.value("PFDLabel"), "10000");
  }
}

TEST(FractionalCommands, FaultOfTheADF4153KeepsTheWordsBuiltBeforeItAndLoads) {
  ProgramBench bench;
  bench.open();
  bench.pick("ADF4153");
  bench.tune("1000.2", "4/5");
  bench.click("AllCommand");
  const std::string oldR = bench.value("Rregister");
  bench.forget();
  bench.set("VCOText", "1010");
  bench.window.Text27.Text = "1";
  bench.window.Text26.Text = "16";  // beyond the four bits of the control word
  bench.click("AllCommand");
  ASSERT_EQ(bench.host.screen.messages.size(), 1U);
  EXPECT_EQ(bench.host.screen.messages[0].icon, Icon::critical);
  EXPECT_NE(bench.messages()[0].find("16"), std::string::npos);
  EXPECT_EQ(bench.value("Nregister"), bits(101U << 14U, 24)) << "INT = 101, FRAC = 0";
  EXPECT_EQ(bench.value("Rregister"), oldR);
  EXPECT_EQ(bench.host.port.latches().size(), 4U) << "the load goes on";
}

struct ADF4193Bench : ProgramBench {
  explicit ADF4193Bench(int wayOut = 0) {
    open(wayOut);
    pick("ADF4193");
    set("RefText", "104");
    set("CompText", "200");
    set("PrescalarText", "8/9");
    set("VCOText", "1747.2");
    forget();
  }
  // What a click brings to the chip.
  Texts sentBy(const std::string& button) {
    forget();
    click(button);
    if (program.module.PortType == "LPT") return host.port.latches();
    Texts words;
    for (const std::string& call : host.usb.calls) {
      if (call.starts_with("shift ")) words.push_back(reversed(call.substr(call.rfind(' ') + 1)));
    }
    return words;
  }
};

const std::string kR0 = bits(0x2180D0, 24);
const std::string kR1 = bits(0x510411, 24);
const std::string kR2 = bits(0x0002, 16);
const std::string kR3 = bits(0x004B, 16);
const std::string kR4 = bits(0x004004, 24);
const std::string kR4Second = bits(0x00400C, 24);
const std::string kR4Third = bits(0x007FF4, 24);
const std::string kR5 = bits(0x05, 8);
const std::string kR6 = bits(0x000E, 16);
const Texts kPowerUp = {bits(0xFD, 8),
                        bits(0x005B, 16),
                        bits(0x0007, 16),
                        bits(0x000E, 16),
                        bits(0x900E, 16),
                        kR4Third,
                        kR4Second,
                        kR4,
                        kR2,
                        kR1,
                        kR0,
                        bits(0x007B, 16),
                        bits(0x05, 8),
                        kR0};

TEST(ADF4193Commands, UpdateSendsWhatHasChanged) {
  ADF4193Bench bench;
  EXPECT_EQ(bench.sentBy("Command14(0)"), (Texts{kR1, kR2, kR0, kR3, kR4, kR4Second, kR4Third, kR5, kR6}));
  EXPECT_EQ(bench.value("PFDLabel"), "26000");
  EXPECT_EQ(bench.value("Label21(0)"), "R0: " + reversed(kR0)) << "as stored";
  EXPECT_EQ(bench.value("Label21(2)"), "R2: " + kR2) << "in natural order";
  EXPECT_EQ(bench.value("Label21(8)"), "R4_3: " + reversed(kR4Third));
  EXPECT_EQ(bench.value("Label21(9)"), "00");
  EXPECT_EQ(bench.value("Fregister"), "000000000000000000000000");

  EXPECT_EQ(bench.sentBy("Command14(0)"), Texts{});
  EXPECT_EQ(bench.host.port.bytes(), std::vector<int>{0}) << "nothing changed: all lines low and no word";

  bench.window.Text36(1).Text = "5";
  EXPECT_EQ(bench.sentBy("Command14(0)"), Texts{bits(0x002A, 16)});
  bench.window.Combo10(4).ListIndex = 3;  // "Not Used": the second and third word vanish unsent
  EXPECT_EQ(bench.sentBy("Command14(0)"), Texts{bits(0x00401C, 24)});
  EXPECT_EQ(bench.pll.Current_R4_2, "");
}

TEST(ADF4193Commands, InitializationSendsThePowerUpAndFullLoadsRepeatIt) {
  ADF4193Bench bench;
  const auto before = bench.host.clock.elapsed;
  EXPECT_EQ(bench.sentBy("Command14(1)"), kPowerUp);
  EXPECT_EQ(bench.host.clock.elapsed - before, 340000);
  EXPECT_NE(bench.host.port.bytes().back(), 0) << "no final write";
  EXPECT_EQ(bench.sentBy("Command14(0)").size(), 8U) << "it took no copies but that of R2";

  bench.click("Sweep1");
  bench.set("StartText1", "1747.2");
  bench.set("StopText1", "1747.2");
  Texts full = kPowerUp;  // once by the start of the sweep, once by the load
  full.insert(full.end(), kPowerUp.begin(), kPowerUp.end());
  full.insert(full.end(),
              {kR1, kR2, kR0, bits(0x007B, 16), kR4, kR4Second, kR4Third, bits(0x05, 8), bits(0x900E, 16)});
  EXPECT_EQ(bench.sentBy("StartSweepCommand"), full);
  bench.click("Gen1");
  EXPECT_EQ(bench.sentBy("Command14(0)"), (Texts{kR3, kR6}))
      << "the panel's words, where the power-up's differ";
}

TEST(ADF4193Commands, PhaseLoadIsRememberedOnTheParallelPortAlone) {
  const std::string phase = bits(0x0052, 16);
  for (const int wayOut : {0, 1}) {
    SCOPED_TRACE(wayOut);
    ADF4193Bench bench(wayOut);
    bench.click("Command14(0)");
    bench.window.Text36(1).Text = "10";
    EXPECT_EQ(bench.sentBy("Command14(2)"), Texts{phase});
    EXPECT_EQ(bench.sentBy("Command14(0)"), wayOut == 0 ? Texts{} : Texts{phase});
  }
}

TEST(ADF4193Commands, NothingToTuneStillReadsLockDetect) {
  ADF4193Bench bench(1);
  for (const char* vco : {"", "0", "-5", "x"}) {
    bench.set("VCOText", vco);
    bench.host.usb.lockPin = 1;
    EXPECT_EQ(bench.sentBy("Command14(1)"), Texts{});
    EXPECT_EQ(bench.host.usb.calls, Texts{"pin A3"});
    EXPECT_EQ(bench.value("LDLabel"), "Lock Detect On");
  }
}

TEST(ADF4193Commands, SetupFileTakesThePlaceOfThePanel) {
  ADF4193Bench bench;
  bench.set("PrescalarText", "4/5");
  bench.set("RefText", "");
  bench.set("Text38", std::string(TESSARINE_SOURCE_DIR) + "/examples/adf4193-26mhz.setup");
  for (int twice = 0; twice < 2; ++twice) {
    bench.click("Command14(0)");
    EXPECT_TRUE(bench.messages().empty());
    EXPECT_EQ(reversed(bench.pll.R0), kR0);
    EXPECT_EQ(reversed(bench.pll.r1), kR1) << "prescaler 8 from the file";
    EXPECT_EQ(bench.value("Label21(2)"), "R2: 0" + bits(26 * 37 % 130, 12) + "010");
    EXPECT_EQ(reversed(bench.pll.R4), "0000000001" + bits(21, 9) + "10100");
    EXPECT_EQ(reversed(bench.pll.R4_2), "0000000001" + bits(28, 9) + "00100");
    EXPECT_EQ(reversed(bench.pll.R4_3), "0000000001" + bits(28, 9) + "01100");
  }
}

TEST(SKYCommands, TheChipGetsTheWordsOfTheLoadBefore) {
  ProgramBench bench;
  bench.open();
  bench.pick("SKY72300-362");
  bench.set("PrescalarText", "8/9");
  bench.set("RefText", "10");
  bench.set("VCOText", "1234.567");
  bench.window.Text47.Text = std::string(TESSARINE_SOURCE_DIR) + "/examples/sky72300-bands.setup";
  bench.forget();
  bench.click("CalculateCommand");
  EXPECT_EQ(bench.host.port.latches(), Texts(10)) << "ten pulses without data";
  const Texts words = {"0000000001011011", "0001000111010011", "0010000010101001", "0011000000000000",
                       "0100000000000000", "0101000000000000", "0110011111010100", "0111000000010000",
                       "1000000000000000", "1001000000000000"};
  Texts shown;
  for (int i = 0; i < 10; ++i) shown.push_back(bench.value("Label21(" + std::to_string(i) + ")").substr(4));
  EXPECT_EQ(shown, words);
  bench.forget();
  bench.set("VCOText", "1300");
  bench.click("AllCommand");
  EXPECT_EQ(bench.host.port.latches(), words);
  bench.forget();
  bench.set("PrescalarText", "");
  bench.click("AllCommand");  // refused, and sent all the same
  bench.click("AllCommand");
  const Texts twice = bench.host.port.latches();
  ASSERT_EQ(twice.size(), 20U);
  EXPECT_TRUE(std::equal(twice.begin(), twice.begin() + 10, twice.begin() + 10))
      << "and turned back each time";
  EXPECT_EQ(twice[0], "0000000001100010") << "130 - 32";
}

}  // namespace
}  // namespace tessarine
