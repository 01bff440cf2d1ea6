#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <tuple>

#include "chips/WordReader.h"
#include "support/EngineBench.h"
#include "support/FaultOf.h"
#include "support/PLLProbe.h"

namespace tessarine {
namespace {

struct FractionalBench : EngineBench {
  explicit FractionalBench(const String& model) {
    module.CurrentModel = model;
    pll.Fosc = 10;
    pll.Fcomp = 200;
    pll.Fvco = 1000.2;
    pll.PreScalar = 4;
    pll.RF_R_Counter = "1";
    pll.RFRefDoubler = "0";
    pll.RFcontrolREG = "0100000101100000";
    pll.MasterReg = "11000000011";
    pll.RCounter_4531 = 1;
    pll.MuxOut_4531 = "001";
    pll.CPCurrentSetting_4531 = "0111";
    pll.RFPDPolarityPositive_4531 = 1;
  }

  void calculate() { EXPECT_TRUE(PLLProbe::calcRegisters(pll)); }
  [[nodiscard]] std::vector<String> words() const { return {pll.Nstr, pll.Rstr, pll.MStr, pll.FStr}; }
};

bool isADF4153(const String& model) { return model == "ADF4153" || model == "ADF4156"; }

TEST(FractionalN, TheADF4153WordsOfAPanelAtItsStartValues) {
  for (const char* model : {"ADF4153", "ADF4156"}) {
    FractionalBench bench(model);
    bench.calculate();
    EXPECT_EQ(bench.pll.Nstr, "001000000000000010011000");
    EXPECT_EQ(bench.pll.Rstr, "100100110000001000001000");
    EXPECT_EQ(bench.pll.MStr, "0100001111000000");
    EXPECT_EQ(bench.pll.FStr, "11000000000");
    EXPECT_EQ(bench.view.detectorFrequency, "10000");
    EXPECT_EQ(bench.pll.Astr, "0000") << "resync";
    EXPECT_EQ(bench.pll.Bstr, "0001") << "R";
    EXPECT_EQ(PLLProbe::rTotal(bench.pll), 1);
  }
}

TEST(FractionalN, TheADF4252WordsAreThreeBitsApartInLength) {
  for (const char* model : {"ADF4251", "ADF4252"}) {
    FractionalBench bench(model);
    bench.pll.Fvco = 200.2;
    bench.calculate();
    EXPECT_EQ(bench.pll.Nstr, "000100000000000001010000");
    EXPECT_EQ(bench.pll.Rstr, "100010011000000100000");
    EXPECT_EQ(bench.pll.MStr, "11000000011");
    EXPECT_EQ(bench.pll.FStr, "0100000101100000");
    EXPECT_EQ(bench.view.detectorFrequency, "10000");
    EXPECT_EQ(bench.pll.Astr, "010011000000") << "MOD";
    EXPECT_EQ(bench.pll.Bstr, "1000") << "R";
  }
}

TEST(FractionalN, RatioAndCaption) {
  struct Case {
    const char* name;
    const char* model;
    double Fosc, R, D, Fcomp, Fvco;
    unsigned INT, FRAC, MOD;
    const char* caption;
  };
  const Case cases[] = {
      {"whole multiple", "ADF4153", 10, 1, 0, 200, 1000, 100, 0, 50, "10000"},
      {"half a step goes up", "ADF4153", 10, 1, 0, 200, 1000.1, 100, 1, 50, "10000"},
      {"FRAC equals MOD", "ADF4153", 10, 1, 0, 200, 1009.94, 100, 50, 50, "10000"},
      {"FRAC equals MOD", "ADF4252", 10, 1, 0, 200, 1009.94, 100, 50, 50, "10000"},
      {"MOD is floored after the Single", "ADF4153", 26, 3, 0, 200, 1000, 115, 17, 43, "8666.667"},
      {"MOD is floored after the Single", "ADF4252", 26, 3, 0, 200, 1000, 115, 17, 43, "8666.667"},
      {"MOD 0.00005 short, wide guard", "ADF4153", 10, 1, 0, 200.0002, 205.1, 20, 25, 50, "10000"},
      {"MOD 0.00005 short, narrow guard", "ADF4252", 10, 1, 0, 200.0002, 205.1, 20, 25, 49, "10000"},
      {"step above the detector frequency", "ADF4153", 10, 1, 0, 20000, 1003, 100, 0, 0, "10000"},
      {"step above the detector frequency", "ADF4252", 10, 1, 0, 20000, 1003, 100, 0, 0, "10000"},
      {"doubler", "ADF4153", 10, 1, 1, 200, 1000.2, 50, 1, 100, "20000"},
      {"doubler", "ADF4252", 10, 1, 1, 200, 1000.2, 50, 1, 100, "20000"},
      {"the Single lies above 19.2", "ADF4153", 19.2, 1, 0, 100, 1747.2, 90, 192, 192, "19200"},
      {"the Single lies above 19.2", "ADF4252", 19.2, 1, 0, 100, 1747.2, 90, 192, 192, "19200"},
      {"seven digits of the caption", "ADF4252", 10, 3, 0, 200, 100, 30, 0, 16, "3333.333"},
      {"no output frequency", "ADF4252", 10, 4, 0, 7, 0, 0, 0, 357, "2500"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(std::string(each.model) + ": " + each.name);
    FractionalBench bench(each.model);
    bench.pll.Fosc = each.Fosc;
    bench.pll.Fcomp = each.Fcomp;
    bench.pll.Fvco = each.Fvco;
    bench.pll.RCounter_4531 = static_cast<Integer>(each.R);
    bench.pll.RF_R_Counter = std::to_string(static_cast<int>(each.R));
    bench.pll.DoublerEnabled_4531 = each.D > 0 ? 1 : 0;
    bench.pll.RFRefDoubler = each.D > 0 ? "1" : "0";
    bench.calculate();
    const bool second = isADF4153(each.model);  // two control bits, INT of nine
    EXPECT_EQ(bitsOf(bench.pll.Nstr, second ? 14 : 15, second ? 9 : 8), each.INT);
    EXPECT_EQ(bitsOf(bench.pll.Nstr, second ? 2 : 3, 12), each.FRAC);
    EXPECT_EQ(bitsOf(bench.pll.Rstr, second ? 2 : 3, 12), each.MOD);
    EXPECT_EQ(bench.view.detectorFrequency, each.caption);
    EXPECT_TRUE(bench.host.screen.messages.empty());
  }
}

TEST(FractionalN, PrescalerBit) {
  for (const auto& [modulus, bit] : {std::pair<Integer, unsigned>{4, 0}, {5, 0}, {8, 1}, {9, 1}, {16, 0}}) {
    FractionalBench first("ADF4252");
    first.pll.Fvco = 200.2;
    first.pll.PreScalar = modulus;
    first.calculate();
    EXPECT_EQ(bitsOf(first.pll.Rstr, 20, 1), bit) << modulus;
    FractionalBench second("ADF4153");
    second.pll.PreScalar = modulus;
    second.calculate();
    EXPECT_EQ(bitsOf(second.pll.Rstr, 18, 1), bit) << modulus;
  }
}

// Each setting of the ADF4153 panel reaches its own bits and no others.
TEST(FractionalN, PlacesOfTheADF4153Panel) {
  struct Case {
    const char* name;
    void (*set)(FractionalBench&);
    String PLL::*word;
    std::size_t low, width;
    unsigned before, after;
  };
  const Case cases[] = {
      {"fast lock", [](auto& b) { b.pll.FastLock_4531 = 1; }, &PLL::Nstr, 23, 1, 0, 1},
      {"load control", [](auto& b) { b.pll.LoadControlEnabled_4531 = 1; }, &PLL::Rstr, 23, 1, 0, 1},
      {"mux", [](auto& b) { b.pll.MuxOut_4531 = "110"; }, &PLL::Rstr, 20, 3, 1, 6},
      {"counter reset", [](auto& b) { b.pll.CounterResetEnabled_4531 = 1; }, &PLL::MStr, 2, 1, 0, 1},
      {"three-state", [](auto& b) { b.pll.CP3StateON_4531 = 1; }, &PLL::MStr, 3, 1, 0, 1},
      {"power down", [](auto& b) { b.pll.RFPowerDownEnabled_4531 = 1; }, &PLL::MStr, 4, 1, 0, 1},
      {"precision", [](auto& b) { b.view.lockDetectPrecision = true; }, &PLL::MStr, 5, 1, 0, 1},
      {"polarity", [](auto& b) { b.pll.RFPDPolarityPositive_4531 = 0; }, &PLL::MStr, 6, 1, 1, 0},
      {"current", [](auto& b) { b.pll.CPCurrentSetting_4531 = "1100"; }, &PLL::MStr, 7, 4, 7, 12},
      {"resync", [](auto& b) { b.pll.Resync_4531 = 6; }, &PLL::MStr, 12, 4, 0, 6},
      {"low noise and spur", [](auto& b) { b.pll.NoiseSpurMode_4531 = 1; }, &PLL::FStr, 6, 4, 0, 14},
  };
  FractionalBench plain("ADF4153");
  plain.calculate();
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    FractionalBench bench("ADF4153");
    each.set(bench);
    bench.calculate();
    String expected = plain.pll.*each.word;
    EXPECT_EQ(bitsOf(expected, each.low, each.width), each.before);
    EXPECT_EQ(bitsOf(bench.pll.*each.word, each.low, each.width), each.after);
    for (const auto word : {&PLL::Nstr, &PLL::Rstr, &PLL::MStr, &PLL::FStr}) {
      expected = plain.pll.*word;
      if (word == each.word) expected.replace(each.low, each.width, bench.pll.*word, each.low, each.width);
      EXPECT_EQ(bench.pll.*word, expected);
    }
  }
}

TEST(FractionalN, NoiseAndSpurWords) {
  for (const auto& [mode, word] : {std::pair<Integer, String>{0, "11000000000"},
                                   {1, "11000001110"},
                                   {2, "11100011110"},
                                   {3, "110000"}}) {
    FractionalBench bench("ADF4156");
    bench.pll.NoiseSpurMode_4531 = mode;
    bench.calculate();
    EXPECT_EQ(bench.pll.FStr, word) << mode;
  }
}

TEST(FractionalN, LCDModeCarriesTheReducedFraction) {
  struct Case {
    double Fcomp, Fvco;
    unsigned FRAC, MOD;
  };
  // FRAC 5 of MOD 1000; FRAC 0 keeps its MOD; 5000 of 8000 fits only once it is reduced.
  for (const Case& each : {Case{10, 1000.05, 1, 200}, {10, 1000, 0, 1000}, {1.25, 1006.25, 5, 8}}) {
    FractionalBench bench("ADF4153");
    bench.pll.Normal_LCD_Mode_4531 = 1;
    bench.pll.Fcomp = each.Fcomp;
    bench.pll.Fvco = each.Fvco;
    bench.calculate();
    EXPECT_EQ(bitsOf(bench.pll.Nstr, 2, 12), each.FRAC);
    EXPECT_EQ(bitsOf(bench.pll.Rstr, 2, 12), each.MOD);
    EXPECT_TRUE(bench.host.screen.messages.empty());
  }
}

struct FaultCase {
  void (*set)(PLL&);
  const char* text;
  std::size_t newWords;  // of N, R, control, noise
};

TEST(FractionalN, AnADF4252FaultChangesNothing) {
  const FaultCase cases[] = {
      {[](PLL& p) { p.RF_R_Counter = "0"; }, "R counter = 0 must be above 0", 0},
      {[](PLL& p) { p.RF_R_Counter = "x"; }, "R counter = 0 must be above 0", 0},
      {[](PLL& p) { p.RF_R_Counter = "16"; }, "R counter = 16 does not fit 4 bits (0 to 15)", 0},
      {[](PLL& p) { p.Fosc = 0; }, "Fosc = 0 MHz must be above 0", 0},
      {[](PLL& p) { p.Fcomp = 0; }, "Fcomp = 0 kHz must be above 0", 0},
      {[](PLL& p) { p.Fvco = 2560; }, "INT = 256 does not fit 8 bits (0 to 255)", 0},
      {[](PLL& p) { p.Fvco = -1; }, "INT = -1 does not fit 8 bits (0 to 255)", 0},
      {[](PLL& p) { p.Fcomp = 2; }, "MOD = 5000 does not fit 12 bits (0 to 4095)", 0},
      {[](PLL& p) { p.Fcomp = 2, p.Fvco = 209; }, "FRAC = 4500 does not fit 12 bits (0 to 4095)", 0},
  };
  for (const FaultCase& each : cases) {
    FractionalBench bench("ADF4252");
    bench.pll.Fvco = 200.2;
    bench.calculate();
    const auto before = bench.words();
    each.set(bench.pll);
    bench.pll.MasterReg = "changed";
    bench.view.detectorFrequency = "as it was";
    EXPECT_EQ(faultOf([&] { PLLProbe::calcRegisters(bench.pll); }), each.text);
    EXPECT_EQ(bench.words(), before) << each.text;
    EXPECT_EQ(bench.view.detectorFrequency, "as it was") << each.text;
  }
}

TEST(FractionalN, AnADF4153FaultIsShownAndKeepsTheWordsBuiltBeforeIt) {
  const FaultCase cases[] = {
      {[](PLL& p) { p.RCounter_4531 = 0; }, "R counter = 0 must be above 0", 0},
      {[](PLL& p) { p.Fosc = 0; }, "Fosc = 0 MHz must be above 0", 0},
      {[](PLL& p) { p.Fcomp = 0; }, "Fcomp = 0 kHz must be above 0", 0},
      {[](PLL& p) { p.Fvco = 5120; }, "INT = 512 does not fit 9 bits (0 to 511)", 0},
      {[](PLL& p) { p.Fcomp = 2, p.Fvco = 1009; }, "FRAC = 4500 does not fit 12 bits (0 to 4095)", 0},
      {[](PLL& p) { p.Fcomp = 0.1, p.Normal_LCD_Mode_4531 = 1; },
       "MOD = 100000 does not fit 16 bits (-32768 to 32767)", 0},
      {[](PLL& p) { p.Fcomp = 2; }, "MOD = 5000 does not fit 12 bits (0 to 4095)", 1},
      {[](PLL& p) { p.RCounter_4531 = 16, p.Fvco = 100.4; }, "R counter = 16 does not fit 4 bits (0 to 15)",
       1},
      {[](PLL& p) { p.Resync_4531 = 16; }, "Resync = 16 does not fit 4 bits (0 to 15)", 2},
  };
  for (const FaultCase& each : cases) {
    SCOPED_TRACE(each.text);
    FractionalBench bench("ADF4153");
    bench.calculate();
    const auto before = bench.words();
    // Something new for every word.
    bench.pll.Fvco = 1000.4;
    bench.pll.MuxOut_4531 = "110";
    bench.pll.CP3StateON_4531 = 1;
    bench.pll.NoiseSpurMode_4531 = 2;
    each.set(bench.pll);
    bench.calculate();
    const auto after = bench.words();
    for (std::size_t i = 0; i < before.size(); ++i) {
      EXPECT_EQ(after[i].size(), before[i].size()) << i;
      EXPECT_EQ(after[i] != before[i], i < each.newWords) << i;
    }
    EXPECT_THAT(bench.host.screen.messages,
                testing::ElementsAre(Message{each.text, Icon::critical, kApplicationTitle}));
  }
}

TEST(FractionalN, LowestTerms) {
  using Pair = std::pair<Integer, Integer>;
  for (const auto& [from, to] : {std::pair<Pair, Pair>{{0, 50}, {0, 50}},
                                 {{5, 1000}, {1, 200}},
                                 {{6, 9}, {2, 3}},
                                 {{7, 7}, {1, 1}},
                                 {{4, 0}, {1, 0}},
                                 {{50, 50}, {1, 1}},
                                 {{4094, 4095}, {4094, 4095}}}) {
    Pair euclid = from;
    PLL::MakeLCD(euclid.first, euclid.second);
    EXPECT_EQ(euclid, to) << from.first << '/' << from.second;
    Pair trial = from;
    PLL::MakeLCD_Orvel(trial.first, trial.second);
    EXPECT_EQ(trial, to) << from.first << '/' << from.second;
  }
  for (int fraction = 1; fraction <= 120; ++fraction) {
    for (int modulus = 1; modulus <= 120; ++modulus) {
      const int divisor = std::gcd(fraction, modulus);
      const std::pair<int, int> lowest{fraction / divisor, modulus / divisor};
      auto [a, b] = Pair(static_cast<Integer>(fraction), static_cast<Integer>(modulus));
      PLL::MakeLCD(a, b);
      ASSERT_EQ((std::pair<int, int>(a, b)), lowest) << fraction << '/' << modulus;
      std::tie(a, b) = Pair(static_cast<Integer>(fraction), static_cast<Integer>(modulus));
      PLL::MakeLCD_Orvel(a, b);
      ASSERT_EQ((std::pair<int, int>(a, b)), lowest) << fraction << '/' << modulus;
    }
  }
}

}  // namespace
}  // namespace tessarine
