#include <array>
#include <string>
#include <variant>

#include "support/ProgramBench.h"
#include "support/TempFile.h"

namespace tessarine {
namespace {

void openPanel(ProgramBench& bench, const std::string& model) {
  bench.pick(model);
  if (bench.value("ACommand") == "Close") bench.click("ACommand");
  bench.click("ACommand");
}

TEST(Panels, EachChoiceReachesItsMember) {
  const struct {
    const char *model, *control, *value;
    std::variant<Integer PLL::*, String PLL::*> member;
    const char* expected;
  } rows[] = {
      {"ADF4113", "PrescalarText", " 32/33 ", &PLL::PreScalar, "32"},
      {"ADF4113", "PrescalarText", "8.5", &PLL::PreScalar, "8"},
      {"ADF4113", "PrescalarText", "9.5", &PLL::PreScalar, "10"},
      {"ADF4113", "PrescalarText", "x", &PLL::PreScalar, "0"},
      {"ADF4113", "Label33(0)", "click", &PLL::FuncInit, "0"},
      {"ADF4113", "Label33(1)", "click", &PLL::FuncInit, "1"},
      {"ADF4113", "Option3(1)", "click", &PLL::CPGain, "1"},
      {"LMX2316", "Option7(1)", "click", &PLL::GoBit, "1"},  // the one that starts selected
      {"LMX2316", "Option7(0)", "click", &PLL::GoBit, "0"},
      {"ADF4251", "XLabel", "click", &PLL::RFRefDoubler, "1"},
      {"ADF4251", "RText", " 7x", &PLL::RF_R_Counter, " 7x"},
      {"ADF4156", "Label43", "click", &PLL::Normal_LCD_Mode_4531, "1"},
      {"ADF4156", "Label43", "click", &PLL::Normal_LCD_Mode_4531, "0"},
      {"ADF4193", "Combo10(3)", "Negative", &PLL::R3_PFD, "0"},
      {"ADF4193", "Combo10(10)", "SW3 Timeout Signal", &PLL::R6_MuxOut, "1011"},
      {"SKY72300-362", "Text46(1)", "5", &PLL::Aux_RefDiv, "5"},
      {"SKY72300-362", "Label70", "click", &PLL::Main_LDEnable, "1"},
      {"SKY72300-362", "Label70", "click", &PLL::Main_LDEnable, "0"},
      {"SKY72300-362", "Label71", "click", &PLL::Aux_LDEnable, "1"},
  };
  ProgramBench bench("LMX2306");
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.control) + ' ' + row.value);
    if (bench.program.module.CurrentModel != row.model) openPanel(bench, row.model);
    if (row.value == std::string("click")) {
      bench.click(row.control);
    } else {
      bench.set(row.control, row.value);
    }
    bench.window.FracRegister();
    const auto text = std::holds_alternative<String PLL::*>(row.member)
                          ? bench.pll.*std::get<String PLL::*>(row.member)
                          : std::to_string(bench.pll.*std::get<Integer PLL::*>(row.member));
    EXPECT_EQ(text, row.expected);
  }
}

TEST(Panels, TheTimerChosenIsFollowedByTheOtherTwo) {
  const struct {
    const char *choice, *counter;
    std::array<const char*, 3> select, counters;
  } rows[] = {
      {"SW1/SW2", "5", {"00", "01", "10"}, {"000000101", "000000101", "111111111"}},  // of -2
      {"SW1/SW2", "8.5", {"00", "01", "10"}, {"000001000", "000001000", "000000010"}},
      {"SW1/SW2", "600", {"00", "01", "10"}, {"100101100", "100101100", "100101000"}},  // of 10 digits
      {"SW3", "9", {"01", "00", "10"}, {"000001001", "000001001", "000000010"}},
      {"ICP", "9", {"10", "00", "01"}, {"000001001", "000010000", "000010000"}},
      {"Not Used", "8", {"11", "00", "01"}, {"000001000", "000010000", "000010000"}}};
  ProgramBench bench("ADF4193");
  openPanel(bench, "ADF4193");
  for (const auto& row : rows) {
    bench.set({{"Combo10(4)", row.choice}, {"Text36(2)", row.counter}});
    bench.window.FracRegister();
    const PLL& pll = bench.pll;
    EXPECT_EQ((Texts{pll.R4_TimerSelect, pll.R4_TimerSelect_2, pll.R4_TimerSelect_3}),
              Texts(row.select.begin(), row.select.end()));
    EXPECT_EQ((Texts{pll.R4_TimeOutCounter, pll.R4_TimeOutCounter_2, pll.R4_TimeOutCounter_3}),
              Texts(row.counters.begin(), row.counters.end()));
  }
}

