#include "script/ScriptText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>

namespace tessarine::script {
namespace {

using testing::ElementsAre;

TEST(ScriptText, ValuesPrintOnOneLine) {
  EXPECT_EQ(escaped("Current Hop: \r\n 3\r\n\tC:\\x"), "Current Hop: \\r\\n 3\\r\\n\\tC:\\\\x");
}

TEST(ScriptText, AWordTakesTheOneBlankBehindIt) {
  std::string_view rest = "  set  VCOText  900 ";
  EXPECT_EQ(takeWord(rest), "set");
  EXPECT_EQ(takeWord(rest), "VCOText");
  EXPECT_EQ(rest, " 900 ");
  EXPECT_THAT(words("a\tb  c "), ElementsAre("a", "b", "c"));
}

TEST(ScriptText, OnlyAWholePairOfQuotesComesOff) {
  EXPECT_EQ(unquoted("\" a \""), " a ");
  EXPECT_EQ(unquoted("\"\"a\"\""), "\"a\"");
  EXPECT_EQ(unquoted("\""), "\"");
  EXPECT_EQ(unquoted("\"a"), "\"a");
}

TEST(ScriptText, TimesAreMillisecondsWithAFraction) {
  EXPECT_EQ(microseconds("0"), 0);
  EXPECT_EQ(microseconds("2.5"), 2500);
  EXPECT_EQ(microseconds("31622400000"), 31622400000000);  // 366 days
  for (const char* const text : {"", "-1", "1e3", "nan", "inf", "5ms", "0x10", "1,5", "31622400001"}) {
    EXPECT_FALSE(microseconds(text)) << text;
  }
  EXPECT_EQ(millisecondText(100000001), "100000.001");
  EXPECT_EQ(millisecondText(2500), "2.5");
  EXPECT_EQ(millisecondText(1040), "1.04");
  EXPECT_EQ(millisecondText(3000000), "3000");
}

TEST(ScriptText, LinesKeepTheirNumbersWhateverTheirEnds) {
  std::istringstream file("\xEF\xBB\xBF# head\r\n\r\n  click A \r\n\t\n   # note\nset B  x\t\nlast");
  ScriptReader lines(file);
  std::string read;
  while (const auto line = lines.next()) read += std::to_string(line->number) + line->text + ';';
  EXPECT_EQ(read, "3click A ;6set B  x\t;7last;");
}

}  // namespace
}  // namespace tessarine::script
