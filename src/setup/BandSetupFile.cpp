#include "setup/BandSetupFile.h"

#include <cstddef>
#include <limits>
#include <string>

#include "engine/BitStrings.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "setup/TextFile.h"

namespace tessarine {
namespace {

constexpr std::size_t kMostBands = std::numeric_limits<Integer>::max();

// Takes the next field off a row; empty when there is none.
std::string_view takeField(std::string_view& row) {
  const auto blank = row.find(' ');
  const auto field = trimmed(row.substr(0, blank));
  row = blank == std::string_view::npos ? std::string_view() : trimmed(row.substr(blank));
  return field;
}

void addBand(std::string_view row, BandTable& table) {
  if (table.low.size() == kMostBands) throw Fault("more than " + std::to_string(kMostBands) + " bands");
  const auto low = leadingSingle(takeField(row), "lower bound");
  const auto high = leadingSingle(takeField(row), "upper bound");
  table.low.push_back(low);
  table.high.push_back(high);
  table.code.push_back(ReverseStr(takeField(row)));  // what follows is a remark
}

// A line is looked at only when another one follows: the very last line of the file is never a band.
BandTable readLines(LineReader& lines) {
  BandTable table;
  std::string_view line = "!";
  while (line.find('!') != std::string_view::npos) {
    if (lines.atEnd()) return table;  // nothing but comments
    line = lines.next();
  }
  while (!lines.atEnd()) {
    const auto row = trimmed(line);
    if (row.empty() || row.front() != '!') addBand(row, table);
    line = lines.next();
  }
  return table;
}

}  // namespace

BandTable parseBandTable(std::string_view text, std::string_view file) {
  LineReader lines(text);
  try {
    return readLines(lines);
  } catch (const Fault& fault) {
    throw Fault(lines.complaint(file, fault.what()));
  }
}

void PLL::UpdateSetup_ADF4113() {
  if (SetupFile_ADF4113.empty()) {
    SetupText_ADF4113.clear();
  } else {
    takeBandSetup(readTextFile(SetupFile_ADF4113));
  }
}

// All of it or, with a Fault, nothing.
void PLL::takeBandSetup(std::string_view text) {
  CurrentSet2 = parseBandTable(text, SetupFile_ADF4113);
  Setup_ADF4113_NoOfCurrentSet2 = static_cast<Integer>(CurrentSet2.code.size());
}

void PLL::UpdateSetup_SKY72300() {
  if (SetupFile_SKY72300.empty()) return;
  ChrgPumpBands = parseBandTable(readTextFile(SetupFile_SKY72300), SetupFile_SKY72300);
}

}  // namespace tessarine
