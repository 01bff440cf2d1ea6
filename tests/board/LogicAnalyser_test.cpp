// The dump of the wires as a logic-analyser program reads it.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "board/BoardBench.h"
#include "support/TempFile.h"

namespace tessarine::board {
namespace {

std::string outputOf(const std::string& command) {
  std::string text;
  if (FILE* pipe = popen(command.c_str(), "r"); pipe != nullptr) {
    char part[4096];
    while (const std::size_t length = fread(part, 1, sizeof part, pipe)) text.append(part, length);
    pclose(pipe);
  }
  return text;
}

// Lines such as "spi-1: 01 00 01", one a transfer, each byte one bit.
Words transfers(const std::string& text) {
  Words words;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text.compare(at, 4, "spi-") == 0) {
      at = text.find(' ', at);
      words.emplace_back();
    }
    if (text.compare(at, 3, " 00") == 0) words.back() += '0';
    if (text.compare(at, 3, " 01") == 0) words.back() += '1';
  }
  return words;
}

TEST(LogicAnalyser, ReadsTheWordsFromTheSavedDump) {
  if (outputOf("command -v sigrok-cli").empty())
    GTEST_SKIP() << "sigrok-cli is not installed: the dump stays unread";
  const std::pair<const char*, Words> loads[] = {
      {"ADF4113", kSet4113},
      {"ADF4153", "3C2/16 383/11 1040C9/24 190004/24"_w},
      {"ADF4193", "FD/8 5B/16 7FF4/24 2180D0/24"_w},
      {"LMX2326", "1092/21 C8/21 04651/20"_w},
  };
  for (const auto& [chip, words] : loads) {
    SCOPED_TRACE(chip);
    BoardBench bench(chip);
    bench.load(words);
    bench.write(0);
    const TempFile file(bench.vcd());
    const std::string text = outputOf("sigrok-cli -I vcd -i '" + file.path() +
                                      "' -P spi:clk=CLOCK:mosi=DATA:cs=LE:cpol=0:cpha=0:bitorder=msb-first"
                                      ":wordsize=1 -A spi=mosi-transfer 2>&1");
    EXPECT_EQ(transfers(text), words) << text;
  }
}

}  // namespace
}  // namespace tessarine::board