TEST(Panels, AllAreCopiedWhateverTheModelButThatOfTheSKY) {
  ProgramBench bench("ADF4113");
  bench.window.FracRegister();
  EXPECT_EQ(bench.pll.Main_RefDiv, 0);
  EXPECT_EQ(bench.pll.R6_MuxOut, "0000");
  const TempFile bands("800 1000 3\nend\n");
  openPanel(bench, "SKY72300-362");
  bench.set("Text47", bands.path());
  bench.window.FracRegister();
  EXPECT_EQ(bench.pll.SetupFileName, bands.path()) << "as if it were that of the phases";
}

TEST(Panels, OpenAndCloseWithTheirQuirks) {
  const struct {
    const char *act, *shown, *button;  // what is clicked or picked; panels and button then
  } steps[] = {{"LMX2306", "", "Advanced"},
               {"ACommand", "Frame16", "Advanced"},  // never "Close"
               {"Command10", "", "Advanced"},
               {"ADF4113", "", "Advanced"},
               {"ACommand", "Frame11", "Close"},
               {"Close1", "", "Close"},
               {"ADF4153", "", "Close"},  // which survives a pick
               {"ACommand", "", "Advanced"},
               {"ACommand", "Frame13", "Close"},
               {"Close1", "", "Close"},
               {"ADF4252", "", "Close"},
               {"ACommand", "", "Advanced"},
               {"ACommand", "Frame12", "Close"},
               {"Close1", "", "Close"},
               {"ADF4118", "", "Close"},
               {"ACommand", "", "Advanced"},
               {"ACommand", "Frame16", "Close"},
               {"ADF4193", "Frame16", "Close"},  // the one panel that survives a pick
               {"ACommand", "", "Advanced"},
               {"ACommand", "Frame17", "Close"},
               {"Label22", "", "Advanced"},
               {"ADF4118", "", "Advanced"},
               {"ACommand", "Frame16", "Close"},
               {"SKY72300-362", "Frame16 Frame24", "Close"},
               {"Label20", "Frame24", "Advanced"},
               {"Label76", "", "Advanced"},
               {"ACommand", "Frame24", "Close"},
               {"ACommand", "", "Advanced"}};
  ProgramBench bench("LMX2306");
  for (const auto& step : steps) {
    SCOPED_TRACE(step.act);
    if (bench.program.forms.find(step.act)) {
      bench.click(step.act);
    } else {
      bench.pick(step.act);
    }
    EXPECT_EQ(bench.shown("Frame11 Frame12 Frame13 Frame16 Frame17 Frame24"), step.shown);
    EXPECT_EQ(bench.value("ACommand"), step.button);
  }
}

TEST(Panels, OptionsAndBitsFollowEachOther) {
  ProgramBench bench("LMX2316");
  EXPECT_EQ(bench.pll.GoBit, "") << "although one option starts selected";
  openPanel(bench, "LMX2316");
  bench.click("Check1");
  EXPECT_EQ(bench.program.module.PolarityNegative, kTrue);
  openPanel(bench, "ADF4153");
  for (const char* const caption : {"LDP=5", "LDP=3"}) {
    bench.click("LDPCheck");
    EXPECT_EQ(bench.window.LDPCheck.Caption.get(), caption);
  }
  openPanel(bench, "ADF4252");
  bench.click("CRLabel(5)");
  EXPECT_EQ(bench.value("Option4(0)"), "1") << "any control bit selects the noise and spur option";
  for (const char* const option : {"Option4(1)", "Option4(2)"}) {
    bench.click(option);
    EXPECT_EQ(bench.value(option), "1");
  }
}

TEST(Panels, ValueBeyond16BitsIsOneMessageThatNamesItsField) {
  const struct {
    const char *model, *control, *field;
  } rows[] = {{"ADF4113", "PrescalarText", "PreScalar"},
              {"ADF4153", "Text26", "Resync"},
              {"ADF4153", "Text27", "RF R Counter"},
              {"ADF4193", "Text36(0)", "RF R Counter Divide Ratio"},
              {"ADF4193", "Text36(1)", "Phase Value"},
              {"ADF4193", "Text36(2)", "Time Out Counter"},
              {"SKY72300-362", "Text46(0)", "Main: Ref Div Value"},
              {"SKY72300-362", "Text46(1)", "Aux: Ref Div Value"},
              {"SKY72300-362", "Text46(2)", "Main: chrg pump"},
              {"SKY72300-362", "Text46(3)", "Aux: chrg pump"}};
  for (const auto& row : rows) {
    ProgramBench bench(row.model);
    openPanel(bench, row.model);
    bench.set({{"VCOText", "900"}, {row.control, "40000"}});
    bench.forget();
    bench.click(bench.visible("AllCommand") ? "AllCommand" : "Command14(0)");
    EXPECT_EQ(bench.messages(),
              Texts{std::string(row.field) + " = 40000 does not fit 16 bits (-32768 to 32767)"});
    EXPECT_TRUE(bench.host.port.accesses.empty()) << "nothing is sent";
  }
}

}  // namespace
}  // namespace tessarine
