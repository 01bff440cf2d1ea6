#include <gtest/gtest.h>

#include "support/EngineBench.h"
#include "support/FaultOf.h"
#include "support/Words.h"

namespace tessarine {
namespace {

TEST(PE3342, FieldsFoldedIntoOneWord) {
  const struct {
    const char *R, *M, *A;  // all ones in turn, so that each place of the word is claimed once
    Words wire;
    const char* fault = "no fault";
  } cases[] = {
      {"111111", "000000000", "0000", {"1100000000011110000"}},
      {"000000", "111111111", "0000", {"0011111111100000000"}},
      {"000000", "000000000", "1111", {"0000000000000001111"}},
      {"100011", "010110100", "0010", {"1001011010000110010"}},
      {"10001", "010110100", "0010", {}, "The field R of the PE3342 has 5 bits where it needs 6"},
      {"100011", "01011010", "0010", {}, "The field M of the PE3342 has 8 bits where it needs 9"},
      {"100011", "010110100", "001", {}, "The field A of the PE3342 has 3 bits where it needs 4"},
  };
  for (const auto& c : cases) {
    EngineBench bench;
    bench.pll.Rstr = c.R, bench.pll.MStr = c.M, bench.pll.Astr = c.A;
    EXPECT_EQ(faultOf([&] { bench.pll.Set_PE3342(); }), c.fault);
    EXPECT_EQ(bench.host.port.latches(), c.wire);
    EXPECT_EQ(bench.pll.Rstr, c.wire.empty() ? c.R : reversed({c.R})[0])
        << "turned over, but not by a refusal";
  }
}

}  // namespace
}  // namespace tessarine
