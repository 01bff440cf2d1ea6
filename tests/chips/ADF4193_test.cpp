#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "chips/WordReader.h"
#include "support/EngineBench.h"
#include "support/FaultOf.h"
#include "support/PLLProbe.h"

namespace tessarine {
namespace {

using testing::ElementsAre;

// The panel as the choice of the model leaves it, with frequencies for it.
struct ADF4193Bench : EngineBench {
  ADF4193Bench() {
    module.CurrentModel = "ADF4193";
    pll.Fosc = 104;
    pll.Fcomp = 200;
    pll.Fvco = 1747.2;
    pll.PreScalar = 8;
    pll.R1_CP = "0";
    pll.R1_REF2 = "1";
    pll.R1_DoublerEnable = "0";
    pll.R1_RFCounter = "0010";
    pll.R2_PhaseValue = "000000000000";
    pll.R3_CPO = "0";
    pll.R3_PFD = "1";
    pll.R4_TimerSelect = "00";
    pll.R4_TimeOutCounter = "000000000";
    pll.R4_TimerSelect_2 = "01";
    pll.R4_TimeOutCounter_2 = "000000000";
    pll.R4_TimerSelect_3 = "10";
    pll.R4_TimeOutCounter_3 = "111111111";
    pll.R5_PDDiffAmp = "00";
    pll.R5_PDChargePump = "0";
    pll.R5_CP3State = "0";
    pll.R5_CounterReset = "0";
    pll.R6_SigmaDelte = "0000";
    pll.R6_MuxOut = "0001";
  }

  void useFile() {
    pll.SetupFileName = "board.txt";
    pll.PFDFromFile = 26;
    pll.ModFromFile = 130;
    pll.PreScalarFromFile = 4;
    pll.ICPFromFile = 7;
    pll.SW12FromFile = 2;
    pll.SW3FromFile = 515;
    PLLProbe::phaseTable(pll).assign(131, 0);
    PLLProbe::phaseTable(pll)[26] = 1234;
  }

