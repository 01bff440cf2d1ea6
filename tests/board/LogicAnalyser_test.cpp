// The dump of the wires as a logic-analyser program reads it.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "board/BoardBench.h"

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
std::vector<std::string> transfers(const std::string& text) {
  std::vector<std::string> words;
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
  const std::vector<std::pair<const char*, std::vector<std::string>>> loads = {
      {"ADF4113", {"000000111000000010010010", "000000000000000011001000", "000000100011001000010001"}},
      {"ADF4153",
       {"0000001111000010", "01110000011", "000100000100000011001001", "000110010000000000000100"}},
      {"ADF4193", {"11111101", "0000000001011011", "000000000111111111110100", "001000011000000011010000"}},
      {"LMX2326", {"000000001000010010010", "000000000000011001000", "00000100011001010001"}},
  };
  for (const auto& [chip, words] : loads) {
    SCOPED_TRACE(chip);
    BoardBench bench(chip);
    bench.board().collectLatches();
    for (const std::string& word : words) bench.load(word);
    bench.write(0);
    const auto file = std::filesystem::temp_directory_path() /
                      ("tessarine-" + std::to_string(getpid()) + "-" + chip + ".vcd");
    {
      std::ofstream out(file);
      saveVcd(bench.board().trace(), bench.board().lastWrite(), out);
    }
    const std::string text = outputOf("sigrok-cli -I vcd -i '" + file.string() +
                                      "' -P spi:clk=CLOCK:mosi=DATA:cs=LE:cpol=0:cpha=0:bitorder=msb-first"
                                      ":wordsize=1 -A spi=mosi-transfer 2>&1");
    std::filesystem::remove(file);
    EXPECT_EQ(transfers(text), words) << text;
    EXPECT_EQ(bench.board().takeLatches(), words);
  }
}

}  // namespace
}  // namespace tessarine::board
