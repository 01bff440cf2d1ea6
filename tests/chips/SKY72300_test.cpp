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

}  // namespace
}  // namespace tessarine
