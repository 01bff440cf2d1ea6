#include "board/WireReceiver.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "board/BoardBench.h"
#include "board/Cable.h"

namespace tessarine::board {
namespace {

TEST(WireReceiver, BitsAreTakenAtTheRisingClockEdgeOnly) {
  WireReceiver receiver;
  const std::pair<Levels, bool> steps[] = {{{.clock = false, .data = true}, false},
                                           {{.clock = true, .data = true}, true},
                                           {{.clock = true, .data = false}, false},
                                           {{.clock = false, .data = false}, false},
                                           {{.clock = true, .data = false}, true}};
  for (const auto& [levels, taken] : steps) EXPECT_EQ(receiver.drive(levels).bit, taken);
  EXPECT_EQ(receiver.bits(), "10");
  EXPECT_EQ(receiver.shiftRegister(), 0b10U);
}

TEST(WireReceiver, LoadEnableThatIsHighAlreadyGivesNoNewPulse) {
  WireReceiver receiver;
  const std::pair<Levels, bool> steps[] = {{{.loadEnable = true}, true},
                                           {{.clock = true, .data = true, .loadEnable = true}, false},
                                           {{.loadEnable = true}, false},
                                           {{}, false},
                                           {{.loadEnable = true}, true}};
  for (const auto& [levels, pulsed] : steps) EXPECT_EQ(receiver.drive(levels).latch, pulsed);
  EXPECT_EQ(receiver.takeBits(), "1");  // clocked in while load enable was high
  EXPECT_EQ(receiver.takeBits(), "");
  receiver.drive({.clock = true});
  EXPECT_EQ(receiver.takeBits(), "0");
  EXPECT_EQ(receiver.shiftRegister(), 0b10U);  // a short word keeps the older bits above it
  receiver.powerOn();
  EXPECT_EQ(receiver.shiftRegister(), 0U);
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
  bench.port.DlPortWritePortUchar(0x378, 0xE8);
  bench.port.OutputByte1(0x37A, 0x04);
  EXPECT_EQ(bench.port.DlPortReadPortUchar(0x378), 0xE8);
  EXPECT_EQ(bench.port.InputByte1(0x37A), 0x04);
  EXPECT_EQ(bench.port.InputByte1(0xFFFF), 0);
  bench.port.UsbWritePort("A", 2);
  EXPECT_TRUE(bench.board().takeLatches().empty());
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

}  // namespace
}  // namespace tessarine::board
