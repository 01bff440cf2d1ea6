// What a calculation refuses, by the chip. apps/ReachReader_test.cpp has the texts of the rest.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

#include "support/ChipBench.h"
#include "support/FaultOf.h"

namespace tessarine {
namespace {

void usePump(ChipBench& bench, const char* code) { bench.useBands({{1, 2, code}}); }

TEST(Faults, ARefusedCalculationChangesNothingButWordsThatAnADF4153HasBuilt) {
  const struct {
    const char* model;
    void (*set)(ChipBench&);
    const char* text;
    std::size_t newWords = 0;  // of N, R, control, noise of the ADF4153, which shows its fault itself
  } cases[] = {
      {"ADF4113", [](auto& b) { b.pll.Fvco = 270, b.pll.PreScalar = 128; },
       "A = 70 does not fit 6 bits (0 to 63)"},
      {"LMX2315", [](auto& b) { b.pll.Fvco = 76.8, b.pll.PreScalar = 256; },
       "A = 128 does not fit 7 bits (0 to 127)"},
      {"LMX2306", [](auto& b) { b.pll.Fvco = -900; }, "B = -563 does not fit 13 bits (0 to 8191)"},
      {"ADF4112", [](auto& b) { b.pll.Fvco = 1e300; }, "B = 6.25e+299 does not fit 13 bits (0 to 8191)"},
      {"ADF4110", [](auto& b) { b.pll.Fosc = 3276.8; }, "R = 16384 does not fit 14 bits (0 to 16383)"},
      {"LMX2326", [](auto& b) { b.pll.Fosc = 3276.8; }, "R = 16384 does not fit 14 bits (0 to 16383)"},
      {"LMX2320", [](auto& b) { b.pll.Fosc = 3276.8; }, "R = 16384 does not fit 14 bits (0 to 16383)"},
      {"ADF4113", [](auto& b) { b.pll.Fvco = HUGE_VAL; }, "VCO Output Frequency is too large"},
      {"ADF4113", [](auto& b) { b.pll.Fosc = HUGE_VAL; }, "Reference Frequency is too large"},
      {"LMX2325", [](auto& b) { b.pll.Fosc = 1e308, b.pll.Fcomp = 0.5; },
       "Step Resolution = 0.5 kHz cannot divide 900 MHz and 1e+308 MHz"},
      {"ADF4252", [](auto& b) { b.pll.Fosc = 1e39; }, "Reference Frequency = 1e+39 MHz is too large"},
      {"ADF4252", [](auto& b) { b.pll.Fcomp = 2; }, "MOD = 5000 does not fit 12 bits (0 to 4095)"},
      {"ADF4193", [](auto& b) { b.pll.Fosc = 1e39; }, "Reference Frequency = 1e+39 MHz is too large"},
      {"ADF4193", [](auto& b) { b.useFracFile(), b.pll.PFDFromFile = 0; },
       "PFD of the setup file = 0 MHz must be above 0"},
      {"ADF4193", [](auto& b) { b.useFracFile(), b.pll.ModFromFile = 4096; },
       "MOD = 4096 does not fit 12 bits (0 to 4095)"},
      {"SKY72300-362", [](auto& b) { b.pll.Main_ChrgPump = 32; },
       "Main charge pump = 32 does not fit 5 bits (0 to 31)"},
      {"SKY72300-362", [](auto& b) { usePump(b, "32"); },
       "Charge pump of the band file = 32 cannot be used (0 to 31)"},
      {"SKY72300-362", [](auto& b) { usePump(b, "-1"); },
       "Charge pump of the band file = -1 cannot be used (0 to 31)"},
      {"ADF4153", [](auto& b) { b.pll.Fosc = 1e39; }, "Reference Frequency = 1e+39 MHz is too large"},
      {"ADF4153", [](auto& b) { b.pll.Fvco = 5120; }, "INT = 512 does not fit 9 bits (0 to 511)"},
      {"ADF4153", [](auto& b) { b.pll.Fcomp = 2; }, "MOD = 5000 does not fit 12 bits (0 to 4095)", 1},
      {"ADF4153", [](auto& b) { b.pll.RCounter_4531 = 16, b.pll.Fvco = 100.4; },
       "R counter = 16 does not fit 4 bits (0 to 15)", 1},
      {"ADF4153", [](auto& b) { b.pll.Resync_4531 = 16; }, "Resync = 16 does not fit 4 bits (0 to 15)", 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.model) + ": " + c.text);
    ChipBench bench(c.model, 904.2);
    bench.calculate();
    bench.view.detectorFrequency = "as it was";
    const Words lettered = bench.lettered();
    const auto numbered = [&bench] {
      return std::tuple(bench.numbered(), bench.pll.R4_2, bench.pll.R4_3, bench.view.words);
    };
    const auto before = numbered();
    // Something new for every word.
    PLL& pll = bench.pll;
    pll.Fvco = 900;
    pll.CPGain = pll.LDPrecision = pll.FuncInit = "1";
    bench.module.PolarityNegative = kTrue;
    pll.MasterReg = pll.RFcontrolREG = pll.MultiplexerReg = "new";
    pll.R3_CPO = "1", pll.MuxOut_4531 = "110";
    pll.CP3StateON_4531 = 1, pll.NoiseSpurMode_4531 = 2;
    c.set(bench);
    const std::string fault = faultOf([&] { PLLProbe::calcRegisters(pll); });
    if (c.model == std::string("ADF4153")) {
      EXPECT_EQ(bench.host.screen.messages,
                (std::vector<Message>{{c.text, Icon::critical, kApplicationTitle}}));
      EXPECT_EQ(bench.view.detectorFrequency.find("inf"), std::string::npos);
    } else {
      EXPECT_EQ(fault, c.text);
      EXPECT_TRUE(bench.host.screen.messages.empty());
      EXPECT_EQ(bench.view.detectorFrequency, "as it was");
    }
    const Words after = bench.lettered();
    for (std::size_t i = 0; i < after.size(); ++i) {
      EXPECT_EQ(after[i].size(), lettered[i].size()) << i;
      EXPECT_EQ(after[i] != lettered[i], i < c.newWords) << i;
    }
    EXPECT_EQ(numbered(), before);
    EXPECT_NE(pll.PreScalar, pll.PreScalarFromFile);
  }
}

}  // namespace
}  // namespace tessarine