  // r1 shows its hexadecimal under its place, R1; the others likewise.
  [[nodiscard]] std::vector<std::string> words() const {
    return {hexOf(pll.R0),   hexOf(pll.r1),   hexOf(pll.R2), hexOf(pll.R3), hexOf(pll.R4),
            hexOf(pll.R4_2), hexOf(pll.R4_3), hexOf(pll.R5), hexOf(pll.R6)};
  }
};

TEST(ADF4193, TheWordsOfTheChosenModelsPanel) {
  ADF4193Bench bench;
  bench.pll.Calculate_ADF_4193();
  EXPECT_THAT(bench.words(), ElementsAre("2180D0/24", "510411/24", "0002/16", "004B/16", "004004/24",
                                         "00400C/24", "007FF4/24", "05/8", "000E/16"));
  EXPECT_EQ(bench.view.detectorFrequency, "26000");
  EXPECT_EQ(bench.pll.Nstr, bench.pll.R0);
  EXPECT_EQ(bench.pll.Rstr, bench.pll.r1);
  EXPECT_EQ(PLLProbe::rTotal(bench.pll), 2);
}

TEST(ADF4193, LabelsShowTheStoredTextButThatOfR2) {
  ADF4193Bench bench;
  bench.pll.R2_PhaseValue = "000000000101";
  bench.pll.Calculate_ADF_4193();
  const std::map<int, std::string> expected{
      {0, "R0: 000010110000000110000100"},  {1, "R1: 100010000010000010001010"},
      {2, "R2: 0000000000101010"},          {3, "R3: 1101001000000000"},
      {4, "R4: 001000000000001000000000"},  {5, "R5: 10100000"},
      {6, "R6: 0111000000000000"},          {7, "R4_2: 001100000000001000000000"},
      {8, "R4_3: 001011111111111000000000"}};
  EXPECT_EQ(bench.view.words, expected);
}

TEST(ADF4193, RatioOnThePanelWay) {
  struct Case {
    const char* name;
    double Fosc;
    const char *R, *doubler, *ref2;
    double Fcomp, Fvco;
    unsigned N, FRAC, MOD;
    const char* caption;
  };
  const Case cases[] = {
      {"plain", 26, "0001", "0", "0", 200, 1747.2, 67, 26, 130, "26000"},
      {"whole multiple", 26, "0001", "0", "0", 200, 1742, 67, 0, 130, "26000"},
      {"the Single lies above 19.2", 19.2, "0001", "0", "0", 100, 1747.2, 90, 191, 192, "19200"},
      {"doubler and half cancel out", 26, "0001", "1", "1", 200, 1747.2, 67, 26, 130, "26000"},
      {"doubler", 26, "0010", "1", "0", 200, 1747.2, 67, 26, 130, "26000"},
      {"FRAC is floored", 26, "0001", "0", "0", 200, 1747.3999, 67, 26, 130, "26000"},
      {"FRAC 5 millionths short", 26, "0001", "0", "0", 200, 1747.199999, 67, 26, 130, "26000"},
      {"MOD 0.00005 short", 26, "0001", "0", "0", 200.0000769, 1747.2, 67, 25, 129, "26000"},
      {"step above the detector frequency", 26, "0001", "0", "0", 30000, 1747.2, 67, 0, 0, "26000"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    ADF4193Bench bench;
    bench.pll.Fosc = each.Fosc;
    bench.pll.R1_RFCounter = each.R;
    bench.pll.R1_DoublerEnable = each.doubler;
    bench.pll.R1_REF2 = each.ref2;
    bench.pll.Fcomp = each.Fcomp;
    bench.pll.Fvco = each.Fvco;
    bench.pll.Calculate_ADF_4193();
    EXPECT_EQ(bitsOf(bench.pll.R0, 15, 8), each.N);
    EXPECT_EQ(bitsOf(bench.pll.R0, 3, 12), each.FRAC);
    EXPECT_EQ(bitsOf(bench.pll.r1, 3, 12), each.MOD);
    EXPECT_EQ(bench.view.detectorFrequency, each.caption);
  }
}

TEST(ADF4193, AFileOverrulesThePanel) {
  ADF4193Bench bench;
  bench.useFile();
  bench.pll.Fosc = 0;  // plays no part
  // R counter 2, REF/2 and the select of the panel stay; prescaler, timers and phase are those of the file.
  const auto expected = ElementsAre("2180D0/24", "410411/24", "2692/16", "004B/16", "0040F4/24", "004044/24",
                                    "00602C/24", "05/8", "000E/16");
  bench.pll.Calculate_ADF_4193();
  EXPECT_THAT(bench.words(), expected);
  EXPECT_EQ(bench.view.words[2], "R2: 0010011010010010");
  EXPECT_EQ(bench.pll.PreScalar, 4);
  EXPECT_EQ(bench.pll.R2_PhaseValue, "010011010010");
  EXPECT_EQ(bench.pll.R4_TimeOutCounter, "000000111");
  EXPECT_EQ(bench.pll.R4_TimeOutCounter_3, "100000001") << "the leftmost nine of ten digits";
  EXPECT_EQ(bench.pll.R4_TimerSelect, "00");
  bench.pll.Calculate_ADF_4193();
  EXPECT_THAT(bench.words(), expected) << "the values of the file are not used up";
  EXPECT_TRUE(bench.host.screen.messages.empty());
}

TEST(ADF4193, NoTimerInUse) {
  ADF4193Bench bench;
  bench.pll.Calculate_ADF_4193();
  bench.pll.R4_TimerSelect = "11";
  bench.pll.R4_TimeOutCounter = "100101100";
  bench.pll.Calculate_ADF_4193();
  EXPECT_EQ(hexOf(bench.pll.R4), "00659C/24");
  EXPECT_EQ(bench.pll.R4_2 + bench.pll.R4_3, "");
  EXPECT_EQ(bench.view.words[7], "R4_2: ");
  EXPECT_EQ(bench.view.words[8], "R4_3: ");
}

TEST(ADF4193, AFracWithoutAPhaseIsToldAndCountsAsZero) {
  struct Case {
    std::size_t size;
    const char* title;
  };
  for (const Case& each : {Case{0, "The phase table is empty: no setup file has filled it"},
                           {26, "FRAC = 26 lies outside the phase table (0 to 25)"}}) {
    ADF4193Bench bench;
    bench.useFile();
    PLLProbe::phaseTable(bench.pll).resize(each.size);
    bench.pll.Calculate_ADF_4193();
    EXPECT_EQ(hexOf(bench.pll.R2), "0002/16");
    EXPECT_THAT(bench.host.screen.messages,
                ElementsAre(Message{"Error in Get Phase Value", Icon::critical, each.title}));
  }
  ADF4193Bench bench;
  bench.useFile();
  PLLProbe::phaseTable(bench.pll).resize(27);
  EXPECT_EQ(bench.pll.PhasePerFrac(26), 1234) << "the last element counts";
  EXPECT_TRUE(bench.host.screen.messages.empty());
  EXPECT_EQ(bench.pll.PhasePerFrac(-1), 0);
  EXPECT_EQ(bench.host.screen.messages.size(), 1U);
}

TEST(ADF4193, AFaultChangesNothing) {
  struct Case {
    void (*set)(ADF4193Bench&);
    const char* text;
  };
  const Case cases[] = {
      {[](auto& b) { b.pll.R1_RFCounter = "0000"; }, "R counter = 0 must be above 0"},
      {[](auto& b) { b.pll.Fosc = 0; }, "Fosc = 0 MHz must be above 0"},
      {[](auto& b) { b.pll.Fcomp = 0; }, "Fcomp = 0 kHz must be above 0"},
      {[](auto& b) { b.pll.Fvco = -1; }, "N = -1 does not fit 8 bits (0 to 255)"},
      {[](auto& b) { b.pll.Fvco = 6656; }, "N = 256 does not fit 8 bits (0 to 255)"},
      {[](auto& b) { b.pll.Fcomp = 5; }, "MOD = 5200 does not fit 12 bits (0 to 4095)"},
      {[](auto& b) { b.pll.Fcomp = 5, b.pll.Fvco = 1767; }, "FRAC = 5000 does not fit 12 bits (0 to 4095)"},
      {[](auto& b) { b.useFile(), b.pll.PFDFromFile = 0; }, "PFD of the setup file = 0 MHz must be above 0"},
      {[](auto& b) { b.useFile(), b.pll.ModFromFile = 4096; }, "MOD = 4096 does not fit 12 bits (0 to 4095)"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.text);
    ADF4193Bench bench;
    bench.pll.Calculate_ADF_4193();
    const auto words = bench.words();
    const auto labels = bench.view.words;
    bench.pll.R3_CPO = "1";
    each.set(bench);
    bench.view.detectorFrequency = "as it was";
    EXPECT_EQ(faultOf([&] { bench.pll.Calculate_ADF_4193(); }), each.text);
    EXPECT_EQ(bench.words(), words);
    EXPECT_EQ(bench.view.words, labels);
    EXPECT_EQ(bench.view.detectorFrequency, "as it was");
    EXPECT_EQ(bench.pll.PreScalar, 8);
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
  bench.pll.Calculate_ADF_4193();
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

TEST(ADF4193PowerUp, AnUnusedTimerStillGetsItsStrobe) {
  ADF4193Bench bench;
  bench.pll.R4_TimerSelect = "11";
  bench.pll.Calculate_ADF_4193();
  bench.pll.PowerUpInit_ADF4193();
  const auto latched = latchedHex(bench);
  ASSERT_EQ(latched.size(), 14U);
  EXPECT_EQ(latched[5], "/0");
  EXPECT_EQ(latched[6], "/0");
  EXPECT_EQ(latched[7], "00401C/24");
}

}  // namespace
}  // namespace tessarine
