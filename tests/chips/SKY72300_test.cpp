#include <gtest/gtest.h>

#include "chips/WordReader.h"
#include "engine/BitStrings.h"
#include "support/ChipBench.h"

namespace tessarine {
namespace {

constexpr const char* kModel = "SKY72300-362";

TEST(SKY72300, TenWordsAndTheirCaptions) {
  ChipBench bench(kModel, 1234.567);
  bench.calculate();
  const std::vector<String> expected{
      "0000000001011011", "0001000111010011", "0010000010101001", "0011000000000000", "0100000000000000",
      "0101000000000000", "0110100101001010", "0111000000000001", "1000001000000000", "1001110000000011"};
  auto words = bench.numbered();
  words.resize(expected.size());
  EXPECT_EQ(words, expected);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(bench.view.words[static_cast<int>(i)], "R" + std::to_string(i) + ": " + expected[i]);
  }
}

TEST(SKY72300, DivisionAndFraction) {
  const struct {
    const char* name;
    double Fvco;
    Integer refDiv;
    const char *R0, *r1, *R2, *R5;  // hexadecimal, with the address
  } cases[] = {
      {"whole multiple", 1230, 1, "005B", "1000", "2000", "5000"},
      {"negative fraction", 1236, 1, "005C", "1266", "2066", "5000"},
      {"a half goes up", 1235, 1, "005C", "1200", "2000", "5000"},
      {"a half goes up from an even number too", 1225, 1, "005B", "1200", "2000", "5000"},
      {"1/128 is 0.007813", 1230.078125, 1, "005B", "1008", "2000", "5000"},
      {"0.0000005 is a millionth, no step", 1230.000005, 1, "005B", "1000", "2000", "5000"},
      {"0.0000019 is two millionths, one step", 1230.000019, 1, "005B", "1000", "2001", "5000"},
      {"largest reference division", 100, 32, "0120", "1000", "2000", "501F"},
      {"smallest ratio", 320, 1, "0000", "1000", "2000", "5000"},
      {"largest ratio", 5430, 1, "01FF", "1000", "2000", "5000"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ChipBench bench(kModel, c.Fvco);
    bench.pll.Main_RefDiv = c.refDiv;
    bench.calculate();
    const auto expect = [](const String& word, const String& hex) {
      EXPECT_EQ(hexOf(ReverseStr(word)), hex + "/16");
    };
    expect(bench.pll.R0, c.R0);
    expect(bench.pll.r1, c.r1);
    expect(bench.pll.R2, c.R2);
    expect(bench.pll.R5, c.R5);
  }
}

TEST(SKY72300, ChargePumpByBand) {
  const struct {
    std::vector<std::tuple<Single, Single, String>> rows;
    const char* pump;
    const char* complaint = nullptr;
  } cases[] = {
      {{{1000, 1300, "3"}, {1000, 1300, "4"}, {1, 2, "5"}}, "00100"},
      {{{1, 2, "9"}, {3, 4, "8"}}, "01001"},
      {{{1000, 1300, "13"}}, "01101"},
      {{{1000, 1300, "31"}}, "11111"},
      {{{1000, 1300, "8.5"}}, "01000"},
      {{{1000, 1300, "0"}}, "00000"},
      // Without a value the panel's pump stays.
      {{{1000, 1300, ""}}, "01010", ""},
      {{{1000, 1300, "high"}}, "01010", "high"},
      {{{1000, 1300, "-"}}, "01010", "-"},
      {{}, "01010", ""},
  };
  for (const auto& c : cases) {
    ChipBench bench(kModel, 1234.567);
    if (c.complaint == nullptr) bench.pll.Main_ChrgPump = 99;  // without effect
    bench.useBands(c.rows);
    bench.calculate();
    EXPECT_EQ(bench.pll.R6.substr(11), c.pump);
    std::vector<Message> messages;
    if (c.complaint != nullptr) {
      messages = {{"\"bands.txt\" gives no charge-pump value for 1234.567 MHz (\"" + String(c.complaint) +
                       "\"). The panel's main charge pump is used.",
                   Icon::critical, kApplicationTitle}};
    }
    EXPECT_EQ(bench.host.screen.messages, messages);
  }
}

}  // namespace
}  // namespace tessarine
