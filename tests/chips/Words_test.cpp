// The words of the integer-N chips, of the PE3342 and of the UMC module as they go out.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/ChipBench.h"
#include "support/FaultOf.h"

namespace tessarine {
namespace {

TEST(IntegerN, WordsOfEachFamilyAsTheyGoOut) {
  const struct {
    const char* what;
    const char* model;
    Integer prescaler;
    void (*panel)(ChipBench&);
    Words words;  // F, R, N
  } cases[] = {
      {"gain, initialization, first and last bit of the panel", "ADF4110", 8,
       [](auto& b) { b.pll.CPGain = b.pll.FuncInit = "1", b.pll.FAnalogDevice = "10000000000000000001"; },
       "200007/24 C8/24 223211/24"_w},
      {"the panel's gain", "LMX2316", 32, [](auto&) {}, "1092/21 C8/21 104651/21"_w},
      {"no gain chosen yet, negative polarity", "ADF4118", 32,
       [](auto& b) { b.pll.GoBit = "", b.module.PolarityNegative = kTrue; }, "1012/21 C8/21 4651/20"_w},
      {"lock detect precision, no gain", "LMX2306", 32, [](auto&) {}, "1092/21 1000C8/21 4651/21"_w},
      {"gain at moduli below 30", "LMX2306", 29, [](auto&) {}, "1092/21 1000C8/21 104D95/21"_w},
      {"none at 30", "LMX2306", 30, [](auto&) {}, "1092/21 1000C8/21 4B01/21"_w},
      {"no function word", "LMX2325", 32, [](auto&) {}, "0/0 8065/19 8C28/19"_w},
      {"the other number of a pair", "LMX2325", 65, [](auto&) {}, "0/0 65/19 451E/19"_w},
      {"no words at all", "ADF4108", 8, [](auto&) {}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.model) + ": " + c.what);
    ChipBench bench(c.model, 900, c.prescaler);
    c.panel(bench);
    bench.pll.SetPLL();
    EXPECT_EQ(bench.host.port.latches(), c.words);
    EXPECT_EQ(PLLProbe::nTotal(bench.pll), 4500);
    EXPECT_EQ(PLLProbe::rTotal(bench.pll), 50);
  }
}

TEST(PE3342, FieldsFoldedIntoOneWord) {
  const struct {
    const char *R, *M, *A;  // all ones in turn, so that each place of the word is claimed once
    Words wire;
    const char* fault = "no fault";
  } cases[] = {
      {"111111", "000000000", "0000", {"1100000000011110000"}},
      {"000000", "111111111", "0000", {"0011111111100000000"}},
      {"000000", "000000000", "1111", {"0000000000000001111"}},
      {"100011", "010110100", "0010", {"1001011010000110010"}},
      {"10001", "010110100", "0010", {}, "The field R of the PE3342 has 5 bits where it needs 6"},
      {"100011", "01011010", "0010", {}, "The field M of the PE3342 has 8 bits where it needs 9"},
      {"100011", "010110100", "001", {}, "The field A of the PE3342 has 3 bits where it needs 4"},
  };
  for (const auto& c : cases) {
    EngineBench bench;
    bench.pll.Rstr = c.R, bench.pll.MStr = c.M, bench.pll.Astr = c.A;
    EXPECT_EQ(faultOf([&] { bench.pll.Set_PE3342(); }), c.fault);
    EXPECT_EQ(bench.host.port.latches(), c.wire);
    EXPECT_EQ(bench.pll.Rstr, c.wire.empty() ? c.R : reversed({c.R})[0])
        << "turned over, but not by a refusal";
  }
}

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
