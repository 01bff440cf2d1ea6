#include "engine/Numbers.h"

#include <gtest/gtest.h>
#ifdef TESSARINE_SANITIZE
#include <sanitizer/lsan_interface.h>
#endif

#include <clocale>
#include <cmath>
#include <locale>
#include <string>

#include "board/NumberText.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "script/ScriptText.h"
#include "support/FaultOf.h"

namespace tessarine {
namespace {

TEST(Numbers, TheLeadingNumberOfATextIsRead) {
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"", 0},        {"abc", 0}, {"  \t12", 12},   {"16/17", 16}, {"-3.5x", -3.5}, {"+7", 7},
      {"1.2.3", 1.2}, {"1e3", 1}, {"0x10", 0},      {"inf", 0},    {"nan", 0},      {"900,5", 900},
      {".5", 0.5},    {"5.", 5},  {".", 0},         {"-", 0},      {"- 5", 0},      {"--5", 0},
      {"1 000", 1},   {"\n5", 0}, {"26.0 MHz", 26}, {"007", 7},    {"+-1", 0},      {"1747.2", 1747.2},
  };
  for (const auto& c : cases) EXPECT_EQ(leadingNumber(c.text), c.value) << c.text;
  EXPECT_FALSE(std::signbit(leadingNumber("-0")));
  const std::string zeros(5000, '0');
  EXPECT_EQ(leadingNumber(zeros + "42"), 42);
  EXPECT_EQ(leadingNumber("0." + zeros + "1"), 0);
  EXPECT_EQ(leadingNumber("-9" + zeros), -HUGE_VAL);
}

TEST(Numbers, DecimalTextIsPlain) {
  const struct {
    double value;
    int digits;
    const char* text;
  } cases[] = {
      {0, 15, "0"},
      {-0.0, 7, "0"},
      {0.1 + 0.2, 15, "0.3"},
      {26000, 2, "26000"},
      {1e20, 15, "100000000000000000000"},
      {-1.25e-7, 15, "-0.000000125"},
      {999999.96, 7, "1000000"},
      {123456789, 7, "123456800"},
  };
  for (const auto& c : cases) EXPECT_EQ(plainDecimal(c.value, c.digits), c.text);
  EXPECT_EQ(sixDecimals(1747.2), "1747.200000");
  EXPECT_EQ(sixDecimals(-0.0000004), "-0.000000");
  EXPECT_EQ(messageNumber(1e300), "1e+300");
}

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

TEST(Rounding, AnIntegerOrASingleTakesItsWholeRangeAndNoMore) {
  EXPECT_EQ(toInteger(32767.4, "x"), 32767);
  EXPECT_EQ(toInteger(-32768.5, "x"), -32768);
  for (const double beyond : {32767.5, -32768.6, 1e300, HUGE_VAL, std::nan("")})
    EXPECT_THROW((void)toInteger(beyond, "x"), Fault) << beyond;
  EXPECT_EQ(faultOf([] { (void)toInteger(40000, "Hop count"); }),
            "Hop count = 40000 does not fit 16 bits (-32768 to 32767)");
  EXPECT_EQ(toSingle(0.1), 0.1F);
  EXPECT_EQ(toSingle(-1e300), -HUGE_VALF);
}

TEST(Numbers, TheLocaleDoesNotMatter) {
#ifdef TESSARINE_SANITIZE
  const __lsan::ScopedDisabler keptByTheCLibrary;
#endif
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr)
    GTEST_SKIP() << "SKIPPED: numbers were NOT tried with a decimal comma: there is no such locale";
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  const std::locale before = std::locale::global(std::locale("de_DE.UTF-8"));
  EXPECT_EQ(leadingNumber("1.5"), 1.5);
  EXPECT_EQ(plainDecimal(1.5, 15), "1.5");
  EXPECT_EQ(sixDecimals(1.5), "1.500000");
  EXPECT_EQ(messageNumber(1234.5), "1234.5");
  EXPECT_EQ(board::fixedText(1234.5, 1), "1234.5");
  EXPECT_EQ(board::shortText(0.5), "0.5");
  EXPECT_EQ(script::millisecondText(2'500'500), "2500.5");
  std::locale::global(before);
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace tessarine
