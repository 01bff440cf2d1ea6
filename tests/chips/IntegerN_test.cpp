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
      {"8/9", "ADF4113", 8, [](auto&) {}, "038092/24 C8/24 23211/24"_w},
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

TEST(IntegerN, RoundingOfTheDividers) {
  const struct {
    const char* model;
    double total, reference;
    Integer prescaler;
    unsigned B, A, R;
  } cases[] = {
      {"ADF4113", 6400, 50, 64, 100, 0, 50},
      {"ADF4113", 799.999999996, 50, 8, 100, 0,
       50},                                         // half a thousand-millionth below is the noise of doubles
      {"ADF4113", 799.99999996, 50, 8, 99, 8, 50},  // five are not
      {"ADF4113", 4511.7, 50, 8, 563, 8, 50},       // A reaches P, and nothing is carried
      {"ADF4113", 4500.5, 49.999999, 8, 562, 5, 49},
      {"LMX2326", 4500.5, 50, 32, 140, 21, 50},
      {"LMX2315", 4500.7, 50.9, 64, 70, 20, 50},
      {"LMX2315", 6399.9999999999, 50, 64, 100, 0, 50},
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
    EXPECT_EQ(bench.pll.FStr, "010010010000000111" + std::string(c.bits) + "000");
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
