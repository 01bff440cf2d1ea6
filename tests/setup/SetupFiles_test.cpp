#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "engine/Numbers.h"
#include "setup/BandSetupFile.h"
#include "setup/FracSetupFile.h"
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

std::string bodyOf(int lines) {
  std::string body;
  for (int i = 0; i < lines; ++i) body += std::to_string(i % 10) + " " + std::to_string(100 + i % 100) + "\n";
  return body;
}

const std::string kHead =
    "Setup for a 1.9 GHz board\r\nPFD= 26.0\nMOD= 1625\nICP= 7\nSW12= 2\nSW3= 3\n$P= 4\nFRAC\r\n";

// What the engine has of the files read so far, with the last phases and messages.
std::string stateOf(EngineBench& bench) {
  const PLL& pll = bench.pll;
  std::string text = "PFD " + plainDecimal(pll.PFDFromFile, 7);
  for (const auto& [name, value] : {std::pair{" MOD ", pll.ModFromFile},
                                    {" ICP ", pll.ICPFromFile},
                                    {" SW12 ", pll.SW12FromFile},
                                    {" SW3 ", pll.SW3FromFile},
                                    {" P ", pll.PreScalarFromFile}})
    text += name + std::to_string(value);
  const auto& phases = PLLProbe::phaseTable(bench.pll);
  text += ", " + std::to_string(phases.size()) + " phases";
  for (std::size_t last = 3; last-- > 0;)
    if (last < phases.size()) text += ' ' + std::to_string(phases[phases.size() - 1 - last]);
  for (const Message& message : std::exchange(bench.host.screen.messages, {})) text += ", " + message.text;
  return text;
}

TEST(FracSetupFile, EachFileReplacesWhatItNames) {
  const std::string warning = ", Warnning: Setup File is wrong !";
  const std::string full = "PFD 26 MOD 1625 ICP 7 SW12 2 SW3 3 P ";
  const struct {
    std::string text, state;
    std::string complaint = "no fault";
  } files[] = {
      {kHead + bodyOf(64), full + "4, 65 phases 162 163 0"},  // a spare one behind the last line
      {"$P= 9 FRAC\n" + bodyOf(63), full + "9, 64 phases 161 162 0" + warning},
      {"FRAC\n", full + "9, 64 phases 161 162 0" + warning},  // an empty body leaves the table
      {"FRAC\n0 1\n1 2\n2 3", full + "9, 4 phases 2 3 0" + warning},
      {"FRAC\n0 9", full + "9, 2 phases 9 2" + warning},  // the spare one is of the file before
      {"FRAC\n0 8", full + "9, 2 phases 8 2" + warning},
      {"", full + "9, 2 phases 8 2", ": the file ends without a line with \"FRAC\""},
      {"MOD= 5\nICP= 6\n", full + "9, 2 phases 8 2", ", line 2: the file ends without a line with \"FRAC\""},
      {"MOD= 5\nICP= 40000\nFRAC\n", full + "9, 2 phases 8 2",
       ", line 2: ICP = 40000 does not fit 16 bits (-32768 to 32767)"},
      {"MOD= 5\nFRAC\n0 1\n0 -40000\n", full + "9, 2 phases 8 2",
       ", line 4: phase = -40000 does not fit 16 bits (-32768 to 32767)"},
      {"MOD= 5\nPFD= 1" + std::string(39, '0') + "\nFRAC", full + "9, 2 phases 8 2",
       ", line 2: PFD = 1e+39 is too large (3.40282e+38 at most)"},
      {"FRAC\n" + bodyOf(32768), full + "9, 2 phases 8 2", ", line 32769: more than 32767 phase values"},
      {"PFD= 13 MOD= 1 ICP= 2 SW12= 3 SW3= 4 FRAC\n" + bodyOf(64),
       "PFD 13 MOD 1 ICP 2 SW12 3 SW3 4 P 9, 65 phases 162 163 0"},
  };
  EngineBench bench;
  const TempFile file("");
  bench.pll.SetupFileName = file.path();
  for (const auto& c : files) {
    file.write(c.text);
    const std::string complaint = faultOf([&] { bench.pll.UpdateSetup_Frac(); });
    EXPECT_EQ(complaint,
              (c.complaint == "no fault" ? "" : "Setup file \"" + file.path() + '"') + c.complaint);
    EXPECT_EQ(stateOf(bench), c.state) << c.text.substr(0, 40);
  }
  file.write("MOD= 7\nFRAC\n" + bodyOf(70));
  bench.pll.UpdateSetup_Frac_old();
  EXPECT_EQ(bench.pll.ModFromFile, 1) << "the old reader looks for no keys";
  EXPECT_EQ(PLLProbe::phaseTable(bench.pll).size(), 71U);

  bench.pll.SetupFileName.clear();
  bench.pll.SetupText = "x";
  bench.pll.UpdateSetup_Frac();
  EXPECT_EQ(bench.pll.SetupText, "");
  EXPECT_EQ(bench.pll.ModFromFile, 1);
}

TEST(FracSetupFile, AKeyAndItsValue) {
  const struct {
    const char* head;
    Integer P, ICP;
  } cases[] = {
      {"$P= 8\nFRAC", 8, -1},          {"$P=8\nFRAC", 0, -1},        {"$P=48\nFRAC", 8, -1},
      {"x $P= 8 ICP= 9 FRAC", 8, 9},   {"$P= 1 $P= 2\nFRAC", 1, -1}, {"$P= 1\n$P= 2\nFRAC", 2, -1},
      {"frac $P= 3\nFRAC", 3, -1},     {"FRAC\n$P= 3", -1, -1},      {"$P=\t12x\nFRAC", 12, -1},
      {"$P= x\nFRAC", 0, -1},          {"$P= 8.5\nFRAC", 8, -1},     {"$P= 9.5\nFRAC", 10, -1},
      {"$p= 5 ICP = 5\nFRAC", -1, -1},
  };
  for (const auto& c : cases) {
    const auto setup = parseFracSetup(c.head, "f");
    EXPECT_EQ(setup.P.value_or(-1), c.P) << c.head;
    EXPECT_EQ(setup.ICP.value_or(-1), c.ICP) << c.head;
  }
}

TEST(FracSetupFile, ABodyLine) {
  const auto setup = parseFracSetup("FRAC\n0 130\n1 254\nx\nxx\n\nxx  -5\nxx1e3\n63 97 remark", "f");
  EXPECT_EQ(setup.phases, (std::vector<Integer>{130, 254, 0, 0, 0, -5, 1, 97}));
}

TEST(FracSetupFile, AFileThatCannotBeReadIsNamedWithTheReason) {
  for (const auto& [path, why] : {std::pair{"/", "it is a folder"}, {"/dev/null", "it is no file"}}) {
    EngineBench bench;
    bench.pll.SetupFileName = path;
    EXPECT_EQ(faultOf([&] { bench.pll.UpdateSetup_Frac(); }),
              "Setup file \"" + std::string(path) + "\" cannot be read: " + why);
  }
}

}  // namespace
}  // namespace tessarine
