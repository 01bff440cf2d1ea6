#include <gtest/gtest.h>

#include <utility>

#include "support/ChipBench.h"
#include "support/FaultOf.h"

namespace tessarine {
namespace {

TEST(UMC, ValuesAsMantissaAndPowerOfTen) {
  const struct {
    const char* name;
    void (*set)(PLL&);
    const char* wire;
  } cases[] = {
      {"start", [](PLL& p) { p.StartFreq = 1234.5F; }, "00010101000000000011000000111001"},
      {"start", [](PLL& p) { p.StartFreq = 0; }, "00010001000000000000000000000000"},
      {"stop", [](PLL& p) { p.StopFreq = 100.40625F; }, "00100001100110010011010100110001"},
      {"stop", [](PLL& p) { p.StopFreq = 1e9F; }, "00101111000000000000000000000001"},
      {"stepsize", [](PLL& p) { p.StepSize = 16777.215F; }, "00110000111111111111111111111111"},
      {"channel", [](PLL& p) { p.Channel = 100; }, "00000000000000000000000001100100"},
  };
  for (const auto& c : cases) {
    ChipBench bench("UMC");
    c.set(bench.pll);
    bench.pll.Send32BitReg(c.name);
    EXPECT_EQ(bench.host.port.latches(), Words{c.wire}) << c.name;
    EXPECT_EQ(bench.host.port.bytes().back(), 0) << "load enable falls again";
    EXPECT_EQ(bench.host.clock.elapsed, FakeClock::kSecond / 100);
  }
}

TEST(UMC, TheWholeSetInItsOrderWithTheChannelThatCountsStepsAboveTheStart) {
  for (const auto& [Fvco, channel] :
       {std::pair{1000.0, "0/32"}, {1001.5, "2/32"}, {1002.5, "2/32"}, {1002.51, "3/32"}}) {
    ChipBench bench("UMC", Fvco);
    bench.pll.CalcChannel = true;
    bench.pll.SetPLL();
    Words words = "19000001/32 29000002/32 36000001/32 47000001/32"_w;
    words.push_back(operator""_w(channel, 0)[0]);
    EXPECT_EQ(bench.host.port.latches(), words) << Fvco;
  }
}

TEST(UMC, WhatDoesNotFitIsRefusedAndNotSent) {
  const struct {
    const char* name;  // null: the whole set, with a channel that is counted
    void (*set)(PLL&);
    const char* text;
  } cases[] = {
      {"stepsize", [](PLL& p) { p.StepSize = 16777.216F; },
       "Mantissa of UMC stepsize = 16777216 does not fit 24 bits (0 to 16777215)"},
      {"start", [](PLL& p) { p.StartFreq = 1e10F; },
       "Exponent of UMC start = 16 does not fit 4 bits (0 to 15)"},
      {"ref", [](PLL& p) { p.RefFreq = -10; }, "UMC ref = -10000000 must not be negative"},
      {"stepsize", [](PLL& p) { p.StepSize = 1e38F; }, "UMC stepsize = inf is too large"},
      {nullptr, [](PLL& p) { p.StepSize = 4, p.RefFreq = -10; }, "UMC ref = -10000000 must not be negative"},
      {"speed", [](PLL&) {}, "The UMC module has no register \"speed\""},
      {nullptr, [](PLL& p) { p.StepSize = 0; }, "UMC step size = 0 kHz must be above 0"},
      {nullptr, [](PLL& p) { p.StepSize = 1; },
       "UMC channel = 100000 does not fit 16 bits (-32768 to 32767)"},
  };
  for (const auto& c : cases) {
    ChipBench bench("UMC", 1100);
    bench.pll.CalcChannel = true;
    c.set(bench.pll);
    EXPECT_EQ(faultOf([&] { c.name != nullptr ? bench.pll.Send32BitReg(c.name) : bench.pll.Set_UMC(); }),
              c.text);
    EXPECT_EQ(bench.pll.Channel, 7);
    EXPECT_TRUE(bench.host.port.accesses.empty());
  }
}

}  // namespace
}  // namespace tessarine
