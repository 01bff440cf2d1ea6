#include <array>
#include <string>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

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
