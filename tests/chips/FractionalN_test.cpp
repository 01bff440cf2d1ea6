#include <gtest/gtest.h>

#include <numeric>
#include <string>

#include "support/ChipBench.h"

namespace tessarine {
namespace {

TEST(FractionalN, RatioAndCaption) {
  const struct {
    const char* name;
    double Fosc;
    const char* R;
    Integer D;
    double Fcomp, Fvco;
    unsigned INT, FRAC, MOD;
    const char* caption;
    unsigned narrowMOD = MOD;  // of the ADF4252
  } cases[] = {
      {"whole multiple", 10, "1", 0, 200, 1000, 100, 0, 50, "10000"},
      {"half a step goes up", 10, "1", 0, 200, 1000.1, 100, 1, 50, "10000"},
      {"FRAC equals MOD", 10, "1", 0, 200, 1009.94, 100, 50, 50, "10000"},
      {"MOD is floored after the Single", 26, "3", 0, 200, 1000, 115, 17, 43, "8666.667"},
      {"MOD 0.00005 short, wide and narrow guard", 10, "1", 0, 200.0002, 205.1, 20, 25, 50, "10000", 49},
      {"step above the detector frequency", 10, "1", 0, 20000, 1003, 100, 0, 0, "10000"},
      {"doubler", 10, "1", 1, 200, 1000.2, 50, 1, 100, "20000"},
      {"the Single lies above 19.2", 19.2, "1", 0, 100, 1747.2, 90, 192, 192, "19200"},
      {"no output frequency", 10, "4", 0, 7, 0, 0, 0, 357, "2500"},
      {"a fraction in the R of the ADF4252's panel", 15, "1.5", 0, 200, 1000, 100, 0, 50, "10000"},
  };
  for (const auto& c : cases) {
    for (const bool wide : {true, false}) {  // two control bits, INT of nine
      if (wide && c.R == std::string("1.5")) continue;
      ChipBench bench(wide ? "ADF4153" : "ADF4252", c.Fvco, 4);
      SCOPED_TRACE(bench.module.CurrentModel + ": " + c.name);
      bench.pll.Fosc = c.Fosc, bench.pll.Fcomp = c.Fcomp;
      bench.pll.RF_R_Counter = c.R, bench.pll.RCounter_4531 = static_cast<Integer>(std::stoi(c.R));
      bench.pll.DoublerEnabled_4531 = c.D, bench.pll.RFRefDoubler = std::to_string(c.D);
      bench.calculate();
      EXPECT_EQ(bitsOf(bench.pll.Nstr, wide ? 14 : 15, wide ? 9 : 8), c.INT);
      EXPECT_EQ(bitsOf(bench.pll.Nstr, wide ? 2 : 3, 12), c.FRAC);
      EXPECT_EQ(bitsOf(bench.pll.Rstr, wide ? 2 : 3, 12), wide ? c.MOD : c.narrowMOD);
      EXPECT_EQ(bench.view.detectorFrequency, c.caption);
      EXPECT_TRUE(bench.host.screen.messages.empty());
    }
  }
}

TEST(FractionalN, AnUnknownNoiseModeHasNoBits) {
  ChipBench bench("ADF4153", 1000.2);
  bench.pll.NoiseSpurMode_4531 = 3;
  bench.calculate();
  EXPECT_EQ(bench.pll.FStr, "110000");
}

TEST(FractionalN, LCDModeCarriesTheReducedFraction) {
  const struct {
    double Fcomp, Fvco;
    unsigned FRAC, MOD;
  } cases[] = {{10, 1000.05, 1, 200}, {10, 1000, 0, 1000}, {1.25, 1006.25, 5, 8}};  // 5000/8000: too wide
  for (const auto& c : cases) {
    ChipBench bench("ADF4153", c.Fvco);
    bench.pll.Normal_LCD_Mode_4531 = 1;
    bench.pll.Fcomp = c.Fcomp;
    bench.calculate();
    EXPECT_EQ(bitsOf(bench.pll.Nstr, 2, 12), c.FRAC);
    EXPECT_EQ(bitsOf(bench.pll.Rstr, 2, 12), c.MOD);
    EXPECT_TRUE(bench.host.screen.messages.empty());
  }
}

TEST(FractionalN, LowestTerms) {
  for (Integer fraction = 0; fraction <= 120; ++fraction) {
    for (Integer modulus = 1; modulus <= 120; ++modulus) {
      const int divisor = fraction == 0 ? 1 : std::gcd(fraction, modulus);
      for (const auto makeLCD : {PLL::MakeLCD, PLL::MakeLCD_Orvel}) {
        Integer numerator = fraction;
        Integer denominator = modulus;
        makeLCD(numerator, denominator);
        ASSERT_EQ(numerator, fraction / divisor) << fraction << '/' << modulus;
        ASSERT_EQ(denominator, modulus / divisor) << fraction << '/' << modulus;
      }
    }
  }
}

}  // namespace
}  // namespace tessarine
