#include <cstddef>
#include <string>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

void openPanel(ProgramBench& bench, const std::string& model) {
  bench.pick(model);
  if (bench.value("ACommand") == "Close") bench.click("ACommand");
  bench.click("ACommand");
}

// One control, what the operator does to it, and what the engine must then hold.
struct Choice {
  const char* control;
  const char* value;
  std::variant<Integer PLL::*, String PLL::*> member;
  const char* expected;
};

const struct {
  const char* model;
  std::vector<Choice> choices;
} kPanels[] = {
    {"ADF4113",
     {{"PrescalarText", " 32/33 ", &PLL::PreScalar, "32"},
      {"PrescalarText", "8.5", &PLL::PreScalar, "8"},
      {"PrescalarText", "9.5", &PLL::PreScalar, "10"},
      {"PrescalarText", "x", &PLL::PreScalar, "0"},
      {"Label33(0)", "click", &PLL::FuncInit, "0"},
      {"Label33(1)", "click", &PLL::FuncInit, "1"},
      {"Option3(0)", "1", &PLL::CPGain, "0"}}},
    {"ADF4251", {{"XLabel", "click", &PLL::RFRefDoubler, "1"}, {"RText", " 7x", &PLL::RF_R_Counter, " 7x"}}},
    {"ADF4156",
     {{"Check11(0)", "1", &PLL::FastLock_4531, "1"},
      {"Label43", "click", &PLL::Normal_LCD_Mode_4531, "1"},
      {"Label43", "click", &PLL::Normal_LCD_Mode_4531, "0"},
      {"Text27", "2.5", &PLL::RCounter_4531, "2"}}},
    {"ADF4193",
     {{"Combo10(1)", "Disable", &PLL::R1_REF2, "0"},
      {"Check16", "1", &PLL::R1_DoublerEnable, "1"},
      {"Text36(0)", "0", &PLL::R1_RFCounter, "0000"},
      {"Text36(0)", "15", &PLL::R1_RFCounter, "1111"},
      {"Text36(0)", "16", &PLL::R1_RFCounter, "1000"},
      {"Text36(1)", "5", &PLL::R2_PhaseValue, "000000000101"},
      {"Combo10(3)", "Negative", &PLL::R3_PFD, "0"},
      {"Text36(2)", "5", &PLL::R4_TimeOutCounter, "000000101"},
      {"Text36(2)", "5", &PLL::R4_TimeOutCounter_2, "000000101"},
      {"Text36(2)", "5", &PLL::R4_TimeOutCounter_3, "111111111"},    // the leftmost nine digits of -2
      {"Text36(2)", "8.5", &PLL::R4_TimeOutCounter_3, "000000010"},  // 1.5, to even
      {"Text36(2)", "600", &PLL::R4_TimeOutCounter, "100101100"},
      {"Text36(2)", "9", &PLL::R4_TimerSelect, "00"},
      {"Combo10(4)", "SW3", &PLL::R4_TimerSelect, "01"},
      {"Combo10(4)", "SW3", &PLL::R4_TimerSelect_2, "00"},
      {"Combo10(4)", "SW3", &PLL::R4_TimerSelect_3, "10"},
      {"Combo10(4)", "ICP", &PLL::R4_TimerSelect, "10"},
      {"Combo10(4)", "ICP", &PLL::R4_TimerSelect_3, "01"},
      {"Combo10(4)", "ICP", &PLL::R4_TimeOutCounter_2, "000010000"},
      {"Combo10(4)", "ICP", &PLL::R4_TimeOutCounter_3, "000010000"},
      {"Combo10(4)", "Not Used", &PLL::R4_TimerSelect, "11"},
      {"Combo10(4)", "Not Used", &PLL::R4_TimerSelect_3, "01"},
      {"Combo10(10)", "SW3 Timeout Signal", &PLL::R6_MuxOut, "1011"}}},
    {"SKY72300-362",
     {{"Text46(1)", "5", &PLL::Aux_RefDiv, "5"},
      {"Label70", "click", &PLL::Main_LDEnable, "1"},
      {"Label70", "click", &PLL::Main_LDEnable, "0"},
      {"Label71", "click", &PLL::Aux_LDEnable, "1"}}},
};

TEST(Panels, EachChoiceReachesItsMember) {
  for (const auto& panel : kPanels) {
    ProgramBench bench(panel.model);
    openPanel(bench, panel.model);
    for (const Choice& choice : panel.choices) {
      SCOPED_TRACE(std::string(choice.control) + " " + choice.value);
      if (std::string(choice.value) == "click") {
        bench.click(choice.control);
      } else {
        bench.set(choice.control, choice.value);
      }
      bench.window.FracRegister();
      const auto text = std::holds_alternative<String PLL::*>(choice.member)
                            ? bench.pll.*std::get<String PLL::*>(choice.member)
                            : std::to_string(bench.pll.*std::get<Integer PLL::*>(choice.member));
      EXPECT_EQ(text, choice.expected);
    }
  }
}

