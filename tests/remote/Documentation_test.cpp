// docs/remote.md and the table of headers say the same, and what the page shows is what happens.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <string_view>
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

// "`MODel \"TEXT\"`" without its marks.
std::string code(std::string cell) {
  std::erase(cell, '`');
  cell.erase(0, cell.find_first_not_of(' '));
  return cell.substr(0, cell.find_last_not_of(' ') + 1);
}

// The rows under "## Commands".
std::vector<Entry> documented() {
  std::ifstream page(TESSARINE_SOURCE_DIR "/docs/remote.md");
  std::vector<Entry> entries;
  bool isHere = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("## ")) isHere = line == "## Commands";
    if (!isHere || !line.starts_with("| `")) continue;
    std::vector<std::string> cells{""};
    for (std::size_t i = 1; i < line.size(); ++i) {
      if (line[i] == '|') {
        cells.emplace_back();
      } else {
        cells.back() += line[i] == '\\' && line[i + 1] == '|' ? line[++i] : line[i];
      }
    }
    entries.push_back({code(cells[0]), code(cells.at(1)), code(cells.at(2))});
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
