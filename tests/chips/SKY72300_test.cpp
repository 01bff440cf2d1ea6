#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "support/ChipBench.h"

namespace tessarine {
namespace {

constexpr const char* kModel = "SKY72300-362";

TEST(SKY72300, TenWordsAndTheirCaptions) {
  ChipBench bench(kModel, 1234.567);
  bench.calculate();
  const Words expected = "5B/16 11D3/16 20A9/16 3000/16 4000/16 5000/16 694A/16 7001/16 8200/16 9C03/16"_w;
  EXPECT_EQ(bench.numbered(), expected);
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_EQ(bench.view.words[static_cast<int>(i)], "R" + std::to_string(i) + ": " + expected[i]);
}

TEST(SKY72300, DivisionAndFraction) {
  const struct {
    const char* name;
    double Fvco;
    Words words;  // R0 to R2, R5
    Integer refDiv = 1;
  } cases[] = {
      {"whole multiple", 1230, "5B/16 1000/16 2000/16 5000/16"_w},
      {"negative fraction", 1236, "5C/16 1266/16 2066/16 5000/16"_w},
      {"a half goes up", 1235, "5C/16 1200/16 2000/16 5000/16"_w},
      {"a half goes up from an even number too", 1225, "5B/16 1200/16 2000/16 5000/16"_w},
      {"1/128 is 0.007813", 1230.078125, "5B/16 1008/16 2000/16 5000/16"_w},
      {"0.0000005 is a millionth, no step", 1230.000005, "5B/16 1000/16 2000/16 5000/16"_w},
      {"0.0000019 is two millionths, one step", 1230.000019, "5B/16 1000/16 2001/16 5000/16"_w},
      {"largest reference division", 100, "120/16 1000/16 2000/16 501F/16"_w, 32},
      {"smallest ratio", 320, "0/16 1000/16 2000/16 5000/16"_w},
      {"largest ratio", 5430, "1FF/16 1000/16 2000/16 5000/16"_w},
  };
  for (const auto& c : cases) {
    ChipBench bench(kModel, c.Fvco);
    bench.pll.Main_RefDiv = c.refDiv;
    bench.calculate();
    EXPECT_EQ((Words{bench.pll.R0, bench.pll.r1, bench.pll.R2, bench.pll.R5}), c.words) << c.name;
  }
}

TEST(SKY72300, ChargePumpByBand) {
  const struct {
    ChipBench::Bands rows;
    unsigned pump;
    std::optional<String> complaint = {};  // the panel's pump, 10, stays
  } cases[] = {
      {{{1000, 1300, "3"}, {1000, 1300, "4"}, {1, 2, "5"}}, 4},
      {{{1, 2, "9"}, {3, 4, "8"}}, 9},
      {{{1000, 1300, "13"}}, 13},
      {{{1000, 1300, "31"}}, 31},
      {{{1000, 1300, "8.5"}}, 8},
      {{{1000, 1300, "0"}}, 0},
      {{{1000, 1300, ""}}, 10, ""},
      {{{1000, 1300, "high\033[2J" + String(40, 'x')}}, 10, "high?[2J" + String(32, 'x') + "..."},
      {{{1000, 1300, "-"}}, 10, "-"},
      {{}, 10, ""},
  };
  for (const auto& c : cases) {
    ChipBench bench(kModel, 1234.567);
    if (!c.complaint) bench.pll.Main_ChrgPump = 99;  // without effect
    bench.useBands(c.rows);
    bench.calculate();
    EXPECT_EQ(std::stoul(bench.pll.R6.substr(11), nullptr, 2), c.pump);
    std::vector<Message> messages;
    if (c.complaint) {
      messages = {{"\"bands.txt\" gives no charge-pump value for 1234.567 MHz (\"" + *c.complaint +
                       "\"). The panel's main charge pump is used.",
                   Icon::critical, kApplicationTitle}};
    }
    EXPECT_EQ(bench.host.screen.messages, messages);
  }
}

}  // namespace
}  // namespace tessarine
