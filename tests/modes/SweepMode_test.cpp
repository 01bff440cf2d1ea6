#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using Texts = std::vector<std::string>;

struct SweepBench : ProgramBench {
  SweepBench(const char* start, const char* stop, const char* step, bool automatic = true) {
    open();
    pick("ADF4113");
    set("RefText", "10");
    set("CompText", "100");
    set("PrescalarText", "16/17");
    click("Sweep1");
    set("StartText1", start);
    set("StopText1", stop);
    set("StepText1", step);
    if (automatic) {
      click("AutoOption1");
      set("DelaySweepText1", "40");
    }
    forget();
  }
  std::size_t sends() const { return host.port.latches().size() / 3; }
};

TEST(SweepMode, SendsTheStopInSpiteOfTheRoundingOfItsSteps) {
  const struct {
    const char* start;
    const char* stop;
    const char* step;
    std::size_t sends;
    const char* last;
  } rows[] = {{"1000", "1001", "100", 11, "Current Freq:\r\n1001.000000 MHz"},
              {"1000", "1000.25", "100", 3, "Current Freq:\r\n1000.200000 MHz"},
              {"1000", "1000", "100", 1, "Current Freq:\r\n1000.000000 MHz"}};
  for (const auto& row : rows) {
    SweepBench bench(row.start, row.stop, row.step);
    const auto before = bench.host.clock.elapsed;
    bench.click("StartSweepCommand");
    EXPECT_EQ(bench.sends(), row.sends) << row.stop;
    EXPECT_EQ(bench.value("Label15"), row.last);
    EXPECT_EQ(bench.host.clock.elapsed - before, static_cast<std::int64_t>(row.sends) * 100000);
    EXPECT_EQ(bench.window.SweepRunning, kTrue);
    EXPECT_EQ(bench.value("Fregister"), "000000000000000000000000") << "a sweep leaves the captions alone";
  }
}

TEST(SweepMode, StopEndsAfterTheStepAndItsDelay) {
  SweepBench bench("1000", "1010", "0");
  bench.host.screen.at(270, [&] { bench.click("StopSweepCommand"); });
  bench.host.screen.at(130, [&] { bench.click("Gen1"); });
  bench.host.screen.at(230, [&] { bench.click("Sweep1"); });
  const auto before = bench.host.clock.elapsed;
  bench.click("StartSweepCommand");
  EXPECT_EQ(bench.sends(), 3U) << "a step of 0 goes on until Stop; a mode change does not end it";
  EXPECT_EQ(bench.host.clock.elapsed - before, 300000);
  EXPECT_EQ(bench.value("Label15"), "Current Freq:\r\n1000.000000 MHz");
}

TEST(SweepMode, StepButtonsHaveExactLimitsAndTheirOwnText) {
  SweepBench bench("1000", "1000.2", "100", false);
  bench.click("Gen1");
  bench.click("CalculateCommand");
  bench.click("Sweep1");
  bench.click("NextCommand");  // enabled from the start: it works on whatever frequency stands
  EXPECT_EQ(bench.value("Label15"), " Current Freq                 0.1");
  EXPECT_FALSE(bench.window.PrevCommand.Enabled);
  bench.click("StartSweepCommand");
  EXPECT_EQ(bench.value("Label15"), "Current Freq:\r\n1000.000000 MHz");
  bench.forget();
  bench.click("PrevCommand");
  EXPECT_EQ(bench.sends(), 0U) << "at the start frequency";
  bench.click("NextCommand");
  EXPECT_EQ(bench.value("Label15"), " Current Freq                 1000.1");
  bench.click("NextCommand");
  EXPECT_EQ(bench.sends(), 2U);
  bench.click("NextCommand");
  EXPECT_EQ(bench.sends(), 2U) << "at the stop frequency";
  bench.set("CompText", "1");
  bench.click("PrevCommand");
  EXPECT_EQ(bench.pll.Fcomp, 100) << "the step buttons read no panel";
}

TEST(SweepMode, ShowsTheControlsOfItsWayOfWorking) {
  SweepBench bench("1", "2", "3", false);
  const Texts all = {"DelaySweepText1", "DLabel", "msLabel", "PrevCommand", "NextCommand"};
  EXPECT_EQ(bench.shown(all), (Texts{"PrevCommand", "NextCommand"}));
  bench.click("AutoOption1");
  EXPECT_EQ(bench.shown(all), (Texts{"DelaySweepText1", "DLabel", "msLabel"}));
  bench.click("StepOption");
  EXPECT_EQ(bench.shown(all), (Texts{"PrevCommand", "NextCommand"}));
}

TEST(SweepMode, RefusesWhatLeadsNowhere) {
  SweepBench below("1000", "999", "100");
  below.click("StartSweepCommand");
  EXPECT_EQ(below.host.screen.messages,
            (std::vector<Message>{{" Start should be less  then stop", Icon::plain, "Tessarine"}}));
  EXPECT_EQ(below.sends(), 0U);
  EXPECT_EQ(below.window.SweepRunning, kTrue);
  EXPECT_TRUE(below.window.PrevCommand.Enabled);

  SweepBench negative("1000", "1001", "-100");
  negative.click("StartSweepCommand");
  SweepBench longDelay("1000", "1001", "100");
  longDelay.set("DelaySweepText1", "32768");
  longDelay.click("StartSweepCommand");
  for (SweepBench* bench : {&negative, &longDelay}) {
    EXPECT_EQ(bench->messages().size(), 1U);
    EXPECT_EQ(bench->sends(), 0U);
    EXPECT_EQ(bench->window.SweepRunning, kFalse);
  }
}

TEST(SweepMode, FaultOnTheWayStopsTheSweep) {
  SweepBench bench("13105", "13108", "1000");  // B reaches its 8191 in between
  bench.click("StartSweepCommand");
  EXPECT_EQ(bench.messages().size(), 1U);
  EXPECT_EQ(bench.sends(), 3U);
  EXPECT_EQ(bench.window.SweepRunning, kFalse);
  EXPECT_EQ(bench.value("Label15"), "Current Freq:\r\n13107.000000 MHz");
}

TEST(SweepMode, StepButtonInsideAnAutoRunIsOverwrittenByTheNextStep) {
  SweepBench bench("1000", "1000.1", "100");
  bench.host.screen.at(70, [&] {
    bench.click("StepOption");
    bench.click("NextCommand");
  });
  bench.click("StartSweepCommand");
  EXPECT_EQ(bench.sends(), 3U);
  EXPECT_EQ(bench.value("Label15"), "Current Freq:\r\n1000.100000 MHz");
}

TEST(SweepMode, ADF4193IsInitialisedBeforeTheEntriesAreCompared) {
  ProgramBench bench;
  bench.open();
  bench.pick("ADF4193");
  bench.set("RefText", "104");
  bench.set("CompText", "200");
  bench.set("PrescalarText", "8/9");
  bench.click("Sweep1");
  bench.set("StartText1", "1747.2");
  bench.set("StopText1", "1700");
  bench.forget();
  bench.click("StartSweepCommand");
  EXPECT_EQ(bench.messages(), Texts{" Start should be less  then stop"});
  EXPECT_EQ(bench.host.port.latches().size(), 14U) << "the power-up sequence";
}

}  // namespace
}  // namespace tessarine
