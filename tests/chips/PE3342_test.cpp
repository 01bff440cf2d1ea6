#include <gtest/gtest.h>

#include "engine/BitStrings.h"
#include "support/EngineBench.h"
#include "support/FaultOf.h"
#include "support/Words.h"

namespace tessarine {
namespace {

// Each field in turn is all ones, so that every place of the word is claimed exactly once.
TEST(PE3342, FieldsFoldedIntoOneWord) {
  const struct {
    const char *R, *M, *A, *wire;
  } cases[] = {{"111111", "000000000", "0000", "1100000000011110000"},
               {"000000", "111111111", "0000", "0011111111100000000"},
               {"000000", "000000000", "1111", "0000000000000001111"},
               {"100011", "010110100", "0010", "1001011010000110010"}};
  for (const auto& c : cases) {
    EngineBench bench;
    bench.pll.Rstr = c.R, bench.pll.MStr = c.M, bench.pll.Astr = c.A;
    bench.pll.Set_PE3342();
    EXPECT_EQ(bench.host.port.latches(), Words{c.wire});
    EXPECT_EQ(bench.pll.Rstr, ReverseStr(c.R));
  }
}

TEST(PE3342, AFieldOfTheWrongLengthIsRefused) {
  EngineBench bench;
  bench.pll.Rstr = "100011", bench.pll.MStr = "01011010", bench.pll.Astr = "0010";
  EXPECT_EQ(faultOf([&] { bench.pll.Set_PE3342(); }),
            "The field M of the PE3342 has 8 bits where it needs 9");
  bench.pll.MStr = "010110100", bench.pll.Astr = "001";
  EXPECT_EQ(faultOf([&] { bench.pll.Set_PE3342(); }),
            "The field A of the PE3342 has 3 bits where it needs 4");
  EXPECT_EQ(bench.pll.Rstr, "100011");
  EXPECT_TRUE(bench.host.port.accesses.empty());
}

}  // namespace
}  // namespace tessarine
