#include "board/WireTap.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "board/BoardBench.h"
#include "board/Cable.h"
#include "support/FakePlatform.h"

namespace tessarine::board {
namespace {

// A virtual board plays the real ways out; `seen` is what the tap shows.
struct Tapped {
  BoardBench real{"LMX2325"};
  EvaluationBoard seen{{[this] { return real.microseconds; }, [] { return 10.0; }}};
  WireTap tap{real.port, real.port, real.port, [this] { return real.cable; }};

  Tapped() {
    seen.plug("LMX2325");
    seen.collectLatches();
    real.board().collectLatches();
  }
};

void shiftPort(PortDriver& driver, const char* lastBitFirst) {
  shiftWordWave("B0", "B1", "B2", lastBitFirst,
                [&](auto lines) { driver.DlPortWritePortUchar(0x378, lines); });
}

TEST(WireTap, ShowsTheSameWordsThatTheBoardGets) {
  Tapped tapped;
  tapped.tap.listen(&tapped.seen);
  shiftPort(tapped.tap, "1010011000000001000");
  tapped.tap.OutputByte1(0x37A, 4);  // another port
  tapped.tap.UsbShiftWord("B3", "B2", "B1", "B0", 0, "0001010000110001000");
  tapped.tap.UsbWritePort("B", 2);
  EXPECT_EQ(tapped.tap.UsbReadPort("B"), 2);
  tapped.tap.UsbWritePort("B", 0);
  tapped.tap.UsbWritePort("A", 2);  // no wire
  const Words words = {kSet2325[0], kSet2325[1], ""};
  EXPECT_EQ(tapped.seen.takeLatches(), words);
  EXPECT_EQ(tapped.real.board().takeLatches(), words);
  EXPECT_DOUBLE_EQ(*tapped.seen.tuning().outputMHz, 900);
  EXPECT_EQ(tapped.tap.DlPortReadPortUchar(0x378), 0);
  EXPECT_EQ(tapped.tap.InputByte1(0x37A), 4);
  EXPECT_EQ(tapped.tap.UsbReadPin("A3"), 1);
}

TEST(WireTap, ShowsNothingWhileNobodyListens) {
  Tapped tapped;
  shiftPort(tapped.tap, "1");
  tapped.tap.listen(&tapped.seen);
  tapped.tap.listen(nullptr);
  tapped.tap.UsbShiftWord("B3", "B2", "B1", "B0", 0, "1");
  EXPECT_EQ(tapped.seen.trace().size(), 0U);
  EXPECT_EQ(tapped.real.board().takeLatches().size(), 2U);
}

TEST(WireTap, AWriteThatFailsDidNotGoOut) {
  Tapped tapped;
  FakePort broken;
  broken.fails = [](const FakePort::Access&) { return true; };
  WireTap tap(broken, tapped.real.port, tapped.real.port, [] { return Cable{}; });
  tap.listen(&tapped.seen);
  EXPECT_THROW(tap.DlPortWritePortUchar(0x378, 1), std::runtime_error);
  EXPECT_THROW((void)tap.DlPortReadPortUchar(0x378), std::runtime_error);
  EXPECT_EQ(tapped.seen.trace().size(), 0U);
  tap.OutputByte1(0x378, 1);
  EXPECT_EQ(tap.InputByte1(0x378), 1) << "the other way is sound";
}

}  // namespace
}  // namespace tessarine::board
