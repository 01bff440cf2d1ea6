#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "support/ChipBench.h"

namespace tessarine {
namespace {

const std::string kAdfFunction = "010010010000000111000000";

TEST(IntegerN, WordsOfEachFamily) {
  const struct {
    const char* model;
    Integer prescaler;
    void (*panel)(ChipBench&);
    std::string R, N, F;
  } cases[] = {
      {"ADF4113", 8, [](auto&) {}, "000100110000000000000000", "100010000100110001000000", kAdfFunction},
      {"ADF4110", 8,
       [](auto& b) { b.pll.CPGain = b.pll.FuncInit = "1", b.pll.FAnalogDevice = "10000000000000000001"; },
       "000100110000000000000000", "100010000100110001000100", "111000000000000000000100"},
      {"LMX2316", 32, [](auto&) {}, "000100110000000000000", "100010100110001000001",
       "010010010000100000000"},
      {"ADF4118", 32,  // without a gain bit the N word is shorter
       [](auto& b) { b.pll.LDPrecision = "1", b.pll.GoBit = "", b.module.PolarityNegative = kTrue; },
       "000100110000000000001", "10001010011000100000", "010010000000100000000"},
      {"LMX2325", 32, [](auto&) {}, "1010011000000001000", "0001010000110001000", ""},
      {"ADF4108", 8, [](auto&) {}, "", "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.model);
    ChipBench bench(c.model, 900, c.prescaler);
    c.panel(bench);
    bench.calculate();
    EXPECT_EQ(bench.lettered(), (std::vector<String>{c.N, c.R, "", c.F}));
    EXPECT_EQ(PLLProbe::nTotal(bench.pll), 4500);
    EXPECT_EQ(PLLProbe::rTotal(bench.pll), 50);
  }
}

TEST(IntegerN, PrescalerBits) {
  const struct {
    const char* model;
    String PLL::*word;
    std::size_t place;
    std::map<int, const char*> ends;
  } cases[] = {
      {"ADF4113", &PLL::FStr, 22, {{8, "00"}, {16, "10"}, {32, "01"}, {64, "11"}, {40, "01"}}},
      {"LMX2325", &PLL::Rstr, 15, {{32, "1000"}, {64, "0000"}, {128, "000"}}},
      {"LMX2315", &PLL::Rstr, 15, {{64, "1000"}, {128, "0000"}, {32, "000"}}},
  };
  for (const auto& c : cases) {
    for (const auto& [modulus, end] : c.ends) {
      for (const int prescaler : {modulus, modulus + 1}) {
        // Small A, so that any prescaler serves.
        ChipBench bench(c.model, 1800, static_cast<Integer>(prescaler));
        bench.calculate();
        EXPECT_EQ((bench.pll.*c.word).substr(c.place), end) << c.model << " " << prescaler;
      }
    }
  }
}

TEST(IntegerN, RoundingOfTheDividers) {
  const struct {
    const char* model;
    double total, reference;
    Integer prescaler;
    unsigned B, A, R;
  } cases[] = {
      {"ADF4113", 6400, 50, 64, 100, 0, 50},
      {"ADF4113", 6399.9999999999, 50, 64, 100, 0, 50},
      {"ADF4113", 4511.7, 50, 8, 563, 8, 50},  // A reaches P, and nothing is carried
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
    ChipBench bench(c.model, c.total, c.prescaler);
    bench.pll.Fosc = c.reference;
    bench.pll.Fcomp = 1000;
    bench.calculate();
    EXPECT_EQ(bitsOf(bench.pll.Astr, 0, 16), c.A) << c.model << " " << c.total;
    EXPECT_EQ(bitsOf(bench.pll.Bstr, 0, 16), c.B) << c.model << " " << c.total;
    EXPECT_EQ(bitsOf(bench.pll.Rstr, c.model == std::string("LMX2315") ? 1 : 2, 14), c.R) << c.total;
  }
}

TEST(IntegerN, TheCurrentSettingOfTheBand) {
  const ChipBench::Bands bands{{800, 900, "011"}, {900, 1000, "101"}, {0, 0, ""}};
  const struct {
    const char* name;
    ChipBench::Bands rows;
    double Fvco;
    const char* bits;  // DB18 to DB20
    const char* complaint = nullptr;
    const char* model = "ADF4113";
  } cases[] = {
      {"on the bound of both bands the second wins", bands, 900, "101"},
      {"on the lower bound", bands, 800, "110"},
      {"outside all bands the first row serves", bands, 700, "110"},
      {"so it does for a row without a code", bands, 0, "110"},
      {"a bound is a Single", {{1, 2, "111"}, {900.1F, 900.1F, "001"}}, 900.1, "100"},
      {"other models do not look", bands, 900, "000", nullptr, "ADF4112"},
      {"an empty table", {}, 900, "000", "900 MHz (\"\")"},
      {"a code too long", {{800, 900, "0110"}}, 850.5, "000", "850.5 MHz (\"0110\")"},
      {"a code that is not binary", {{800, 900, "012"}}, 850, "000", "850 MHz (\"012\")"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ChipBench bench(c.model, c.Fvco);
    bench.useBands(c.rows);
    bench.calculate();
    bench.calculate();  // on the bits that the first run has left
    EXPECT_EQ(bench.pll.FStr, std::string(kAdfFunction).replace(18, 3, c.bits));
    std::vector<Message> messages;
    if (c.complaint != nullptr) {
      messages.assign(2, {std::string("\"bands.txt\" gives no current setting of three binary digits for ") +
                              c.complaint + ". The panel's Current Set2 is used.",
                          Icon::critical, kApplicationTitle});
    }
    EXPECT_EQ(bench.host.screen.messages, messages);
  }
}

}  // namespace
}  // namespace tessarine
