// The setting that a file of bands gives in place of the panel's.
#include <gtest/gtest.h>

#include <bitset>
#include <optional>
#include <string>
#include <vector>

#include "support/ChipBench.h"

namespace tessarine {
namespace {

using Rows = ChipBench::Bands;

constexpr const char* kSky = "SKY72300-362";
const String kXs(32, 'x');
const String kNoNumber = "high\033[2J" + kXs + "xxxxxxxx";
const Rows kBands{{800, 900, "011"}, {900, 1000, "101"}, {0, 0, ""}};

const struct {
  const char* name;
  const char* model;
  double Fvco;
  Rows rows;
  unsigned setting;                      // as it stands in the word
  std::optional<String> complaint = {};  // of a code: the panel's setting stays, 0 or 10
} kCases[] = {
    {"on the bound of both bands the second wins", "ADF4113", 900, kBands, 5},
    {"on the lower bound", "ADF4113", 800, kBands, 3},
    {"outside all bands the first row serves", "ADF4113", 700, kBands, 3},
    {"so it does for a row without a code", "ADF4113", 0, kBands, 3},
    {"a bound is a Single", "ADF4113", 900.1, {{1, 2, "111"}, {900.1F, 900.1F, "001"}}, 1},
    {"other models do not look", "ADF4112", 900, kBands, 0},
    {"an empty table", "ADF4113", 900, {}, 0, "900 MHz (\"\")"},
    {"a code too long", "ADF4113", 850.5, {{800, 900, "0110"}}, 0, "850.5 MHz (\"0110\")"},
    {"a code that is not binary", "ADF4113", 850, {{800, 900, "012"}}, 0, "850 MHz (\"012\")"},
    {"the last match wins", kSky, 1200, {{1000, 1300, "3"}, {1000, 1300, "4"}, {1, 2, "5"}}, 4},
    {"outside all bands the first row serves", kSky, 1200, {{1, 2, "9"}, {3, 4, "8"}}, 9},
    {"the most", kSky, 1200, {{1000, 1300, "31"}}, 31},
    {"to even", kSky, 1200, {{1000, 1300, "8.5"}}, 8},
    {"the least", kSky, 1200, {{1000, 1300, "0"}}, 0},
    {"no code", kSky, 1200, {{1000, 1300, ""}}, 10, "1200 MHz (\"\")"},
    {"no number", kSky, 1200, {{1000, 1300, kNoNumber}}, 10, "1200 MHz (\"high?[2J" + kXs + "...\")"},
    {"a sign alone", kSky, 1200, {{1000, 1300, "-"}}, 10, "1200 MHz (\"-\")"},
    {"an empty table", kSky, 1200, {}, 10, "1200 MHz (\"\")"},
};

TEST(Bands, GiveTheSettingOrSayWhyNot) {
  for (const auto& c : kCases) {
    SCOPED_TRACE(std::string(c.model) + ": " + c.name);
    const bool sky = c.model == kSky;
    ChipBench bench(c.model, c.Fvco);
    if (sky && !c.complaint) bench.pll.Main_ChrgPump = 99;  // without effect
    bench.useBands(c.rows);
    bench.calculate();
    bench.calculate();  // on the bits that the first run has left
    if (sky) {
      EXPECT_EQ(bench.pll.R6, "01101001010" + std::bitset<5>(c.setting).to_string());
    } else {
      const String set2 = reversed({std::bitset<3>(c.setting).to_string()})[0];
      EXPECT_EQ(bench.pll.FStr, "010010010000000111" + set2 + "000");
    }
    const String kind = sky ? "charge-pump value" : "current setting of three binary digits";
    const String panels = sky ? "main charge pump" : "Current Set2";
    std::vector<Message> messages;
    if (c.complaint)
      messages.assign(2, {"\"bands.txt\" gives no " + kind + " for " + *c.complaint + ". The panel's " +
                              panels + " is used.",
                          Icon::critical, kApplicationTitle});
    EXPECT_EQ(bench.host.screen.messages, messages);
  }
}

}  // namespace
}  // namespace tessarine
