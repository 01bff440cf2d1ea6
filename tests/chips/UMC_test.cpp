#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/EngineBench.h"
#include "support/FaultOf.h"

namespace tessarine {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(UMC, ValuesAsMantissaAndPowerOfTen) {
  struct Case {
    const char* name;
    void (*set)(PLL&);
    const char* wire;
  };
  const Case cases[] = {
      {"start", [](PLL& p) { p.StartFreq = 1000; }, "00011001000000000000000000000001"},
      {"start", [](PLL& p) { p.StartFreq = 1234.5F; }, "00010101000000000011000000111001"},
      {"start", [](PLL& p) { p.StartFreq = 0; }, "00010001000000000000000000000000"},
      {"stop", [](PLL& p) { p.StopFreq = 100.40625F; }, "00100001100110010011010100110001"},
      {"stop", [](PLL& p) { p.StopFreq = 1e9F; }, "00101111000000000000000000000001"},
      {"stepsize", [](PLL& p) { p.StepSize = 12.5F; }, "00110010000000000000000001111101"},
      {"stepsize", [](PLL& p) { p.StepSize = 16777.215F; }, "00110000111111111111111111111111"},
      {"ref", [](PLL& p) { p.RefFreq = 10; }, "01000111000000000000000000000001"},
      {"channel", [](PLL& p) { p.Channel = 100; }, "00000000000000000000000001100100"},
      {"channel", [](PLL& p) { p.Channel = 0; }, "00000000000000000000000000000000"},
  };
  for (const Case& each : cases) {
    EngineBench bench;
    each.set(bench.pll);
    bench.pll.Send32BitReg(each.name);
    EXPECT_THAT(bench.host.port.latches(), ElementsAre(each.wire)) << each.name;
    EXPECT_EQ(bench.host.port.bytes().back(), 0) << "load enable falls again";
    EXPECT_EQ(bench.host.clock.elapsed, FakeClock::kSecond / 100);
  }
}

TEST(UMC, WhatDoesNotFitIsRefusedAndNotSent) {
  struct Case {
    const char* name;
    void (*set)(PLL&);
    const char* text;
  };
  const Case cases[] = {
      {"stepsize", [](PLL& p) { p.StepSize = 16777.216F; },
       "Mantissa of UMC stepsize = 16777216 does not fit 24 bits (0 to 16777215)"},
      {"start", [](PLL& p) { p.StartFreq = 1e10F; },
       "Exponent of UMC start = 16 does not fit 4 bits (0 to 15)"},
      {"ref", [](PLL& p) { p.RefFreq = -10; }, "UMC ref = -10000000 must not be negative"},
      {"channel", [](PLL& p) { p.Channel = -1; }, "UMC channel = -1 must not be negative"},
      {"speed", [](PLL&) {}, "The UMC module has no register \"speed\""},
  };
  for (const Case& each : cases) {
    EngineBench bench;
    each.set(bench.pll);
    EXPECT_EQ(faultOf([&] { bench.pll.Send32BitReg(each.name); }), each.text);
    EXPECT_THAT(bench.host.port.accesses, IsEmpty());
  }
}

struct ChannelBench : EngineBench {
  ChannelBench() {
    module.CurrentModel = "UMC";
    pll.StartFreq = 1000;
    pll.StopFreq = 2000;
    pll.StepSize = 1000;
    pll.RefFreq = 10;
    pll.Channel = 7;
    pll.CalcChannel = true;
  }
};

TEST(UMC, TheWholeSetInItsOrder) {
  ChannelBench bench;
  bench.pll.CalcChannel = false;
  bench.pll.SetPLL();
  EXPECT_THAT(bench.host.port.latches(),
              ElementsAre("00011001000000000000000000000001", "00101001000000000000000000000010",
                          "00110110000000000000000000000001", "01000111000000000000000000000001",
                          "00000000000000000000000000000111"));
  EXPECT_EQ(bench.pll.Channel, 7);
}

TEST(UMC, TheChannelCountsStepsAboveTheStart) {
  for (const auto& [Fvco, channel] :
       {std::pair<double, Integer>{1000, 0}, {1100, 100}, {1001.5, 2}, {1002.5, 2}, {1002.51, 3}}) {
    ChannelBench bench;
    bench.pll.Fvco = Fvco;
    bench.pll.Set_UMC();
    EXPECT_EQ(bench.pll.Channel, channel) << Fvco;
  }
}

TEST(UMC, AChannelThatCannotBeCountedSendsNothing) {
  struct Case {
    Single step;
    const char* text;
  };
  for (const Case& each : {Case{0, "UMC step size = 0 kHz must be above 0"},
                           {1, "UMC channel = 100000 does not fit 16 bits (-32768 to 32767)"}}) {
    ChannelBench bench;
    bench.pll.Fvco = 1100;
    bench.pll.StepSize = each.step;
    EXPECT_EQ(faultOf([&] { bench.pll.Set_UMC(); }), each.text);
    EXPECT_EQ(bench.pll.Channel, 7);
    EXPECT_THAT(bench.host.port.accesses, IsEmpty());
  }
}

}  // namespace
}  // namespace tessarine
