#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "board/BoardBench.h"

namespace tessarine::board {
namespace {

TEST(BoardFaults, EachShowsInLatchesAndLock) {
  const Words words = {"0001000000001100101", "0001000110000101000"};
  const struct {
    const char* name;
    const char* reason;
    Words latches;
  } cases[] = {
      {"none", "", words},
      {"no-echo", "R register never loaded; N register never loaded", {}},
      {"stuck-data", "R register never loaded", {2, std::string(19, '0')}},
      {"no-le", "R register never loaded; N register never loaded", {}},
      {"no-reference", "no reference", words},
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
    EXPECT_NE(bench.port.describe().find("fault\t" + std::string(c.name) + "\n"), std::string::npos);
  }
}

TEST(BoardFaults, AReferenceThatComesBackLocksTheLoopAgain) {
  BoardBench bench("LMX2325");
  bench.load(kSet2325);
  bench.port.setFault(BoardFault::noReference);
  EXPECT_EQ(bench.tuning().outputMHz, std::nullopt);
  bench.port.setFault(BoardFault::none);
  EXPECT_DOUBLE_EQ(*bench.tuning().outputMHz, 900);
  EXPECT_TRUE(bench.tuning().locked());
  EXPECT_FALSE(boardFaultNamed("no echo"));
}

// The texts of boards with a chip stand in scripts/*.expected.
TEST(VirtualBoard, ABoardWithoutAChipSaysSo) {
  EXPECT_EQ(BoardBench().port.describe(),
            "chip\tnone\ndetector\tnone\noutput\tnone\nlock\t0\tno chip\npin\t0\nhistory\t0 changes\n"
            "fault\tnone\n");
}

}  // namespace
}  // namespace tessarine::board
