#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ChipBench.h"

namespace tessarine {
namespace {

TEST(IntegerN, WordsOfEachFamilyAsTheyGoOut) {
  const struct {
    const char* what;
    const char* model;
    Integer prescaler;
    void (*panel)(ChipBench&);
    Words words;  // F, R, N
  } cases[] = {
      {"gain, initialization, first and last bit of the panel", "ADF4110", 8,
       [](auto& b) { b.pll.CPGain = b.pll.FuncInit = "1", b.pll.FAnalogDevice = "10000000000000000001"; },
       "200007/24 C8/24 223211/24"_w},
      {"the panel's gain", "LMX2316", 32, [](auto&) {}, "1092/21 C8/21 104651/21"_w},
      {"no gain chosen yet, negative polarity", "ADF4118", 32,
       [](auto& b) { b.pll.GoBit = "", b.module.PolarityNegative = kTrue; }, "1012/21 C8/21 4651/20"_w},
      {"lock detect precision, no gain", "LMX2306", 32, [](auto&) {}, "1092/21 1000C8/21 4651/21"_w},
      {"gain at moduli below 30", "LMX2306", 29, [](auto&) {}, "1092/21 1000C8/21 104D95/21"_w},
      {"none at 30", "LMX2306", 30, [](auto&) {}, "1092/21 1000C8/21 4B01/21"_w},
      {"no function word", "LMX2325", 32, [](auto&) {}, "0/0 8065/19 8C28/19"_w},
      {"the other number of a pair", "LMX2325", 65, [](auto&) {}, "0/0 65/19 451E/19"_w},
      {"no words at all", "ADF4108", 8, [](auto&) {}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.model) + ": " + c.what);
    ChipBench bench(c.model, 900, c.prescaler);
    c.panel(bench);
    bench.pll.SetPLL();
    EXPECT_EQ(bench.host.port.latches(), c.words);
    EXPECT_EQ(PLLProbe::nTotal(bench.pll), 4500);
    EXPECT_EQ(PLLProbe::rTotal(bench.pll), 50);
  }
}

}  // namespace
}  // namespace tessarine
