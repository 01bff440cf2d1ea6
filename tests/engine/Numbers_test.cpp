#include "engine/Numbers.h"

#include <gtest/gtest.h>
#ifdef TESSARINE_SANITIZE
#include <sanitizer/lsan_interface.h>
#endif

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <string>

#include "board/NumberText.h"
#include "script/ScriptText.h"

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
}

TEST(Numbers, ManyDigitsDoNoHarm) {
  EXPECT_EQ(leadingNumber(std::string(5000, '0') + "42"), 42);
  EXPECT_EQ(leadingNumber("1." + std::string(5000, '1')), 1 + 1.0 / 9);
  EXPECT_EQ(leadingNumber("0." + std::string(5000, '0') + "1"), 0);
  EXPECT_EQ(leadingNumber("-" + std::string(5000, '9')), -std::numeric_limits<double>::infinity());
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
