// docs/remote.md and the table of headers say the same, and what the page shows is what happens.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "remote/Commands.h"
#include "remote/RemoteBench.h"

namespace tessarine::remote {
namespace {

struct Entry {
  std::string syntax;
  std::string example;
  std::string reply;
};

std::vector<Entry> documented() {
  const std::regex row(R"(\| `(.+?)` \| `(.+?)` \| (?:`(.+?)` )?\| .*)");
  std::ifstream page(TESSARINE_SOURCE_DIR "/docs/remote.md");
  std::vector<Entry> entries;
  for (std::string line; std::getline(page, line);) {
    std::smatch cells;
    if (!std::regex_match(line, cells, row)) continue;
    entries.push_back(
        {std::regex_replace(cells.str(1), std::regex(R"(\\\|)"), "|"), cells.str(2), cells.str(3)});
  }
  return entries;
}

std::string syntaxOf(const Header& header) {
  static const char* const names[] = {"",         "<Hz>",     "<s>",     "<n>",      "<0..255>",
                                      "\"TEXT\"", "\"NAME\"", "LPT|USB", "AUTO|STEP"};
  std::string text = header.pattern;
  for (std::size_t i = 0; i < header.takes.size(); ++i) {
    text += (i == 0 ? " " : ",") + std::string(names[static_cast<int>(header.takes[i])]);
  }
  return text;
}

TEST(Documentation, HasTheRowsOfTheTable) {
  std::vector<std::string> page;
  std::vector<std::string> table;
  for (const Entry& entry : documented()) page.push_back(entry.syntax);
  for (const Header& header : headers()) table.push_back(syntaxOf(header));
  EXPECT_EQ(page, table);
}

TEST(Documentation, HasExamplesThatWork) {
  RemoteBench bench;
  for (const Entry& entry : documented()) {
    std::string reply = bench.say(entry.example);
    if (entry.reply.ends_with("...")) reply = reply.substr(0, entry.reply.size() - 3) + "...\n";
    EXPECT_EQ(reply, entry.reply.empty() ? "" : entry.reply + '\n') << entry.example;
    EXPECT_EQ(bench.say("SYST:ERR?"), "0,\"No error\"\n") << entry.example;
  }
}

}  // namespace
}  // namespace tessarine::remote
