// What comes in over the wires, and the board's answers and faults.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "board/BoardBench.h"
#include "board/Cable.h"
#include "board/WireReceiver.h"

namespace tessarine::board {
namespace {

TEST(WireReceiver, TakesBitsAndLatchesAtRisingEdgesOnly) {
  WireReceiver receiver;
  const struct {
    Levels levels;
    bool bit, latch;
  } steps[] = {{{.data = true}, false, false},
               {{.clock = true, .data = true}, true, false},
               {{.clock = true}, false, false},
               {{}, false, false},
               {{.clock = true}, true, false},
               {{.loadEnable = true}, false, true},
               {{.clock = true, .data = true, .loadEnable = true}, true, false},
               {{.loadEnable = true}, false, false},
               {{}, false, false},
               {{.loadEnable = true}, false, true}};
  for (const auto& step : steps) {
    const WireReceiver::Edges edges = receiver.drive(step.levels);
    EXPECT_EQ(std::pair(edges.bit, edges.latch), std::pair(step.bit, step.latch));
  }
  EXPECT_EQ(receiver.takeBits(), "101") << "the last one while load enable was high";
  receiver.drive({.clock = true});
  EXPECT_EQ(receiver.takeBits(), "0");
  EXPECT_EQ(receiver.shiftRegister(), 0b1010U) << "a short word keeps the older bits above it";
}

TEST(WireReceiver, KeepsTheLastBitsAloneWhereLoadEnableNeverRises) {
  WireReceiver receiver;
  for (int i = 0; i < 200'000; ++i) {
    receiver.drive({.clock = true, .data = i == 199'999});
    receiver.drive({});
  }
  EXPECT_LE(receiver.bits().size(), 65'536U);
  EXPECT_TRUE(receiver.bits().ends_with("01"));
}

TEST(Cable, NamesOfPinsAreMasksOfTheirOwnPortOnly) {
  EXPECT_EQ(pinMask("B7", "B"), 128);
  for (const char* other : {"A3", "B8", "B", ""}) EXPECT_EQ(pinMask(other, "B"), 0) << other;
}

TEST(Cable, TheWaveOfAnUsbWordSendsTheLastCharacterFirst) {
  std::vector<int> pins;
  shiftWordWave("B3", "B2", "B1", "011", [&](std::uint8_t level) { pins.push_back(level); });
  EXPECT_EQ(pins, (std::vector{0, 4, 12, 4, 4, 12, 4, 0, 8, 0, 0, 2, 0}));
}

TEST(VirtualBoard, FollowsTheCableOfTheWiringDialog) {
  BoardBench bench;
  bench.cable = {.port = 0x278, .clock = 128, .data = 1, .loadEnable = 16};
  bench.board().collectLatches();
  bench.load("1011");
  bench.port.DlPortWritePortUchar(0x378, 0xFF);  // another port
  bench.load("0");
  bench.cable.loadEnable = bench.cable.clock;  // the clock's edge counts first
  for (const unsigned lines : {1U, 129U, 0U}) bench.write(lines);
  EXPECT_EQ(bench.board().takeLatches(), (Words{"1011", "0", "1"}));
}

TEST(VirtualBoard, EveryPortEchoesAndLinesThatAreNoWiresDoNothing) {
  BoardBench bench;
  bench.board().collectLatches();
  const auto version = bench.board().version();
  bench.port.DlPortWritePortUchar(0x378, 0xE8);
  bench.port.OutputByte1(0x37A, 0x04);
  EXPECT_EQ(bench.port.DlPortReadPortUchar(0x378), 0xE8);
  EXPECT_EQ(bench.port.InputByte1(0x37A), 0x04);
  EXPECT_EQ(bench.port.InputByte1(0xFFFF), 0);
  bench.port.UsbWritePort("A", 2);
  EXPECT_TRUE(bench.board().takeLatches().empty());
  EXPECT_EQ(bench.board().version(), version + 1) << "after the first write";
  bench.write(2);
  EXPECT_EQ(bench.board().version(), version + 2);
}

TEST(VirtualBoard, UsbWordsLatchByThemselvesAndAStrobeLatchesThemAgain) {
  BoardBench bench("ADF4113");
  bench.board().collectLatches();
  bench.port.UsbOpen(0);
  bench.port.UsbShiftWord("B3", "B2", "B1", "B0", 0, "000100110000000000000000");
  EXPECT_EQ(bench.port.UsbReadPort("B"), 0);
  bench.port.UsbWritePort("B", 0);
  bench.port.UsbWritePort("B", 2);
  EXPECT_EQ(bench.port.UsbReadPort("B"), 2);
  EXPECT_EQ(bench.port.UsbReadPin("B1"), 1);
  EXPECT_EQ(bench.board().takeLatches(), (Words{"000000000000000011001000", ""}));
  EXPECT_EQ(bench.field("R", "R"), 50U);
}

TEST(BoardFaults, EachShowsInLatchesAndLock) {
  const struct {
    const char *name, *reason;
    Words latches;
  } cases[] = {
      {"none", "", kSet2325},
      {"no-echo", "R register never loaded; N register never loaded", {}},
      {"stuck-data", "R register never loaded", {2, std::string(19, '0')}},
      {"no-le", "R register never loaded; N register never loaded", {}},
      {"no-reference", "no reference", kSet2325},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const auto fault = boardFaultNamed(c.name);
    ASSERT_TRUE(fault);
    BoardBench bench("LMX2325");
    bench.board().collectLatches();
    bench.port.setFault(*fault);
    bench.load(kSet2325);
    EXPECT_EQ(bench.tuning().reason(), c.reason);
    EXPECT_EQ(bench.board().takeLatches(), c.latches);
    EXPECT_EQ(bench.port.DlPortReadPortUchar(0x378), *fault == BoardFault::noEcho ? 0xFF : 4);
    EXPECT_TRUE(bench.port.describe().ends_with("fault\t" + std::string(c.name) + "\n"));
    bench.port.setFault(BoardFault::none);
    EXPECT_EQ(bench.tuning().locked(), c.latches == kSet2325) << "a reference that comes back is enough";
  }
  EXPECT_FALSE(boardFaultNamed("no echo"));
}

}  // namespace
}  // namespace tessarine::board
