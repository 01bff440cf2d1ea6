#include "engine/BitStrings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>

#include "engine/PLL.h"
#include "platform/Fault.h"
#include "support/FaultOf.h"

namespace tessarine {
namespace {

TEST(BitStrings, AnIntegerTurnsIntoDigitsAndIsConsumed) {
  using Case = std::tuple<Integer, std::string, Integer>;
  for (const auto& [value, digits, left] :
       {Case{0, "0", 0}, Case{1, "1", 0}, Case{6, "110", 0}, Case{32767, std::string(15, '1'), 0},
        Case{-1, std::string(16, '1'), -1}, Case{-32768, "1" + std::string(15, '0'), -32768}}) {
    Integer consumed = value;
    EXPECT_EQ(PLL::IntToBin(consumed), digits);
    EXPECT_EQ(consumed, left) << digits;
  }
  EXPECT_EQ(PLL::LongToBin(65535), std::string(16, '1'));
  EXPECT_EQ(PLL::LongToBin(-5), "0");
  EXPECT_EQ(PLL::LongToBin(2147483647), std::string(31, '1'));
}

TEST(BitStrings, DigitsTurnIntoAnInteger) {
  EXPECT_EQ(PLL::BinToInt(std::string(40, '0') + "110"), 6);
  EXPECT_EQ(PLL::BinToInt(""), 0);
  EXPECT_EQ(PLL::BinToInt(std::string(15, '1')), 32767);
  EXPECT_EQ(faultOf([] { (void)PLL::BinToInt("12"); }), "\"12\" is no binary number");
  EXPECT_EQ(faultOf([] { (void)PLL::BinToInt("1000000000000000"); }),
            "The binary number 1000000000000000 does not fit 15 bits (0 to 32767)");
}

TEST(BitStrings, AFieldHoldsExactlyItsWidth) {
  EXPECT_EQ(naturalField("A", 6, 6), "000110");
  EXPECT_EQ(shiftingField("A", 6, 6), "011000");
  EXPECT_EQ(naturalField("A", 63, 6), "111111");
  EXPECT_EQ(naturalField("M", 16777215, 24), std::string(24, '1'));
  EXPECT_EQ(faultOf([] { (void)shiftingField("B", -1, 13); }), "B = -1 does not fit 13 bits (0 to 8191)");
  for (const double bad : {64.0, 4.5, std::nan(""), HUGE_VAL})
    EXPECT_THROW((void)naturalField("A", bad, 6), Fault) << bad;
}

}  // namespace
}  // namespace tessarine
