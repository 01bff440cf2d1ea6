#include "setup/FracSetupFile.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "support/EngineBench.h"
#include "support/FaultOf.h"
#include "support/PLLProbe.h"
#include "support/TempFile.h"

namespace tessarine {
namespace {

std::string bodyOf(int lines) {
  std::string body;
  for (int i = 0; i < lines; ++i) body += std::to_string(i % 10) + " " + std::to_string(100 + i % 100) + "\n";
  return body;
}

const std::string kHead =
    "Setup for a 1.9 GHz board\nPFD= 26.0\nMOD= 1625\nICP= 7\nSW12= 2\nSW3= 3\n$P= 4\nFRAC\n";
const std::vector<Message> kWarning{{"Warnning: Setup File is wrong !", Icon::plain, kApplicationTitle}};

struct SetupBench : EngineBench {
  explicit SetupBench(const std::string& text) : file(text) { pll.SetupFileName = file.path(); }
  TempFile file;
};

TEST(FracSetupFile, FillsKeysAndPhases) {
  for (const std::string lineEnd : {"\n", "\r\n"}) {
    std::string text;
    for (const char c : kHead + bodyOf(64)) text += c == '\n' ? lineEnd : std::string(1, c);
    SetupBench bench(text);
    bench.pll.UpdateSetup_Frac();
    const PLL& pll = bench.pll;
    EXPECT_EQ(pll.PFDFromFile, 26.0F);
    EXPECT_EQ((std::vector{pll.ModFromFile, pll.ICPFromFile, pll.SW12FromFile, pll.SW3FromFile,
                           pll.PreScalarFromFile}),
              (std::vector<Integer>{1625, 7, 2, 3, 4}));
    const auto& phases = PLLProbe::phaseTable(bench.pll);
    ASSERT_EQ(phases.size(), 65U) << "one spare element behind the last line";
    EXPECT_EQ(phases[63], 163);
    EXPECT_EQ(phases[64], 0);
    EXPECT_TRUE(bench.host.screen.messages.empty()) << "a closing line end opens no further line";
  }
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
    EXPECT_FALSE(parseFracSetup(c.head, "f", false).P.has_value()) << c.head;
  }
}

TEST(FracSetupFile, ABodyLine) {
  const auto setup = parseFracSetup("FRAC\n0 130\n1 254\nx\nxx\n\nxx  -5\nxx1e3\n63 97 remark", "f");
  EXPECT_EQ(setup.phases, (std::vector<Integer>{130, 254, 0, 0, 0, -5, 1, 97}));
}

TEST(FracSetupFile, FewerThan64PhasesWarnAndServe) {
  const struct {
    int lines;
    bool warned;
    std::size_t table;
  } cases[] = {{63, true, 64}, {64, false, 65}, {0, true, 101}};
  for (const auto& c : cases) {
    SetupBench bench("FRAC\n" + bodyOf(100));
    PLL& pll = bench.pll;
    pll.PFDFromFile = 7, pll.ModFromFile = pll.ICPFromFile = pll.SW12FromFile = pll.SW3FromFile = 7;
    bench.pll.UpdateSetup_Frac();
    bench.file.write("$P= 9 FRAC\n" + bodyOf(c.lines));
    bench.pll.UpdateSetup_Frac();
    EXPECT_EQ(bench.host.screen.messages, c.warned ? kWarning : std::vector<Message>{}) << c.lines;
    EXPECT_EQ(PLLProbe::phaseTable(bench.pll).size(), c.table) << c.lines;
    EXPECT_EQ(bench.pll.PreScalarFromFile, 9);
    EXPECT_EQ((std::vector{pll.ModFromFile, pll.ICPFromFile, pll.SW12FromFile, pll.SW3FromFile}),
              std::vector<Integer>(4, 7))
        << "what the file does not name stays";
    EXPECT_EQ(pll.PFDFromFile, 7);
  }
}

TEST(FracSetupFile, TheSpareElementOfASingleLineIsOfTheFileBefore) {
  for (const auto& [before, spare] : {std::pair<std::string, Integer>{"0 1\n1 2\n2 3", 2}, {"0 1", 0}}) {
    SetupBench bench("FRAC\n" + before);
    bench.pll.UpdateSetup_Frac();
    bench.file.write("FRAC\n0 9");
    bench.pll.UpdateSetup_Frac();
    EXPECT_EQ(PLLProbe::phaseTable(bench.pll), (std::vector<Integer>{9, spare}));
  }
}

TEST(FracSetupFile, WhatANewFileLacksStays) {
  SetupBench bench(kHead + bodyOf(64));
  bench.pll.UpdateSetup_Frac();
  bench.file.write("MOD= 100\nFRAC\n" + bodyOf(64));
  bench.pll.UpdateSetup_Frac();
  EXPECT_EQ(bench.pll.ModFromFile, 100);
  EXPECT_EQ(bench.pll.PFDFromFile, 26.0F);

  bench.file.write("MOD= 7\nFRAC\n" + bodyOf(70));
  bench.pll.UpdateSetup_Frac_old();
  EXPECT_EQ(bench.pll.ModFromFile, 100) << "the old reader looks for no keys";
  EXPECT_EQ(PLLProbe::phaseTable(bench.pll).size(), 71U);

  bench.pll.SetupFileName.clear();
  bench.pll.SetupText = "x";
  bench.pll.UpdateSetup_Frac();
  EXPECT_EQ(bench.pll.SetupText, "");
  EXPECT_EQ(bench.pll.ModFromFile, 100);
}

TEST(FracSetupFile, AFileThatCannotBeUsedIsNamedAndChangesNothing) {
  const struct {
    std::string text;
    const char* complaint;
  } cases[] = {
      {"", ": the file ends without a line with \"FRAC\""},
      {"MOD= 5\nICP= 6\n", ", line 2: the file ends without a line with \"FRAC\""},
      {"MOD= 5\nICP= 40000\nFRAC\n", ", line 2: ICP = 40000 does not fit 16 bits (-32768 to 32767)"},
      {"MOD= 5\nFRAC\n0 1\n0 -40000\n", ", line 4: phase = -40000 does not fit 16 bits (-32768 to 32767)"},
      {"MOD= 5\nPFD= 1" + std::string(39, '0') + "\nFRAC",
       ", line 2: PFD = 1e+39 is too large (3.40282e+38 at most)"},
      {"FRAC\n" + bodyOf(32768), ", line 32769: more than 32767 phase values"},
  };
  for (const auto& c : cases) {
    SetupBench bench(kHead + bodyOf(64));
    bench.pll.UpdateSetup_Frac();
    bench.file.write(c.text);
    EXPECT_EQ(faultOf([&] { bench.pll.UpdateSetup_Frac(); }),
              "Setup file \"" + bench.file.path() + "\"" + c.complaint);
    EXPECT_EQ(bench.pll.ModFromFile, 1625) << c.complaint;
    EXPECT_EQ(PLLProbe::phaseTable(bench.pll).size(), 65U) << c.complaint;
    EXPECT_TRUE(bench.host.screen.messages.empty());
  }
}

TEST(FracSetupFile, AFileThatCannotBeReadIsNamedWithTheReason) {
  for (const auto& [path, why] : {std::pair{"/no/such file", "No such file or directory"},
                                  {"/", "it is a folder"},
                                  {"/dev/null", "it is no file"}}) {
    EngineBench bench;
    bench.pll.SetupFileName = path;
    EXPECT_EQ(faultOf([&] { bench.pll.UpdateSetup_Frac(); }),
              "Setup file \"" + std::string(path) + "\" cannot be read: " + why);
  }
}

}  // namespace
}  // namespace tessarine
