#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/EngineBench.h"
#include "support/FaultOf.h"
#include "support/PLLProbe.h"

namespace tessarine {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SKYBench : EngineBench {
  SKYBench() {
    module.CurrentModel = "SKY72300-362";
    pll.PreScalar = 8;
    pll.Fosc = 10;
    pll.Fvco = 1234.567;
    pll.Main_RefDiv = 1;
    pll.Aux_RefDiv = 3;
    pll.Main_ChrgPump = 10;
    pll.Aux_ChrgPump = 5;
    pll.Main_LDEnable = "0";
    pll.Aux_LDEnable = "1";
    pll.MultiplexerReg = "0000000001";
    pll.ModulationControlReg = "1000000000";
    pll.ModulationDataReg = "110000000011";
  }

  // Rows as a band file has them; the engine keeps the settings reversed.
  void useBands(const std::vector<std::tuple<Single, Single, String>>& rows) {
    pll.SetupFile_ADF4113 = "bands.txt";
    for (auto [low, high, setting] : rows) {
      PLL::UpsideSTR(setting);
      PLLProbe::bandLow(pll).push_back(low);
      PLLProbe::bandHigh(pll).push_back(high);
      PLLProbe::bandCode(pll).push_back(setting);
      ++pll.Setup_ADF4113_NoOfCurrentSet2;
    }
  }

