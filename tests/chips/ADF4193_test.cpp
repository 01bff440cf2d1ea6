#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "chips/WordReader.h"
#include "support/ChipBench.h"

namespace tessarine {
namespace {

using testing::ElementsAre;

struct ADF4193Bench : ChipBench {
  ADF4193Bench() : ChipBench("ADF4193", 1747.2) {
    pll.Fosc = 104;
    pll.R1_REF2 = "1";
    pll.R1_RFCounter = "0010";
  }
  // r1 shows its hexadecimal under its place, R1; the others likewise.
  [[nodiscard]] std::vector<std::string> words() const {
    return {hexOf(pll.R0),   hexOf(pll.r1),   hexOf(pll.R2), hexOf(pll.R3), hexOf(pll.R4),
            hexOf(pll.R4_2), hexOf(pll.R4_3), hexOf(pll.R5), hexOf(pll.R6)};
  }
};

TEST(ADF4193, TheWordsOfTheChosenModelsPanelAndTheirLabels) {
  ADF4193Bench bench;
  bench.pll.R2_PhaseValue = "000000000101";
  bench.calculate();
  EXPECT_THAT(bench.words(), ElementsAre("2180D0/24", "510411/24", "002A/16", "004B/16", "004004/24",
                                         "00400C/24", "007FF4/24", "05/8", "000E/16"));
  EXPECT_EQ(bench.pll.Nstr, bench.pll.R0);
  EXPECT_EQ(bench.pll.Rstr, bench.pll.r1);
  // The stored text, but that of R2.
  const std::map<int, std::string> expected{
      {0, "R0: 000010110000000110000100"},  {1, "R1: 100010000010000010001010"},
      {2, "R2: 0000000000101010"},          {3, "R3: 1101001000000000"},
      {4, "R4: 001000000000001000000000"},  {5, "R5: 10100000"},
      {6, "R6: 0111000000000000"},          {7, "R4_2: 001100000000001000000000"},
      {8, "R4_3: 001011111111111000000000"}};
  EXPECT_EQ(bench.view.words, expected);
}

TEST(ADF4193, RatioOnThePanelWay) {
  const struct {
    const char* name;
    double Fosc;
    const char *R, *doubler, *ref2;
    double Fcomp, Fvco;
    unsigned N, FRAC, MOD;
    const char* caption;
  } cases[] = {
      {"whole multiple", 26, "0001", "0", "0", 200, 1742, 67, 0, 130, "26000"},
      {"the Single lies above 19.2", 19.2, "0001", "0", "0", 100, 1747.2, 90, 191, 192, "19200"},
      {"doubler and half cancel out", 26, "0001", "1", "1", 200, 1747.2, 67, 26, 130, "26000"},
      {"doubler", 26, "0010", "1", "0", 200, 1747.2, 67, 26, 130, "26000"},
      {"FRAC is floored", 26, "0001", "0", "0", 200, 1747.3999, 67, 26, 130, "26000"},
      {"FRAC 5 millionths short", 26, "0001", "0", "0", 200, 1747.199999, 67, 26, 130, "26000"},
      {"MOD 0.00005 short", 26, "0001", "0", "0", 200.0000769, 1747.2, 67, 25, 129, "26000"},
      {"step above the detector frequency", 26, "0001", "0", "0", 30000, 1747.2, 67, 0, 0, "26000"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ADF4193Bench bench;
    bench.pll.Fosc = c.Fosc;
    bench.pll.R1_RFCounter = c.R;
    bench.pll.R1_DoublerEnable = c.doubler;
    bench.pll.R1_REF2 = c.ref2;
    bench.pll.Fcomp = c.Fcomp;
    bench.pll.Fvco = c.Fvco;
    bench.calculate();
    EXPECT_EQ(bitsOf(bench.pll.R0, 15, 8), c.N);
    EXPECT_EQ(bitsOf(bench.pll.R0, 3, 12), c.FRAC);
    EXPECT_EQ(bitsOf(bench.pll.r1, 3, 12), c.MOD);
    EXPECT_EQ(bench.view.detectorFrequency, c.caption);
  }
}

TEST(ADF4193, AFileOverrulesThePanel) {
  ADF4193Bench bench;
  bench.useFracFile();
  bench.pll.Fosc = 0;  // plays no part
  // R counter 2, REF/2 and the select of the panel stay; prescaler, timers and phase are those of the file.
  for (const char* run : {"first", "second: the values of the file are not used up"}) {
    bench.calculate();
    EXPECT_THAT(bench.words(), ElementsAre("2180D0/24", "410411/24", "2692/16", "004B/16", "0040F4/24",
                                           "004044/24", "00602C/24", "05/8", "000E/16"))
        << run;
  }
  EXPECT_EQ(bench.pll.PreScalar, 4);
  EXPECT_EQ(bench.pll.R2_PhaseValue, "010011010010");
  EXPECT_EQ(bench.pll.R4_TimeOutCounter, "000000111");
  EXPECT_EQ(bench.pll.R4_TimeOutCounter_3, "100000001") << "the leftmost nine of ten digits";
  EXPECT_EQ(bench.pll.R4_TimerSelect, "00");
  EXPECT_TRUE(bench.host.screen.messages.empty());
}

TEST(ADF4193, AFracWithoutAPhaseIsToldAndCountsAsZero) {
  const struct {
    std::size_t size;
    std::vector<Message> told;
    const char* R2;
  } cases[] = {
      {0,
       {{"Error in Get Phase Value", Icon::critical,
         "The phase table is empty: no setup file has filled it"}},
       "0002/16"},
      {26,
       {{"Error in Get Phase Value", Icon::critical, "FRAC = 26 lies outside the phase table (0 to 25)"}},
       "0002/16"},
      {27, {}, "2692/16"}};
  for (const auto& c : cases) {
    ADF4193Bench bench;
    bench.useFracFile();
    PLLProbe::phaseTable(bench.pll).resize(c.size);
    bench.calculate();
    EXPECT_EQ(hexOf(bench.pll.R2), c.R2);
    EXPECT_EQ(bench.host.screen.messages, c.told);
    EXPECT_EQ(bench.pll.PhasePerFrac(-1), 0);
  }
}

std::vector<std::string> latchedHex(const EngineBench& bench) {
  std::vector<std::string> words;
  for (std::string bits : bench.host.port.latches()) {
    PLL::UpsideSTR(bits);
    words.push_back(hexOf(bits));
  }
  return words;
}

TEST(ADF4193PowerUp, OrderOfTheWordsOnTheWire) {
  ADF4193Bench bench;
  bench.calculate();
  bench.pll.PowerUpInit();
  EXPECT_TRUE(bench.host.port.accesses.empty()) << "the engine does not know its model yet";

  bench.pll.Model = "ADF4193";
  bench.pll.PowerUpInit();
  EXPECT_THAT(latchedHex(bench),
              ElementsAre("FD/8", "005B/16", "0007/16", "000E/16", "900E/16", "007FF4/24", "00400C/24",
                          "004004/24", "0002/16", "510411/24", "2180D0/24", "007B/16", "05/8", "2180D0/24"));
  EXPECT_THAT(bench.words(), ElementsAre("2180D0/24", "510411/24", "0002/16", "007B/16", "004004/24",
                                         "00400C/24", "007FF4/24", "05/8", "900E/16"));
  EXPECT_EQ(bench.pll.R7, "1110000000000000");
  EXPECT_GE(bench.host.clock.elapsed, 340 * FakeClock::kSecond / 1000);
}

TEST(ADF4193PowerUp, AnUnusedTimerHasNoWordAndStillGetsItsStrobe) {
  ADF4193Bench bench;
  bench.calculate();
  bench.pll.R4_TimerSelect = "11";
  bench.pll.R4_TimeOutCounter = "100101100";
  bench.calculate();
  EXPECT_EQ(bench.view.words[7] + bench.view.words[8], "R4_2: R4_3: ");
  bench.pll.PowerUpInit_ADF4193();
  const auto latched = latchedHex(bench);
  ASSERT_EQ(latched.size(), 14U);
  EXPECT_THAT(std::vector(latched.begin() + 5, latched.begin() + 8), ElementsAre("/0", "/0", "00659C/24"));
}

}  // namespace
}  // namespace tessarine
