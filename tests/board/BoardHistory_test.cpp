#include <gtest/gtest.h>

#include <bitset>
#include <cstdint>
#include <sstream>
#include <string>
#include <utility>

#include "board/BoardBench.h"
#include "board/Describe.h"

namespace tessarine::board {
namespace {

// "10" and a load pulse, on a clock that stands still between the waits; then edges of two lines in one
// write.
TEST(WireTrace, SavesAsAValueChangeDump) {
  BoardBench bench;
  std::ostringstream streamed;
  VcdWriter writer(streamed);
  bench.board().stream(&writer);
  bench.port.OutputByte1(0x37A, 0);  // without wires, and the first write all the same
  bench.load("10");
  for (const unsigned lines : {0U, 5U, 1U, 4U}) bench.write(lines);
  bench.microseconds += 500;
  EXPECT_EQ(bench.board().now(), 20'500);
  bench.port.OutputByte1(0x37A, 0);
  EXPECT_EQ(bench.vcd(),
            "$version Tessarine $end\n$timescale 1 us $end\n$scope module board $end\n"
            "$var wire 1 ! CLOCK $end\n$var wire 1 \" DATA $end\n$var wire 1 # LE $end\n"
            "$upscope $end\n$enddefinitions $end\n"
            "#0\n$dumpvars\n0!\n0\"\n0#\n$end\n"
            "#2\n1\"\n#3\n1!\n#4\n0!\n"
            "#5\n0\"\n#6\n1!\n#7\n0!\n"
            "#10000\n1#\n#20000\n0#\n"
            "#20001\n1!\n#20002\n1#\n#20003\n0#\n#20004\n0!\n#20005\n1#\n#20500\n");
  writer.finish(bench.board().lastWrite());
  EXPECT_EQ(streamed.str(), bench.vcd());
  std::ostringstream early;
  saveVcd(bench.board().trace(), 0, early);
  EXPECT_TRUE(early.str().ends_with("#20005\n1#\n#20006\n")) << "the last edge is seen";
}

TEST(WireTrace, FindsTheChangesOfAStretchOfTime) {
  WireTrace trace(4);
  for (int time = 0; time < 120; time += 10) trace.record(time, {.clock = time % 20 == 10});
  EXPECT_EQ(trace[0].time, 80);
  for (const auto& [time, count] : {std::pair{0, 0U}, {90, 1U}, {91, 2U}, {1000, 4U}})
    EXPECT_EQ(trace.countBefore(time), count) << time;
  trace.record(150, {.clock = true});  // no change
  EXPECT_EQ(trace[3].time, 110);
}

TEST(EvaluationBoard, RecordsTheFrequencyOnlyWhenItChanges) {
  BoardBench bench("LMX2325");
  for (int turn = 0; turn < 3; ++turn) bench.load(kSet2325);  // 900 MHz
  bench.load("0001000110000101010");                          // A 21: 900.2 MHz
  bench.microseconds += 1'000'000;                            // nothing is written when the chip is pulled
  bench.board().plug("LMX2320");
  std::ostringstream csv;
  saveCsv(bench.board().history(), csv);
  EXPECT_EQ(csv.str(),
            "time_s,output_MHz,locked\n0.030000,900.000000,1\n0.130000,900.200000,1\n1.140000,,0\n");
  EXPECT_TRUE(describeBoard(bench.board()).ends_with("history\t3 changes\t900.000000 MHz\t900.200000 MHz\n"));
}

TEST(EvaluationBoard, FieldsAreFoundOnTheWire) {
  BoardBench bench("LMX2326");
  bench.load("C8/21"_w);
  bench.microseconds += 200'000;
  const std::int64_t start = bench.microseconds - 1'000'000;
  bench.load("04651/20"_w);  // one bit short: none came for the CP gain
  std::string text;
  for (const FieldSpan& span :
       fieldSpans(bench.board().lastLoad().back(), bench.board().chip()->map().registers[1])) {
    text += std::string(span.field->name) + ' ' + std::to_string(span.value) + " at " +
            std::to_string(span.firstBit - start) + " to " + std::to_string(span.lastBit - start) + "\n";
  }
  EXPECT_EQ(text, "B 140 at 2 to 38\nA 20 at 41 to 53\n");
}

TEST(EvaluationBoard, ARegisterThatComesAgainBeginsANewLoad) {
  BoardBench bench("LMX2325");
  for (int turn = 0; turn < 4; ++turn) {
    bench.load(kSet2325);
    bench.load("");  // the port's strobe on top of the interface's own pulse
  }
  EXPECT_EQ(bench.board().lastLoad().size(), 3U);
  EXPECT_FALSE(bench.board().changedByLastLoad(0, bench.board().chip()->map().registers[0].fields[0]));
}

TEST(EvaluationBoard, ALoadOverAFaultyWireStaysWhole) {
  BoardBench bench("ADF4113");
  const auto loadWith = [&](BoardFault fault) {
    bench.microseconds += 200'000;
    bench.port.setFault(fault);
    bench.load(kSet4113);
  };
  const EvaluationBoard& board = bench.board();
  const Register& r = board.chip()->map().registers[0];
  loadWith(BoardFault::none);
  loadWith(BoardFault::stuckData);
  EXPECT_EQ(board.lastLoad().size(), 3U) << "though all words went to one register";
  EXPECT_TRUE(board.changedByLastLoad(0, r.fields[0]));
  loadWith(BoardFault::noLe);
  loadWith(BoardFault::none);
  ASSERT_EQ(board.lastLoad().size(), 3U);
  EXPECT_EQ(board.lastLoad()[0].bitTimes.size(), r.width) << "without the bits that got no pulse";
}

TEST(EvaluationBoard, AnyNumberOfLoadsStaysBounded) {
  BoardBench bench;  // without a chip no register comes again
  for (int turn = 0; turn < 10'000; ++turn)
    bench.load(std::bitset<24>(static_cast<unsigned>(turn)).to_string());
  EXPECT_EQ(bench.board().lastLoad().size(), EvaluationBoard::kLoadWords);
  EXPECT_EQ(bench.board().lastLoad().back().bits, "000000000010011100001111");
  EXPECT_EQ(bench.board().trace().size(), WireTrace::kCapacity);
  EXPECT_TRUE(bench.board().takeLatches().empty());  // nobody asked for them
}

}  // namespace
}  // namespace tessarine::board
