#include <array>
#include <string>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

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
  bench.click("ACommand");
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

// A button without "Close" in an LMX model, and its text and the one panel that survive a pick.
TEST(Panels, OpenAndCloseWithTheirQuirks) {
  const struct {
    const char *act, *shown, *button;  // what is clicked or picked, then panels and button
  } steps[] = {{"LMX2306", "", "Advanced"},        {"ACommand", "Frame16", "Advanced"},
               {"Command10", "", "Advanced"},      {"ADF4113", "", "Advanced"},
               {"ACommand", "Frame11", "Close"},   {"Close1", "", "Close"},
               {"ADF4153", "", "Close"},           {"ACommand", "", "Advanced"},
               {"ACommand", "Frame13", "Close"},   {"Close1", "", "Close"},
               {"ADF4252", "", "Close"},           {"ACommand", "", "Advanced"},
               {"ACommand", "Frame12", "Close"},   {"Close1", "", "Close"},
               {"ADF4118", "", "Close"},           {"ACommand", "", "Advanced"},
               {"ACommand", "Frame16", "Close"},   {"ADF4193", "Frame16", "Close"},
               {"ACommand", "", "Advanced"},       {"ACommand", "Frame17", "Close"},
               {"Label22", "", "Advanced"},        {"ADF4118", "", "Advanced"},
               {"ACommand", "Frame16", "Close"},   {"SKY72300-362", "Frame16 Frame24", "Close"},
               {"Label20", "Frame24", "Advanced"}, {"Label76", "", "Advanced"},
               {"ACommand", "Frame24", "Close"},   {"ACommand", "", "Advanced"}};
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

}  // namespace
}  // namespace tessarine
