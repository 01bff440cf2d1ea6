#include <string>
#include <vector>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

struct ADF4193Bench : ProgramBench {
  explicit ADF4193Bench(int wayOut = 0) : ProgramBench("ADF4193", wayOut) {
    tune("1747.2", "8/9", "104");
    forget();
  }
  // What a click brings to the chip.
  Words sentBy(const std::string& button) {
    forget();
    click(button);
    if (program.module.PortType == "LPT") return latches();
    Words words;
    for (const std::string& call : host.usb.calls)
      if (call.starts_with("shift ")) words.push_back(call.substr(call.rfind(' ') + 1));
    return reversed(words);
  }
};

const Words kPowerUp =
    "FD/8 5B/16 7/16 E/16 900E/16 7FF4/24 400C/24 4004/24 2/16 510411/24 2180D0/24 7B/16 5/8 2180D0/24"_w;

TEST(ADF4193Commands, UpdateSendsWhatHasChanged) {
  ADF4193Bench bench;
  EXPECT_EQ(bench.sentBy("Command14(0)"),
            "510411/24 2/16 2180D0/24 4B/16 4004/24 400C/24 7FF4/24 5/8 E/16"_w);
  EXPECT_EQ(bench.value("PFDLabel"), "26000");
  EXPECT_EQ(bench.value("Fregister"), std::string(24, '0')) << "nothing for the general captions";
  Texts labels;
  for (auto& [index, label] : bench.window.Label21.members()) labels.push_back(label.value());
  // As stored; R2 alone in natural order.
  EXPECT_EQ(labels, (Texts{"R0: 000010110000000110000100", "R1: 100010000010000010001010",
                           "R2: 0000000000000010", "R3: 1101001000000000", "R4: 001000000000001000000000",
                           "R5: 10100000", "R6: 0111000000000000", "R4_2: 001100000000001000000000",
                           "R4_3: 001011111111111000000000", "00"}));

  EXPECT_EQ(bench.sentBy("Command14(0)"), Words{});
  EXPECT_EQ(bench.host.port.bytes(), std::vector<int>{0}) << "nothing changed: all lines low and no word";

  bench.window.Text36(1).Text = "5";
  EXPECT_EQ(bench.sentBy("Command14(0)"), "2A/16"_w);
  bench.window.Combo10(4).ListIndex = 3;  // "Not Used": the second and third word vanish unsent
  EXPECT_EQ(bench.sentBy("Command14(0)"), "401C/24"_w);
}

TEST(ADF4193Commands, InitializationSendsThePowerUpAndFullLoadsRepeatIt) {
  ADF4193Bench bench;
  EXPECT_EQ(bench.sentBy("Command14(1)"), kPowerUp);
  EXPECT_EQ(bench.milliseconds(), 340);
  EXPECT_NE(bench.host.port.bytes().back(), 0) << "no final write";
  EXPECT_EQ(bench.sentBy("Command14(0)").size(), 8U) << "it took no copies but that of R2";

  bench.click("Sweep1");
  bench.set({{"StartText1", "1747.2"}, {"StopText1", "1747.2"}});
  Words full = kPowerUp;  // once by the start of the sweep, once by the load
  full.insert(full.end(), kPowerUp.begin(), kPowerUp.end());
  for (const auto& word : "510411/24 2/16 2180D0/24 7B/16 4004/24 400C/24 7FF4/24 5/8 900E/16"_w)
    full.push_back(word);
  EXPECT_EQ(bench.sentBy("StartSweepCommand"), full);
  bench.click("Gen1");
  EXPECT_EQ(bench.sentBy("Command14(0)"), "4B/16 E/16"_w) << "the panel's words, where the power-up's differ";
}

TEST(ADF4193Commands, PhaseLoadIsRememberedOnTheParallelPortAlone) {
  for (const int wayOut : {0, 1}) {
    ADF4193Bench bench(wayOut);
    bench.host.usb.lockPin = 1;
    bench.click("Command14(0)");
    EXPECT_EQ(bench.value("LDLabel"), wayOut == 0 ? "Lock Detect Off" : "Lock Detect On");
    bench.window.Text36(1).Text = "10";
    EXPECT_EQ(bench.sentBy("Command14(2)"), "52/16"_w);
    EXPECT_EQ(bench.sentBy("Command14(0)"), wayOut == 0 ? Words{} : "52/16"_w);
  }
}

}  // namespace
}  // namespace tessarine