TEST(Panels, AllAreCopiedWhateverTheModelButThatOfTheSKY) {
  ProgramBench bench("ADF4113");
  bench.window.FracRegister();
  EXPECT_EQ(bench.pll.Main_RefDiv, 0);
  EXPECT_EQ(bench.pll.R6_MuxOut, "0000");
}

TEST(Panels, OpenAndCloseWithTheirQuirks) {
  ProgramBench bench("LMX2306");
  bench.click("ACommand");
  EXPECT_EQ(bench.value("ACommand"), "Advanced") << "an LMX model never shows \"Close\"";
  bench.click("Command10");
  EXPECT_FALSE(bench.visible("Frame16"));

  openPanel(bench, "ADF4113");
  EXPECT_EQ(bench.window.Frame11.Place.get(), (Twips{50, 100, 10500, 2750}));
  bench.pick("ADF4153");
  EXPECT_EQ(bench.value("ACommand"), "Close") << "the caption survives a pick";
  const auto visibleAfter = [&](const char* button, const char* panel) {
    bench.click(button);
    return bench.visible(panel);
  };
  EXPECT_FALSE(visibleAfter("ACommand", "Frame13"));
  EXPECT_TRUE(visibleAfter("ACommand", "Frame13"));
  EXPECT_FALSE(visibleAfter("Label17", "Frame13"));

  bench.pick("ADF4118");
  bench.click("ACommand");
  bench.pick("ADF4193");
  EXPECT_TRUE(bench.visible("Frame16")) << "this one panel survives a pick";
  openPanel(bench, "ADF4193");
  openPanel(bench, "SKY72300-362");
  EXPECT_EQ(bench.shown({"Frame16", "Frame17", "Frame24"}), Texts{"Frame24"});
  bench.window.Label17_Click();
  EXPECT_TRUE(bench.visible("Frame24")) << "the other panels' close label leaves it";
  EXPECT_EQ(bench.value("ACommand"), "Advanced");
  EXPECT_FALSE(visibleAfter("Label76", "Frame24"));
  EXPECT_TRUE(visibleAfter("ACommand", "Frame24"));
  EXPECT_FALSE(visibleAfter("ACommand", "Frame24"));
}

TEST(Panels, CloseLeavesNoneOfThemOpen) {
  for (const auto& [model, panel] :
       {std::pair{"ADF4113", "Frame11"}, {"ADF4252", "Frame12"}, {"ADF4153", "Frame13"}}) {
    ProgramBench bench(model);
    bench.click("ACommand");
    EXPECT_TRUE(bench.visible(panel));
    bench.click("Close1");
    EXPECT_FALSE(bench.visible(panel)) << panel;
  }
}

TEST(Panels, ImmediateSettingsActAtOnce) {
  ProgramBench bench("LMX2316");
  openPanel(bench, "LMX2316");
  EXPECT_EQ(bench.pll.GoBit, "") << "although one option starts selected";
  bench.click("Option7(1)");
  EXPECT_EQ(bench.pll.GoBit, "1") << "a click on the selected option counts";
  bench.click("Option7(0)");
  EXPECT_EQ(bench.pll.GoBit, "0");
  bench.click("Check1");
  EXPECT_EQ(bench.program.module.PolarityNegative, kTrue);
  openPanel(bench, "ADF4153");
  bench.click("LDPCheck");
  EXPECT_EQ(bench.window.LDPCheck.Caption.get(), "LDP=5");
  openPanel(bench, "ADF4252");
  EXPECT_EQ(bench.value("Option4(0)"), "0");
  bench.click("CRLabel(5)");
  EXPECT_EQ(bench.value("Option4(0)"), "1") << "any control bit selects the noise and spur option";
  for (const char* const option : {"Option4(1)", "Option4(2)"}) {
    bench.click(option);
    EXPECT_EQ(bench.value(option), "1");
  }
}

TEST(Panels, ValueBeyond16BitsIsOneMessageThatNamesItsField) {
  const struct {
    const char* model;
    const char* control;
    const char* field;
  } rows[] = {{"ADF4113", "PrescalarText", "PreScalar"},
              {"ADF4153", "Text26", "Resync"},
              {"ADF4193", "Text36(2)", "Time Out Counter"},
              {"SKY72300-362", "Text46(0)", "Main: Ref Div Value"}};
  for (const auto& row : rows) {
    ProgramBench bench(row.model);
    openPanel(bench, row.model);
    bench.set("VCOText", "900");
    bench.set(row.control, "40000");
    bench.forget();
    bench.click(bench.visible("AllCommand") ? "AllCommand" : "Command14(0)");
    EXPECT_EQ(bench.messages(),
              Texts{std::string(row.field) + " = 40000 does not fit 16 bits (-32768 to 32767)"});
    EXPECT_TRUE(bench.host.port.accesses.empty()) << "nothing is sent";
  }
}

}  // namespace
}  // namespace tessarine
