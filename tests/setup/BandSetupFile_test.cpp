#include "setup/BandSetupFile.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "engine/Numbers.h"
#include "support/EngineBench.h"
#include "support/FaultOf.h"
#include "support/PLLProbe.h"
#include "support/TempFile.h"

namespace tessarine {
namespace {

using Rows = std::vector<std::string>;

// Each row as "low high code", the code as it is stored.
Rows rowsOf(const BandTable& table) {
  Rows rows;
  for (std::size_t i = 0; i < table.low.size(); ++i) {
    rows.push_back(plainDecimal(table.low[i], 7) + " " + plainDecimal(table.high[i], 7) + " " +
                   table.code[i]);
  }
  return rows;
}

TEST(BandSetupFile, RowsOfAFile) {
  const struct {
    const char* name;
    std::string text;
    Rows rows;
  } cases[] = {
      {"comments among the rows",
       "! by band\n! low high\n800 900 011\n! upper\n900.5 1000 101\n! end\n",
       {"800 900 110", "900.5 1000 101"}},
      {"the last line is lost", "800 900 011\n900 1000 101\n", {"800 900 110"}},
      {"an empty last line saves the row", "800 900 011\n\n", {"800 900 110"}},
      {"so does a CR LF alone", "800 900 011\r\n\r\n", {"800 900 110"}},
      {"a blank line is a row", "800 900 011\n\n900 1000 101\nx", {"800 900 110", "0 0 ", "900 1000 101"}},
      {"a first row with a mark is a comment", "800 900 011 ! low\n900 1000 101\n!", {"900 1000 101"}},
      {"a later one is a row", "1 2 001\n800 900 011 ! low\n\t ! note\n!", {"1 2 100", "800 900 110"}},
      {"blanks around and between", "  800   900 \t 011  \n!", {"800 900 110"}},
      {"a tab does not separate", "800\t900\t011\n!", {"800 0 "}},
      {"fields beyond the third do not matter", "1 2 3 4 5 6 7 8 9\n!", {"1 2 3"}},
      {"missing and bad fields", "800\nx 5\n!", {"800 0 ", "0 5 "}},
      {"comments only", "! a\n! b\n", {}},
      {"nothing", "", {}},
  };
  for (const auto& c : cases) EXPECT_EQ(rowsOf(parseBandTable(c.text, "f")), c.rows) << c.name;
}

TEST(BandSetupFile, AReadReplacesTheTableAndARefusedOneLeavesIt) {
  EngineBench bench;
  const TempFile file("1 2 001\n3 4 010\n5 6 011\n!");
  bench.pll.SetupFile_ADF4113 = file.path();
  bench.pll.UpdateSetup_ADF4113();
  EXPECT_EQ(bench.pll.Setup_ADF4113_NoOfCurrentSet2, 3);
  std::string tooLong;
  for (int i = 0; i < 32769; ++i) tooLong += "1 2 001\n";
  for (const auto& [text, complaint] : {std::pair<std::string, std::string>{"7 8 100\n!", "no fault"},
                                        {"1 2 3\n5 1" + std::string(39, '0') + " 3\n!",
                                         "line 2: upper bound = 1e+39 is too large (3.40282e+38 at most)"},
                                        {tooLong, "line 32768: more than 32767 bands"}}) {
    file.write(text);
    const std::string fault = faultOf([&] { bench.pll.UpdateSetup_ADF4113(); });
    EXPECT_EQ(fault, (fault == "no fault" ? "" : "Setup file \"" + file.path() + "\", ") + complaint);
    EXPECT_EQ(bench.pll.Setup_ADF4113_NoOfCurrentSet2, 1);
    EXPECT_EQ(PLLProbe::bandLow(bench.pll), std::vector<Single>{7});
    EXPECT_EQ(PLLProbe::bandHigh(bench.pll), std::vector<Single>{8});
    EXPECT_EQ(PLLProbe::bandCode(bench.pll), std::vector<String>{"001"});
  }
  bench.pll.SetupFile_ADF4113.clear();
  bench.pll.SetupText_ADF4113 = "x";
  bench.pll.UpdateSetup_ADF4113();
  EXPECT_EQ(bench.pll.SetupText_ADF4113, "");
  EXPECT_EQ(bench.pll.Setup_ADF4113_NoOfCurrentSet2, 1);
}

}  // namespace
}  // namespace tessarine