  void calculate() { EXPECT_TRUE(PLLProbe::calcRegisters(pll)); }
  [[nodiscard]] std::vector<String> words() const {
    return {pll.R0, pll.r1, pll.R2, pll.R3, pll.R4, pll.R5, pll.R6, pll.R7, pll.R8, pll.R9};
  }
  [[nodiscard]] String mainPump() const { return pll.R6.substr(11); }
};

TEST(SKY72300, TenWordsAndTheirCaptions) {
  SKYBench bench;
  bench.calculate();
  const std::vector<String> expected{
      "0000000001011011", "0001000111010011", "0010000010101001", "0011000000000000", "0100000000000000",
      "0101000000000000", "0110100101001010", "0111000000000001", "1000001000000000", "1001110000000011"};
  EXPECT_EQ(bench.words(), expected);
  for (int i = 0; i < 10; ++i) {
    const auto index = static_cast<std::size_t>(i);
    EXPECT_EQ(bench.view.words[i], "R" + std::to_string(i) + ": " + expected[index]);
  }
}

TEST(SKY72300, DivisionAndFraction) {
  struct Case {
    const char* name;
    double Fvco;
    Integer refDiv;
    const char *R0, *r1, *R2, *R5;
  };
  const Case cases[] = {
      {"whole multiple", 1230, 1, "0000000001011011", "0001000000000000", "0010000000000000",
       "0101000000000000"},
      {"negative fraction", 1236, 1, "0000000001011100", "0001001001100110", "0010000001100110",
       "0101000000000000"},
      {"a half goes up", 1235, 1, "0000000001011100", "0001001000000000", "0010000000000000",
       "0101000000000000"},
      {"a half goes up from an even number too", 1225, 1, "0000000001011011", "0001001000000000",
       "0010000000000000", "0101000000000000"},
      {"1/128 is 0.007813", 1230.078125, 1, "0000000001011011", "0001000000001000", "0010000000000000",
       "0101000000000000"},
      {"0.0000005 is a millionth, no step", 1230.000005, 1, "0000000001011011", "0001000000000000",
       "0010000000000000", "0101000000000000"},
      {"0.0000019 is two millionths, one step", 1230.000019, 1, "0000000001011011", "0001000000000000",
       "0010000000000001", "0101000000000000"},
      {"largest reference division", 100, 32, "0000000100100000", "0001000000000000", "0010000000000000",
       "0101000000011111"},
      {"smallest ratio", 320, 1, "0000000000000000", "0001000000000000", "0010000000000000",
       "0101000000000000"},
      {"largest ratio", 5430, 1, "0000000111111111", "0001000000000000", "0010000000000000",
       "0101000000000000"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    SKYBench bench;
    bench.pll.Fvco = each.Fvco;
    bench.pll.Main_RefDiv = each.refDiv;
    bench.calculate();
    EXPECT_EQ(bench.pll.R0, each.R0);
    EXPECT_EQ(bench.pll.r1, each.r1);
    EXPECT_EQ(bench.pll.R2, each.R2);
    EXPECT_EQ(bench.pll.R5, each.R5);
  }
}

TEST(SKY72300, ChargePumpByBand) {
  struct Case {
    const char* name;
    double Fvco;
    std::vector<std::tuple<Single, Single, String>> rows;
    const char* pump;
  };
  const Case cases[] = {
      {"inside", 1234.567, {{1000, 1200, "3"}, {1200.5F, 1300, "21"}}, "10101"},
      {"the last match wins", 1234.567, {{1000, 1300, "3"}, {1000, 1300, "4"}, {1, 2, "5"}}, "00100"},
      {"lower bound", 1234.567, {{1, 2, "1"}, {1234.567F, 1300, "6"}}, "00110"},
      {"upper bound", 1234.567, {{1, 2, "1"}, {1000, 1234.567F, "7"}}, "00111"},
      {"outside all bands the first row", 1234.567, {{1, 2, "9"}, {3, 4, "8"}}, "01001"},
      {"two figures in their order", 1234.567, {{1000, 1300, "13"}}, "01101"},
      {"a tie goes to the even number", 1234.567, {{1000, 1300, "8.5"}}, "01000"},
      {"zero", 1234.567, {{1000, 1300, "0"}}, "00000"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    SKYBench bench;
    bench.pll.Fvco = each.Fvco;
    bench.pll.Main_ChrgPump = 99;  // without effect
    bench.useBands(each.rows);
    bench.calculate();
    EXPECT_EQ(bench.mainPump(), each.pump);
    EXPECT_THAT(bench.host.screen.messages, IsEmpty());
  }
}

TEST(SKY72300, ABandFileWithoutAValueLeavesThePanelsPump) {
  for (const String setting : {"", "high", "-"}) {
    SKYBench bench;
    bench.useBands({{1000, 1300, setting}});
    bench.calculate();
    EXPECT_EQ(bench.mainPump(), "01010");
    const String text = "\"bands.txt\" gives no charge-pump value for 1234.567 MHz (\"" + setting +
                        "\"). The panel's main charge pump is used.";
    EXPECT_THAT(bench.host.screen.messages, ElementsAre(Message{text, Icon::critical, kApplicationTitle}));
  }
  SKYBench bench;
  bench.useBands({});
  bench.calculate();
  EXPECT_EQ(bench.mainPump(), "01010");
  EXPECT_EQ(bench.host.screen.messages.size(), 1U) << "a file of comments only";
}

TEST(SKY72300, AFaultChangesNothing) {
  struct Case {
    void (*set)(SKYBench&);
    const char* text;
  };
  const Case cases[] = {
      {[](auto& b) { b.pll.Main_RefDiv = 0; }, "Main reference division = 0 cannot be used (1 to 32)"},
      {[](auto& b) { b.pll.Main_RefDiv = 33; }, "Main reference division = 33 cannot be used (1 to 32)"},
      {[](auto& b) { b.pll.Fosc = 0; }, "Fosc = 0 MHz must be above 0"},
      {[](auto& b) { b.pll.Fvco = 5440; }, "N = 512 does not fit 9 bits (0 to 511)"},
      {[](auto& b) { b.pll.Fvco = 310; }, "N = -1 does not fit 9 bits (0 to 511)"},
      {[](auto& b) { b.pll.Main_ChrgPump = 32; }, "Main charge pump = 32 does not fit 5 bits (0 to 31)"},
      {[](auto& b) { b.pll.Aux_ChrgPump = -1; }, "Auxiliary charge pump = -1 does not fit 5 bits (0 to 31)"},
      {[](auto& b) {
         b.useBands({{1, 2, "32"}});
       },
       "Charge pump of the band file = 32 cannot be used (0 to 31)"},
      {[](auto& b) {
         b.useBands({{1, 2, "-1"}});
       },
       "Charge pump of the band file = -1 cannot be used (0 to 31)"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.text);
    SKYBench bench;
    bench.calculate();
    const auto words = bench.words();
    const auto captions = bench.view.words;
    bench.pll.MultiplexerReg = "1111111111";
    each.set(bench);
    EXPECT_EQ(faultOf([&] { PLLProbe::calcRegisters(bench.pll); }), each.text);
    EXPECT_EQ(bench.words(), words);
    EXPECT_EQ(bench.view.words, captions);
    EXPECT_THAT(bench.host.screen.messages, IsEmpty());
  }
}

}  // namespace
}  // namespace tessarine
