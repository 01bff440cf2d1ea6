#include "engine/Rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/Fault.h"
#include "support/FaultOf.h"

namespace tessarine {
namespace {

TEST(Rounding, EachRuleHasItsOwnTie) {
  struct Case {
    double value, halfEven, halfUp, halfAway, down;
  };
  for (const auto& c : {Case{2.5, 2, 3, 3, 2}, Case{3.5, 4, 4, 4, 3}, Case{-2.5, -2, -2, -3, -3},
                        Case{-0.1, 0, 0, 0, -1}, Case{8.499, 8, 8, 8, 8}, Case{-3.6, -4, -4, -4, -4}}) {
    EXPECT_EQ(roundHalfEven(c.value), c.halfEven) << c.value;
    EXPECT_EQ(roundHalfUp(c.value), c.halfUp) << c.value;
    EXPECT_EQ(roundHalfAway(c.value), c.halfAway) << c.value;
    EXPECT_EQ(roundDown(c.value), c.down) << c.value;
  }
}

TEST(Rounding, AnIntegerTakesItsWholeRangeAndNoMore) {
  EXPECT_EQ(toInteger(32767.4, "x"), 32767);
  EXPECT_EQ(toInteger(-32768.5, "x"), -32768);
  for (const double beyond :
       {32767.5, -32768.6, 1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
    EXPECT_THROW((void)toInteger(beyond, "x"), Fault) << beyond;
  }
  EXPECT_EQ(faultOf([] { (void)toInteger(40000, "Hop count"); }),
            "Hop count = 40000 does not fit 16 bits (-32768 to 32767)");
}

TEST(Rounding, ASingleBeyondItsRangeIsInfinite) {
  EXPECT_EQ(toSingle(0.1), 0.1F);
  EXPECT_EQ(toSingle(-1e300), -std::numeric_limits<Single>::infinity());
}

}  // namespace
}  // namespace tessarine
