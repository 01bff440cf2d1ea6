#include <gtest/gtest.h>

#include <numeric>
#include <string>

#include "support/ChipBench.h"

namespace tessarine {
namespace {

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
