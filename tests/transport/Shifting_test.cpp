#include <gtest/gtest.h>

#include <algorithm>

#include "support/EngineBench.h"
#include "support/PLLProbe.h"
#include "support/Words.h"

namespace tessarine {
namespace {

using Bytes = std::vector<int>;

TEST(Shifting, TheLastCharacterGoesFirstAndDataIsStableAroundTheRisingClock) {
  EngineBench bench;
  PLLProbe::shiftOut(bench.pll, "100");
  EXPECT_EQ(bench.host.port.bytes(), (Bytes{0, 0, 1, 0, 0, 1, 0, 2, 3, 2}));
  EXPECT_EQ(bench.host.port.count(FakePort::Access::Kind::read), 10 + 3) << "each write, and each pulse";
}

TEST(Shifting, TheStrobeOfEachRoutineOnThePort) {
  const struct {
    const char* routine;
    void (*load)(PLL&);
    Integer DATAbit, LEbit;
    Bytes bytes;
    int milliseconds;
    const char* R8 = "";
  } cases[] = {
      {"an empty function word", PLLProbe::loadFstr, 2, 8, {0, 0, 8}, 20},
      {"R0 raises one line more, without a wait", PLLProbe::loadR0, 2, 8, {0, 0, 24}, 0},
      {"load enable is added to the extra line", PLLProbe::loadR0, 2, 16, {0, 0, 32}, 0},
      {"r1", PLLProbe::loadR1, 2, 8, {0, 0, 8}, 20},
      {"R4 without a fourth value", [](PLL& pll) { PLLProbe::loadR4(pll, 4); }, 2, 8, {0, 8}, 20},
      {"R8 pulses bit 2 whatever the wiring", PLLProbe::loadR8, 2, 8, {0, 0, 4}, 20},
      {"and keeps the lines it does not own", PLLProbe::loadR8, 8, 4, {0, 8, 9, 8, 8, 12}, 20, "1"},
      {"but not the data of the default wiring", PLLProbe::loadR8, 2, 4, {0, 2, 3, 2, 0, 4}, 20, "1"},
  };
  for (const auto& c : cases) {
    EngineBench bench;
    bench.pll.DATAbit = c.DATAbit;
    bench.pll.LEbit = c.LEbit;
    bench.pll.R8 = c.R8;
    c.load(bench.pll);
    EXPECT_EQ(bench.host.port.bytes(), c.bytes) << c.routine;
    EXPECT_EQ(bench.host.clock.elapsed, c.milliseconds * 1000) << c.routine;
  }
}

TEST(Shifting, OnUsbTheFourLettersGetThePortsStrobeOnTop) {
  const struct {
    void (*load)(PLL&);
    String PLL::*word;
    bool strobed;
  } cases[] = {
      {PLLProbe::loadFstr, &PLL::FStr, true}, {PLLProbe::loadMstr, &PLL::MStr, true},
      {PLLProbe::loadRstr, &PLL::Rstr, true}, {PLLProbe::loadNstr, &PLL::Nstr, true},
      {PLLProbe::loadR0, &PLL::R0, false},    {PLLProbe::loadR1, &PLL::r1, false},
      {PLLProbe::loadR8, &PLL::R8, false},    {[](PLL& pll) { PLLProbe::loadR4(pll, 3); }, &PLL::R4_3, false},
  };
  for (const auto& c : cases) {
    EngineBench bench;
    bench.module.PortType = "USB";
    bench.pll.LEbit = 2;
    bench.pll.*c.word = "101";
    c.load(bench.pll);
    Words expected{"shift B3 B2 B1 B0 0 101"};
    if (c.strobed) expected.insert(expected.end(), {"write B 0", "write B 2"});
    EXPECT_EQ(bench.host.usb.calls, expected) << &c - cases;
    EXPECT_EQ(bench.host.clock.elapsed, c.strobed ? 20'000 : 0);
    EXPECT_TRUE(bench.host.port.accesses.empty());
  }
}

TEST(Shifting, AWordGoesOutAsItWasButWhereItShouldWhenEventsRunDuringARetry) {
  EngineBench bench;
  bench.host.port.echoFromWrite = 105;  // the first write of the word waits for the port
  bench.pll.FStr = String(24, '1');
  bench.host.screen.at(10, [&] {
    bench.pll.FStr = "0";
    bench.module.PortAddress = 632;
  });
  PLLProbe::loadFstr(bench.pll);
  EXPECT_EQ(bench.host.port.latches(), Words{std::string(24, '1')});
  const auto moved = std::ranges::find(bench.host.port.accesses, 632, &FakePort::Access::address);
  EXPECT_EQ(bench.host.port.accesses.end() - moved, 24 * 7 + 2 * 2) << "all but the write that was retried";
}

TEST(Shifting, AWordOnAPortThatFailsIsTriedAndComplainedOfLikeAnyWrite) {
  EngineBench bench;
  bench.module.UseDlPort = 0;
  bench.host.port.echoFromWrite = 110 + 3;  // the first write is given up, the second takes three tries
  PLLProbe::shiftOut(bench.pll, "1");
  EXPECT_EQ(bench.host.screen.messages.size(), 1U);
  const auto bytes = bench.host.port.bytes();
  EXPECT_EQ(Bytes(bytes.end() - 5, bytes.end()), (Bytes{2, 2, 2, 3, 2}));
  EXPECT_EQ(bytes.size(), 110U + 5U);
}

TEST(Shifting, APortThatCannotBeReadIsStillShiftedTo) {
  EngineBench bench;
  // The fifth access is the read of the clock pulse.
  bench.host.port.fails = [&](const auto&) { return bench.host.port.accesses.size() == 5; };
  PLLProbe::shiftOut(bench.pll, "1");
  EXPECT_EQ(bench.host.port.bytes(), (Bytes{0, 2, 3, 2}));
}

}  // namespace
}  // namespace tessarine
