#include <cstddef>
#include <string>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

struct SweepBench : ProgramBench {
  SweepBench(const char* start, const char* stop, const char* step, bool automatic = true)
      : ProgramBench("ADF4113") {
    tune("", "16/17", "10", "100");
    click("Sweep1");
    set({{"StartText1", start}, {"StopText1", stop}, {"StepText1", step}});
    if (automatic) {
      click("AutoOption1");
      set("DelaySweepText1", "40");
    }
    forget();
  }
  [[nodiscard]] std::size_t sends() const { return latches().size() / 3; }
};

TEST(SweepMode, SendsTheStopInSpiteOfTheRoundingOfItsSteps) {
  const struct {
    const char* stop;
    std::size_t sends;
    const char* last;
  } rows[] = {{"1001", 11, "Current Freq:\r\n1001.000000 MHz"},
              {"1000.25", 3, "Current Freq:\r\n1000.200000 MHz"},
              {"1000", 1, "Current Freq:\r\n1000.000000 MHz"}};
  for (const auto& row : rows) {
    SweepBench bench("1000", row.stop, "100");
    bench.click("StartSweepCommand");
    EXPECT_EQ(bench.sends(), row.sends) << row.stop;
    EXPECT_EQ(bench.value("Label15"), row.last);
    EXPECT_EQ(bench.milliseconds(), static_cast<int>(row.sends) * 100);
    EXPECT_EQ(bench.window.SweepRunning, kTrue);
    EXPECT_EQ(bench.value("Fregister"), std::string(24, '0')) << "a sweep leaves the captions alone";
  }
}

TEST(SweepMode, StepButtonsHaveExactLimitsAndTheirOwnText) {
  SweepBench bench("1000", "1000.25", "125", false);
  bench.window.DelaySweepText1.Text = "40000";  // out of sight, and of no use
  bench.click("Gen1");
  bench.click("CalculateCommand");
  bench.click("Sweep1");
  bench.click("NextCommand");  // enabled from the start: it works on whatever frequency stands
  EXPECT_EQ(bench.value("Label15"), " Current Freq                 0.125");
  EXPECT_FALSE(bench.window.PrevCommand.Enabled);
  bench.click("StartSweepCommand");
  bench.set("CompText", "1");
  const struct {
    const char *button, *text;
    std::size_t sends;
  } clicks[] = {{"PrevCommand", "Current Freq:\r\n1000.000000 MHz", 0},
                {"NextCommand", " Current Freq                 1000.125", 1},
                {"NextCommand", " Current Freq                 1000.25", 1},
                {"NextCommand", " Current Freq                 1000.25", 0},
                {"PrevCommand", " Current Freq                 1000.125", 1},
                {"PrevCommand", " Current Freq                 1000", 1}};
  for (const auto& click : clicks) {
    bench.forget();
    bench.click(click.button);
    EXPECT_EQ(bench.value("Label15"), click.text);
    EXPECT_EQ(bench.sends(), click.sends);
  }
  EXPECT_EQ(bench.pll.Fcomp, 100) << "the step buttons read no panel";
}

}  // namespace
}  // namespace tessarine
