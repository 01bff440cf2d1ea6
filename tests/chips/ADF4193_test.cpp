// The words in order on the wire stand in modes/ADF4193Commands_test.cpp.
#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/ChipBench.h"

namespace tessarine {
namespace {

struct ADF4193Bench : ChipBench {
  ADF4193Bench() : ChipBench("ADF4193", 1747.2) {
    pll.Fosc = 104;
    pll.R1_REF2 = "1";
    pll.R1_RFCounter = "0010";
  }
  // As they go out.
  [[nodiscard]] Words words() const {
    return reversed({pll.R0, pll.r1, pll.R2, pll.R3, pll.R4, pll.R4_2, pll.R4_3, pll.R5, pll.R6});
  }
};

TEST(ADF4193, AFileOverrulesThePanel) {
  ADF4193Bench bench;
  bench.useFracFile();
  bench.pll.Fosc = 0;  // plays no part
  // R counter 2, REF/2 and the select of the panel stay; prescaler, timers and phase are those of the file.
  for (const char* run : {"first", "second: the values of the file are not used up"}) {
    bench.calculate();
    EXPECT_EQ(bench.words(), "2180D0/24 410411/24 2692/16 4B/16 40F4/24 4044/24 602C/24 5/8 E/16"_w) << run;
  }
  EXPECT_EQ(bench.pll.PreScalar, 4);
  EXPECT_EQ(bench.pll.R2_PhaseValue, "010011010010");
  EXPECT_EQ(bench.pll.R4_TimeOutCounter_3, "100000001") << "the leftmost nine of ten digits";
  EXPECT_EQ(bench.pll.R4_TimerSelect, "00");
  EXPECT_TRUE(bench.host.screen.messages.empty());
}

TEST(ADF4193, AFracWithoutAPhaseIsToldAndCountsAsZero) {
  const struct {
    std::size_t size;
    const char* told;
    unsigned phase;
  } cases[] = {{0, "The phase table is empty: no setup file has filled it", 0},
               {26, "FRAC = 26 lies outside the phase table (0 to 25)", 0},
               {27, nullptr, 1234}};
  for (const auto& c : cases) {
    ADF4193Bench bench;
    bench.useFracFile();
    PLLProbe::phaseTable(bench.pll).resize(c.size);
    bench.calculate();
    EXPECT_EQ(bitsOf(bench.pll.R2, 3, 12), c.phase);
    std::vector<Message> messages;
    if (c.told != nullptr) messages = {{"Error in Get Phase Value", Icon::critical, c.told}};
    EXPECT_EQ(bench.host.screen.messages, messages);
    EXPECT_EQ(bench.pll.PhasePerFrac(-1), 0);
  }
}

}  // namespace
}  // namespace tessarine
