#include <gtest/gtest.h>

#include "engine/BitStrings.h"
#include "support/ChipBench.h"
#include "support/FaultOf.h"

namespace tessarine {
namespace {

using Words = std::vector<std::string>;

struct LoadBench : ChipBench {
  explicit LoadBench(const char* model, double Fvco = 1747.2) : ChipBench(model, Fvco) {}
  // What reaches the chip in one load, each word as its highest bit left first.
  Words load(bool onlyChanged = false) {
    host.port.accesses.clear();
    pll.SetPLL(onlyChanged);
    return host.port.latches();
  }
};

Words onTheWire(std::initializer_list<String> stored) {
  Words words;
  for (const auto& word : stored) words.push_back(ReverseStr(word));
  return words;
}

TEST(SetPLL, SettlesTwoControlBits) {
  const struct {
    const char* model;
    Integer prescaler;
    const char* GoBit;
    const char* LDPrecision;
  } cases[] = {{"ADF4113", 29, "1", "1"},  {"ADF4113", 30, "0", "1"},  {"LMX2306", 32, "0", "1"},
               {"LMX2316", 8, "old", "0"}, {"ADF4118", 8, "old", "0"}, {"LMX2326", 32, "old", "0"},
               {"ADF4193", 8, "1", "1"},   {"no chip", 8, "1", "1"}};
  for (const auto& c : cases) {
    LoadBench bench(c.model, 1800);  // without a remainder, so that any prescaler serves
    bench.pll.PreScalar = c.prescaler;
    bench.pll.GoBit = "old";
    bench.load();
    EXPECT_EQ(bench.pll.GoBit, c.GoBit) << c.model << " " << c.prescaler;
    EXPECT_EQ(bench.pll.LDPrecision, c.LDPrecision) << c.model;
  }
}

TEST(SetPLL, SendsTheWordsInTheOrderOfTheChip) {
  for (const char* model : {"ADF4110", "ADF4111", "ADF4112", "ADF4113", "LMX2306", "LMX2316", "LMX2326",
                            "ADF4118", "LMX2315", "LMX2320", "LMX2325"}) {
    LoadBench bench(model, 1280);
    const auto words = bench.load();
    EXPECT_EQ(words, onTheWire({bench.pll.FStr, bench.pll.Rstr, bench.pll.Nstr})) << model;
    EXPECT_EQ(bench.host.port.bytes().back(), 0) << model;
    EXPECT_EQ(bench.host.clock.elapsed, 60'000) << model;
  }
  for (const char* model : {"ADF4252", "ADF4251", "ADF4153", "ADF4156"}) {
    LoadBench bench(model);
    const auto words = bench.load();
    EXPECT_EQ(words, onTheWire({bench.pll.MStr, bench.pll.FStr, bench.pll.Rstr, bench.pll.Nstr})) << model;
  }
}

TEST(SetPLL, TheWorkedExampleReachesThePort) {
  LoadBench bench("ADF4113", 900);
  EXPECT_EQ(bench.load(),
            (Words{"000000111000000010010010", "000000000000000011001000", "000000100011001000010001"}));
  bench.module.PortType = "USB";
  bench.pll.SetPLL();
  EXPECT_EQ(bench.host.usb.calls,
            (Words{"shift B3 B2 B1 B0 0 010010010000000111000000", "write B 0", "write B 4",
                   "shift B3 B2 B1 B0 0 000100110000000000000000", "write B 0", "write B 4",
                   "shift B3 B2 B1 B0 0 100010000100110001000000", "write B 0", "write B 4", "write B 0"}));
}

TEST(SetPLL, AnUnknownModelGetsTheFinalWriteAlone) {
  LoadBench bench("ADF4108");
  bench.pll.DelayAfterLock = 0.25F;
  EXPECT_EQ(bench.load(), Words{});
  EXPECT_EQ(bench.host.port.bytes(), std::vector<int>{0});
  EXPECT_EQ(PLLProbe::bCount(bench.pll), 1092);
  EXPECT_EQ(bench.host.clock.elapsed, 250'000) << "the wait after the load";
}

TEST(SetPLL, TheUmcModuleIsNotWaitedFor) {
  LoadBench bench("UMC");
  bench.pll.DelayAfterLock = 0.25F;
  EXPECT_EQ(bench.load().size(), 5U);
  EXPECT_EQ(bench.host.clock.elapsed, 50'000) << "five strobes of 10 ms";
}

TEST(SetPLL, WithoutAPrescalerTheOldWordsAreSent) {
  for (const char* model : {"ADF4113", "ADF4153"}) {
    LoadBench bench(model);
    const auto words = bench.load();
    bench.pll.PreScalar = 0;
    bench.pll.Fvco = 1000;
    EXPECT_EQ(bench.load(), words) << model;
    EXPECT_EQ(bench.host.screen.messages,
              (std::vector<Message>{{"Pls. set Prescalar", Icon::plain, kApplicationTitle}}));
    // A model picked while the message is open decides what is sent.
    bench.host.screen.whileMessageIsOpen = [&] { bench.module.CurrentModel = "ADF4251"; };
    EXPECT_EQ(bench.load().size(), 4U);
  }
}

TEST(SetPLL, ARefusedCalculationSendsNothing) {
  LoadBench bench("ADF4113");
  bench.pll.Fcomp = 0;
  EXPECT_NE(faultOf([&] { bench.pll.SetPLL(); }), "no fault");
  EXPECT_TRUE(bench.host.port.accesses.empty());
}

TEST(SetPLL, ALoadInsideAWaitOfAnotherEndsCleanly) {
  LoadBench bench("ADF4113");
  bench.host.screen.at(5, [&] { bench.pll.SetPLL(); });
  const auto words = bench.load();
  const auto whole = onTheWire({bench.pll.FStr, bench.pll.Rstr, bench.pll.Nstr});
  // The outer load was about to strobe its first word: that pulse brings no new bits.
  EXPECT_EQ(words, (Words{whole[0] + whole[0], whole[1], whole[2], "", whole[1], whole[2]}));
  EXPECT_EQ(bench.host.port.bytes().back(), 0);
}

TEST(SetPLL, TheSkyGetsTheWordsOfTheLoadBefore) {
  LoadBench bench("SKY72300-362");
  const auto words = [&] {
    auto all = bench.numbered();
    all.resize(10);
    return all;
  };
  EXPECT_EQ(bench.load(), Words(10));
  const auto first = words();
  bench.pll.Fvco = 1800;
  EXPECT_EQ(bench.load(), first) << "highest bit first";
  const auto second = words();
  EXPECT_NE(second, first);

  for (const bool withPrescaler : {false, true}) {
    bench.pll.PreScalar = withPrescaler ? 8 : 0;
    bench.pll.Main_RefDiv = 0;
    (void)faultOf([&] { bench.load(); });
    EXPECT_EQ(bench.host.port.latches(), second) << withPrescaler;
    EXPECT_EQ(words(), second) << "turned back after a refusal";
  }

  bench.module.PortType = "USB";
  bench.host.usb.fails = true;
  EXPECT_THROW(bench.pll.SetPLL(), std::runtime_error);
  EXPECT_EQ(words(), second) << "an interface that fails halfway leaves them in their order";
}

TEST(SetPLL, AnAdf4193GetsAllWordsOrOnlyThoseThatChanged) {
  LoadBench bench("ADF4193");
  PLL& pll = bench.pll;
  pll.R4_TimeOutCounter = "000000111";
  const auto all = bench.load(true);
  EXPECT_EQ(all, onTheWire({pll.r1, pll.R2, pll.R0, pll.R3, pll.R4, pll.R4_2, pll.R4_3, pll.R5, pll.R6}))
      << "nothing was sent before";
  EXPECT_EQ(bench.load(), all);

  EXPECT_EQ(bench.load(true), Words{});
  EXPECT_EQ(bench.host.port.bytes(), std::vector<int>{0});

  pll.Fvco = 1757.6;
  pll.R5_CP3State = "1";
  auto words = bench.load(true);
  EXPECT_EQ(words, onTheWire({pll.R0, pll.R5}));

  pll.R4_TimerSelect = "11";  // the other two timers are not used any more
  words = bench.load(true);
  EXPECT_EQ(words, onTheWire({pll.R4}));
  EXPECT_EQ(pll.Current_R4_2, "");
  words = bench.load();
  EXPECT_EQ(words, onTheWire({pll.r1, pll.R2, pll.R0, pll.R3, pll.R4, pll.R5, pll.R6}));
}

TEST(SetPLL, TheWordsOfThePowerUpGiveWayWithTheNextUpdate) {
  LoadBench bench("ADF4193");
  PLL& pll = bench.pll;
  pll.Model = "ADF4193";
  pll.R5_PDDiffAmp = "11";
  auto words = bench.load();
  EXPECT_EQ(words.size(), 14U + 9U);
  const Words released = onTheWire({pll.R3, pll.R5, pll.R6});
  EXPECT_EQ(pll.Current_R5, "10100000");

  words = bench.load(true);
  EXPECT_EQ(words, onTheWire({pll.R3, pll.R5, pll.R6}));
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NE(words[i], released[i]) << "as calculated from the panel";
}

}  // namespace
}  // namespace tessarine
