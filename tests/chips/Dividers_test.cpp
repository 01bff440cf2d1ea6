// What each family makes of a ratio of frequencies, at the edges of its rounding.
#include <gtest/gtest.h>

#include <bitset>
#include <numeric>
#include <string>

#include "engine/BitStrings.h"
#include "engine/Numbers.h"
#include "support/ChipBench.h"

namespace tessarine {
namespace {

const struct {
  const char* name;
  const char* model;
  double Fosc, Fcomp, Fvco;
  const char* dividers;  // of the fractional chips with the caption of the detector frequency
  const char* R = "1";
  Integer D = 0, prescaler = 8, lowestTerms = 0;
} kRows[] = {
    {"whole multiple", "ADF4113", 50, 1000, 6400, "B 100 A 0 R 50", "1", 0, 64},
    {"half a thousand-millionth below is noise", "ADF4113", 50, 1000, 799.999999996, "B 100 A 0 R 50"},
    {"five of them are none", "ADF4113", 50, 1000, 799.99999996, "B 99 A 8 R 50"},
    {"A reaches P, and nothing is carried", "ADF4113", 50, 1000, 4511.7, "B 563 A 8 R 50"},
    {"half a cycle goes up, R down", "ADF4113", 49.999999, 1000, 4500.5, "B 562 A 5 R 49"},
    {"half a cycle goes up", "LMX2326", 50, 1000, 4500.5, "B 140 A 21 R 50", "1", 0, 32},
    {"all go down", "LMX2315", 50.9, 1000, 4500.7, "B 70 A 20 R 50", "1", 0, 64},
    {"A is a hair below 0", "LMX2315", 50, 1000, 6399.9999999999, "B 100 A 0 R 50", "1", 0, 64},

    {"whole multiple", "ADF4153", 10, 200, 1000, "100+0/50 at 10000"},
    {"half a step goes up", "ADF4252", 10, 200, 1000.1, "100+1/50 at 10000"},
    {"FRAC equals MOD", "ADF4153", 10, 200, 1009.94, "100+50/50 at 10000"},
    {"MOD is floored after the Single", "ADF4252", 26, 200, 1000, "115+17/43 at 8666.667", "3"},
    {"MOD 0.00005 short, wide guard", "ADF4153", 10, 200.0002, 205.1, "20+25/50 at 10000"},
    {"and narrow guard", "ADF4252", 10, 200.0002, 205.1, "20+25/49 at 10000"},
    {"MOD 0.000005 short", "ADF4252", 10, 200.00002, 205.1, "20+25/50 at 10000"},
    {"step above the detector frequency", "ADF4153", 10, 20000, 1003, "100+0/0 at 10000"},
    {"doubler", "ADF4153", 10, 200, 1000.2, "50+1/100 at 20000", "1", 1},
    {"the Single lies above 19.2", "ADF4153", 19.2, 100, 1747.2, "90+192/192 at 19200"},
    {"no output frequency", "ADF4252", 10, 7, 0, "0+0/357 at 2500", "4"},
    {"a fraction in R", "ADF4252", 15, 200, 1000, "100+0/50 at 10000", "1.5"},

    {"lowest terms", "ADF4153", 10, 10, 1000.05, "100+1/200 at 10000", "1", 0, 8, 1},
    {"lowest terms of no fraction", "ADF4153", 10, 10, 1000, "100+0/1000 at 10000", "1", 0, 8, 1},
    {"5000/8000, too wide before", "ADF4153", 10, 1.25, 1006.25, "100+5/8 at 10000", "1", 0, 8, 1},

    {"4/5", "ADF4252", 10, 200, 1000.2, "100+1/50 at 10000, 4/5", "1", 0, 4},
    {"4/5 for all that is not 8/9", "ADF4153", 10, 200, 1000.2, "100+1/50 at 10000, 4/5", "1", 0, 16},
    {"8/9 by its other number", "ADF4153", 10, 200, 1000.2, "100+1/50 at 10000", "1", 0, 9},

    {"whole multiple", "ADF4193", 26, 200, 1742, "67+0/130 at 26000"},
    {"the Single lies above 19.2", "ADF4193", 19.2, 100, 1747.2, "90+191/192 at 19200"},
    {"FRAC is floored", "ADF4193", 26, 200, 1747.3999, "67+26/130 at 26000"},
    {"FRAC 5 millionths short", "ADF4193", 26, 200, 1747.199999, "67+26/130 at 26000"},
    {"FRAC 50 millionths short", "ADF4193", 26, 200, 1747.19999, "67+25/130 at 26000"},
    {"MOD 0.00005 short", "ADF4193", 26, 200.0000769, 1747.2, "67+25/129 at 26000"},
    {"doubler", "ADF4193", 26, 200, 1747.2, "67+26/130 at 26000", "2", 1},

    {"negative fraction", "SKY72300-362", 10, 0, 1236, "32 + 92 + 157286 R 0"},
    {"a half goes up", "SKY72300-362", 10, 0, 1235, "32 + 92 + 131072 R 0"},
    {"a half goes up from an even number too", "SKY72300-362", 10, 0, 1225, "32 + 91 + 131072 R 0"},
    {"1/128 is 0.007813", "SKY72300-362", 10, 0, 1230.078125, "32 + 91 + 2048 R 0"},
    {"0.0000005 is a millionth, no step", "SKY72300-362", 10, 0, 1230.000005, "32 + 91 + 0 R 0"},
    {"0.0000019 is two millionths, one step", "SKY72300-362", 10, 0, 1230.000019, "32 + 91 + 1 R 0"},
    {"largest reference division", "SKY72300-362", 10, 0, 100, "32 + 288 + 0 R 31", "32"},
    {"smallest ratio", "SKY72300-362", 10, 0, 320, "32 + 0 + 0 R 0"},
    {"largest ratio", "SKY72300-362", 10, 0, 5430, "32 + 511 + 0 R 0"},
};

std::string dividersOf(const ChipBench& bench) {
  const PLL& pll = bench.pll;
  const String& model = bench.module.CurrentModel;
  const auto field = [](const String& word, std::size_t low, std::size_t width) {
    return std::to_string(bitsOf(word, low, width));
  };
  if (model == "ADF4113" || model.starts_with("LMX")) {
    return "B " + field(pll.Bstr, 0, 16) + " A " + field(pll.Astr, 0, 16) + " R " +
           field(pll.Rstr, model == "LMX2315" ? 1 : 2, 14);
  }
  if (model == "SKY72300-362") {  // whose words stand the other way round
    return "32 + " + field(ReverseStr(pll.R0), 0, 9) + " + " +
           field(ReverseStr(pll.r1.substr(6) + pll.R2.substr(8)), 0, 18) + " R " +
           field(ReverseStr(pll.R5), 0, 5);
  }
  const std::size_t control = model == "ADF4153" ? 2 : 3;
  return field(pll.Nstr, control + 12, 11 - control) + '+' + field(pll.Nstr, control, 12) + '/' +
         field(pll.Rstr, control, 12) + " at " + bench.view.detectorFrequency +
         (pll.Rstr[control == 2 ? 18 : 20] == '1' ? "" : ", 4/5");
}

TEST(Dividers, AtTheEdgesOfTheirRounding) {
  for (const auto& c : kRows) {
    ChipBench bench(c.model, c.Fvco, c.prescaler);
    PLL& pll = bench.pll;
    pll.Fosc = c.Fosc, pll.Fcomp = c.Fcomp;
    pll.RF_R_Counter = c.R, pll.RFRefDoubler = pll.R1_DoublerEnable = std::to_string(c.D);
    const Integer R = pll.RCounter_4531 = pll.Main_RefDiv = leadingInteger(c.R, "R");
    pll.DoublerEnabled_4531 = c.D, pll.Normal_LCD_Mode_4531 = c.lowestTerms;
    pll.R1_RFCounter = std::bitset<4>(static_cast<unsigned>(R)).to_string();
    bench.calculate();
    EXPECT_EQ(dividersOf(bench), c.dividers) << c.model << ": " << c.name;
    EXPECT_TRUE(bench.host.screen.messages.empty());
  }
}

TEST(Dividers, OfAFractionInLowestTerms) {
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
