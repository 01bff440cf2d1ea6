#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "chips/WordReader.h"
#include "support/EngineBench.h"
#include "support/FaultOf.h"
#include "support/PLLProbe.h"

namespace tessarine {
namespace {

// 900 MHz in steps of 200 kHz from 10 MHz, the panels as they start up.
struct IntegerNBench : EngineBench {
  IntegerNBench(const char* model, Integer prescaler) {
    module.CurrentModel = model;
    pll.PreScalar = prescaler;
    pll.Fvco = 900;
    pll.Fosc = 10;
    pll.Fcomp = 200;
    pll.CPGain = "0";
    pll.FuncInit = "0";
    pll.FAnalogDevice = "00100100000001110000";
    pll.GoBit = "1";
    pll.LDPrecision = "0";
  }
  // A divider of `total` and a reference divider of `reference`.
  void divideBy(double total, double reference) {
    pll.Fvco = total;
    pll.Fosc = reference;
    pll.Fcomp = 1000;
  }
  void calculate() { EXPECT_TRUE(PLLProbe::calcRegisters(pll)); }
};

TEST(IntegerN, WordsOfEachFamily) {
  const struct {
    const char* model;
    Integer prescaler;
    std::string R, N, F;
  } cases[] = {
      {"ADF4113", 8, "000100110000000000000000", "100010000100110001000000", "010010010000000111000000"},
      {"LMX2316", 32, "000100110000000000000", "100010100110001000001", "010010010000100000000"},
      {"LMX2325", 32, "1010011000000001000", "0001010000110001000", ""},
      {"ADF4108", 8, "", "", ""},
  };
  for (const auto& c : cases) {
    IntegerNBench bench(c.model, c.prescaler);
    bench.calculate();
    EXPECT_EQ(bench.pll.Rstr, c.R) << c.model;
    EXPECT_EQ(bench.pll.Nstr, c.N) << c.model;
    EXPECT_EQ(bench.pll.FStr, c.F) << c.model;
    EXPECT_EQ(PLLProbe::nTotal(bench.pll), 4500) << c.model;
    EXPECT_EQ(PLLProbe::rTotal(bench.pll), 50) << c.model;
  }
}

TEST(IntegerN, PanelBitsLandInTheirPlaces) {
  IntegerNBench adf("ADF4110", 8);
  adf.pll.CPGain = "1";
  adf.pll.FuncInit = "1";
  adf.pll.FAnalogDevice = "10000000000000000001";
  adf.calculate();
  EXPECT_EQ(bitsOf(adf.pll.Nstr, 21, 3), 1U);
  EXPECT_EQ(adf.pll.FStr,
            "11"
            "10000000000000000001"
            "00");

  for (const char* model : {"LMX2306", "LMX2316", "LMX2326", "ADF4118"}) {
    IntegerNBench lmx(model, 32);
    lmx.pll.LDPrecision = "1";
    lmx.module.PolarityNegative = kTrue;
    lmx.pll.GoBit = "";
    lmx.calculate();
    EXPECT_EQ(lmx.pll.FStr, "010010000000100000000") << model;
    EXPECT_EQ(lmx.pll.Rstr, "000100110000000000001") << model;
    EXPECT_EQ(lmx.pll.Nstr, "10001010011000100000") << "an empty GoBit shortens the N word";
  }
}

TEST(IntegerN, PrescalerBits) {
  const struct {
    const char* model;
    Integer prescaler;
    const char* bits;
  } cases[] = {
      {"ADF4113", 8, "00"},  {"ADF4113", 9, "00"},  {"ADF4113", 16, "10"}, {"ADF4113", 17, "10"},
      {"ADF4113", 32, "01"}, {"ADF4113", 33, "01"}, {"ADF4113", 64, "11"}, {"ADF4113", 65, "11"},
      {"ADF4113", 40, "01"}, {"LMX2325", 32, "1"},  {"LMX2325", 33, "1"},  {"LMX2325", 64, "0"},
      {"LMX2325", 65, "0"},  {"LMX2325", 128, ""},  {"LMX2315", 64, "1"},  {"LMX2320", 65, "1"},
      {"LMX2320", 128, "0"}, {"LMX2315", 129, "0"}, {"LMX2315", 32, ""},
  };
  for (const auto& c : cases) {
    IntegerNBench bench(c.model, c.prescaler);
    bench.pll.Fvco = 9000;
    bench.pll.Fcomp = 1000;  // small A, so that any prescaler serves
    bench.calculate();
    const String& word = c.model == std::string("ADF4113") ? bench.pll.FStr : bench.pll.Rstr;
    const std::size_t place = c.model == std::string("ADF4113") ? 22 : 15;
    const std::string rest = c.model == std::string("ADF4113") ? "" : "000";
    EXPECT_EQ(word.substr(place), c.bits + rest) << c.model << " " << c.prescaler;
  }
}

TEST(IntegerN, RoundingOfTheDividers) {
  const struct {
    const char* model;
    double total, reference;
    Integer prescaler;
    unsigned B, A, R;
  } cases[] = {
      {"ADF4113", 5000, 50, 16, 312, 8, 50},
      {"ADF4113", 6400, 50, 64, 100, 0, 50},
      {"ADF4113", 6399.9999999999, 50, 64, 100, 0, 50},
      {"ADF4113", 4511.7, 50, 8, 563, 8, 50},  // A reaches P, and nothing is carried
      {"ADF4113", 4500.4, 333.33, 8, 562, 4, 333},
      {"ADF4113", 4500.5, 49.999999, 8, 562, 5, 49},
      {"ADF4113", 0, 0, 8, 0, 0, 0},
      {"ADF4113", 8191 * 64 + 63, 16383, 64, 8191, 63, 16383},
      {"LMX2326", 4500.5, 50, 32, 140, 21, 50},
      {"LMX2326", 8191 * 32 + 31, 16383, 32, 8191, 31, 16383},
      {"LMX2315", 4500.7, 50.9, 64, 70, 20, 50},
      {"LMX2315", 6399.9999999999, 50, 64, 100, 0, 50},
      {"LMX2315", 2047 * 128 + 127, 16383, 128, 2047, 127, 16383},
  };
  for (const auto& c : cases) {
    IntegerNBench bench(c.model, c.prescaler);
    bench.divideBy(c.total, c.reference);
    bench.calculate();
    EXPECT_EQ(bitsOf(bench.pll.Astr, 0, 16), c.A) << c.model << " " << c.total;
    EXPECT_EQ(bitsOf(bench.pll.Bstr, 0, 16), c.B) << c.model << " " << c.total;
    EXPECT_EQ(bitsOf(bench.pll.Rstr, c.model == std::string("LMX2315") ? 1 : 2, 14), c.R) << c.total;
  }
}

TEST(IntegerN, WhatDoesNotFitIsRefusedAndChangesNoWord) {
  const struct {
    const char* model;
    double Fvco, Fosc, Fcomp;
    Integer prescaler;
    const char* message;
  } cases[] = {
      {"ADF4113", 1350, 50, 1000, 128, "A = 70 does not fit 6 bits (0 to 63)"},
      {"LMX2316", 6432, 50, 1000, 64, "A = 32 does not fit 5 bits (0 to 31)"},
      {"LMX2315", 384, 50, 1000, 256, "A = 128 does not fit 7 bits (0 to 127)"},
      {"ADF4113", 65536, 50, 1000, 8, "B = 8192 does not fit 13 bits (0 to 8191)"},
      {"LMX2320", 2048 * 64, 50, 1000, 64, "B = 2048 does not fit 11 bits (0 to 2047)"},
      {"ADF4110", 900, 16384, 1000, 8, "R = 16384 does not fit 14 bits (0 to 16383)"},
      {"LMX2306", -900, 50, 1000, 8, "B = -113 does not fit 13 bits (0 to 8191)"},
      {"ADF4112", 1e300, 50, 1000, 8, "B = 1.25e+299 does not fit 13 bits (0 to 8191)"},
      {"ADF4113", 900, 10, 0, 8, "Step Resolution = 0 kHz cannot divide 900 MHz and 10 MHz"},
      {"ADF4108", 0, 0, 0, 8, "Step Resolution = 0 kHz cannot divide 0 MHz and 0 MHz"},
      {"LMX2325", 900, 1e308, 0.5, 64, "Step Resolution = 0.5 kHz cannot divide 900 MHz and 1e+308 MHz"},
  };
  for (const auto& c : cases) {
    IntegerNBench bench(c.model, c.prescaler);
    PLL& pll = bench.pll;
    for (String* word : {&pll.Astr, &pll.Bstr, &pll.Nstr, &pll.Rstr, &pll.FStr}) *word = "as it was";
    pll.Fvco = c.Fvco, pll.Fosc = c.Fosc, pll.Fcomp = c.Fcomp;
    EXPECT_EQ(faultOf([&] { PLLProbe::calcRegisters(pll); }), c.message);
    for (const String* word : {&pll.Astr, &pll.Bstr, &pll.Nstr, &pll.Rstr, &pll.FStr}) {
      EXPECT_EQ(*word, "as it was") << c.message;
    }
  }
}

TEST(IntegerN, TheCurrentSettingOfTheBand) {
  struct Row {
    Single low, high;
    String code;  // as in the file
  };
  const std::string panel = "00100100000001110000";
  const std::vector<Row> bands{{800, 900, "011"}, {900, 1000, "101"}, {0, 0, ""}};
  const struct {
    const char* name;
    const char* model;
    std::vector<Row> rows;
    double Fvco;
    const char* bits;  // DB18 to DB20
    const char* complaint;
  } cases[] = {
      {"on the bound of both bands the second wins", "ADF4113", bands, 900, "101", nullptr},
      {"inside the first band", "ADF4113", bands, 850, "110", nullptr},
      {"on the lower bound", "ADF4113", bands, 800, "110", nullptr},
      {"outside all bands the first row serves", "ADF4113", bands, 700, "110", nullptr},
      {"so it does for a row without a code", "ADF4113", bands, 0, "110", nullptr},
      {"bounds are compared as Singles",
       "ADF4113",
       {{1, 2, "111"}, {900.1F, 900.1F, "001"}},
       900.1,
       "100",
       nullptr},
      {"other models do not look", "ADF4112", bands, 900, "000", nullptr},
      {"an empty table", "ADF4113", {}, 900, "000", "900 MHz (\"\")"},
      {"a code too long", "ADF4113", {{800, 900, "0110"}}, 850.5, "000", "850.5 MHz (\"0110\")"},
      {"a code that is not binary", "ADF4113", {{800, 900, "012"}}, 850, "000", "850 MHz (\"012\")"},
  };
  for (const auto& c : cases) {
    IntegerNBench bench(c.model, 8);
    bench.pll.Fvco = c.Fvco;
    bench.pll.SetupFile_ADF4113 = "bands.txt";
    for (const auto& [low, high, code] : c.rows) {
      PLLProbe::bandLow(bench.pll).push_back(low);
      PLLProbe::bandHigh(bench.pll).push_back(high);
      PLLProbe::bandCode(bench.pll).emplace_back(code.rbegin(), code.rend());
      ++bench.pll.Setup_ADF4113_NoOfCurrentSet2;
    }
    bench.calculate();
    bench.calculate();  // on the bits that the first run has left
    EXPECT_EQ(bench.pll.FStr, "01" + panel.substr(0, 16) + c.bits + "0" + "00") << c.name;
    std::vector<Message> messages;
    if (c.complaint != nullptr) {
      messages.assign(2, {std::string("\"bands.txt\" gives no current setting of three binary digits for ") +
                              c.complaint + ". The panel's Current Set2 is used.",
                          Icon::critical, kApplicationTitle});
    }
    EXPECT_EQ(bench.host.screen.messages, messages) << c.name;
  }
}

TEST(IntegerN, WordsHoldTheWantedFrequencyAgainAndAgain) {
  std::mt19937 random(20240501);  // the same on every machine
  const struct {
    const char* model;
    std::size_t aPlace, aWidth, bPlace, bWidth;
    std::vector<int> prescalers;
  } chips[] = {{"ADF4113", 2, 6, 8, 13, {8, 16, 32, 64}},
               {"LMX2326", 2, 5, 7, 13, {8, 32}},
               {"LMX2315", 1, 7, 8, 11, {64, 128}}};
  for (const auto& chip : chips) {
    for (int i = 0; i < 3000; ++i) {
      const int P = chip.prescalers[random() % chip.prescalers.size()];
      const auto N = static_cast<unsigned>(random() % static_cast<unsigned>(P * ((1 << chip.bWidth) - 1)));
      const double step = 0.5 * static_cast<double>(1 + random() % 2000);  // kHz
      IntegerNBench bench(chip.model, static_cast<Integer>(P));
      bench.pll.Fcomp = step;
      bench.pll.Fvco = N * step / 1000;
      bench.pll.Fosc = 50 * step / 1000;
      bench.calculate();
      const auto A = bitsOf(bench.pll.Nstr, chip.aPlace, chip.aWidth);
      const auto B = bitsOf(bench.pll.Nstr, chip.bPlace, chip.bWidth);
      const auto decoded = static_cast<unsigned>(P) * B + A;
      // The chips without the rounding of A may lose one step to the noise of the division.
      const bool floored = chip.model == std::string("LMX2315");
      EXPECT_TRUE(decoded == N || (floored && decoded + 1 == N)) << chip.model << " N " << N << " P " << P;
    }
  }
}

}  // namespace
}  // namespace tessarine
