#include "board/Describe.h"

#include <gtest/gtest.h>

#include "board/BoardBench.h"

namespace tessarine::board {
namespace {

TEST(Describe, NamesEachFieldWithValueAndMeaning) {
  BoardBench bench("ADF4113");
  bench.load(kSet4113);
  EXPECT_EQ(
      bench.port.describe(),
      "chip\tADF4113\n"
      "register\tR\t000000000000000011001000\t0000C8\tR=50\tanti-backlash width=0 (2.9 ns)\ttest mode=0\t"
      "lock detect precision=0 (3 cycles)\tprescaler resynchronization=0\n"
      "register\tN\t000000100011001000010001\t023211\tA=4\tB=562\tCP gain=0 (current setting 1)\n"
      "register\tfunction\t000000111000000010010010\t038092\tlatch=0 (function)\tcounter reset=0 (off)\t"
      "power-down=0 (off)\tmuxout=1 (digital lock detect)\tdetector polarity=1 (positive)\t"
      "CP three-state=0 (off)\tfastlock=0 (off)\tfastlock mode=0 (mode 1)\ttimer=0 (3 cycles)\t"
      "current setting 1=7 (5.000 mA)\tcurrent setting 2=0 (0.625 mA)\tpower-down mode=0 (asynchronous)\t"
      "prescaler=0 (8/9)\n"
      "divider\tR\t50\ndivider\tP\t8\ndivider\tB\t562\ndivider\tA\t4\ndivider\tN\t4500\n"
      "detector\t0.200000 MHz\n"
      "output\t900.000000 MHz\n"
      "lock\t1\n"
      "pin\t1\n"
      "history\t1 changes\t900.000000 MHz\t900.000000 MHz\n"
      "fault\tnone\n");
}

TEST(Describe, SaysWhatIsMissing) {
  BoardBench bench;
  EXPECT_EQ(bench.port.describe(),
            "chip\tnone\ndetector\tnone\noutput\tnone\nlock\t0\tno chip\npin\t0\nhistory\t0 changes\n"
            "fault\tnone\n");
  bench.board().plug("LMX2325");
  bench.port.setFault(BoardFault::noReference);
  bench.load("0001000000001100101");
  EXPECT_EQ(bench.port.describe(),
            "chip\tLMX2325\n"
            "register\tR\t0001000000001100101\t08065\tR=50\tprescaler=1 (32/33)\n"
            "divider\tR\t50\n"
            "detector\tnone\noutput\tnone\n"
            "lock\t0\tN register never loaded; no reference\npin\t0\nhistory\t0 changes\n"
            "fault\tno-reference\n");
}

}  // namespace
}  // namespace tessarine::board
