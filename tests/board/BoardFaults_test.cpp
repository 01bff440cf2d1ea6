#include <gtest/gtest.h>

#include "board/BoardBench.h"

namespace tessarine::board {
namespace {

void loadAll(BoardBench& bench) {
  bench.load("0001000000001100101");
  bench.load("0001000110000101000");
}

struct FaultCase {
  const char* name;
  const char* reason;
  std::vector<std::string> latches;
};

const FaultCase kFaultCases[] = {
    {"none", "", {"0001000000001100101", "0001000110000101000"}},
    {"no-echo", "R register never loaded; N register never loaded", {}},
    {"stuck-data", "R register never loaded", {"0000000000000000000", "0000000000000000000"}},
    {"no-le", "R register never loaded; N register never loaded", {}},
    {"no-reference", "no reference", {"0001000000001100101", "0001000110000101000"}},
};

TEST(BoardFaults, EachShowsInLatchesAndLock) {
  for (const FaultCase& c : kFaultCases) {
    SCOPED_TRACE(c.name);
    const auto fault = boardFaultNamed(c.name);
    ASSERT_TRUE(fault);
    BoardBench bench("LMX2325");
    bench.board().collectLatches();
    bench.port.setFault(*fault);
    loadAll(bench);
    EXPECT_EQ(bench.tuning().reason(), c.reason);
    EXPECT_EQ(bench.board().takeLatches(), c.latches);
    EXPECT_EQ(bench.port.DlPortReadPortUchar(0x378), *fault == BoardFault::noEcho ? 0xFF : 4);
    EXPECT_NE(bench.port.describe().find("fault\t" + std::string(c.name) + "\n"), std::string::npos);
  }
}

TEST(BoardFaults, AReferenceThatComesBackLocksTheLoopAgain) {
  BoardBench bench("LMX2325");
  loadAll(bench);
  bench.port.setFault(BoardFault::noReference);
  EXPECT_EQ(bench.tuning().reason(), "no reference");
  EXPECT_EQ(bench.tuning().outputMHz, std::nullopt);
  bench.port.setFault(BoardFault::none);
  EXPECT_DOUBLE_EQ(*bench.tuning().outputMHz, 900);
  EXPECT_TRUE(bench.tuning().locked());
}

TEST(BoardFaults, UnknownNamesAreNoFault) { EXPECT_FALSE(boardFaultNamed("no echo")); }

}  // namespace
}  // namespace tessarine::board
