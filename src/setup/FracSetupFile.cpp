#include "setup/FracSetupFile.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>

#include "engine/Module1.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "platform/Fault.h"
#include "platform/Platform.h"
#include "setup/TextFile.h"

namespace tessarine {
namespace {

constexpr std::size_t kExpectedPhases = 64;
constexpr std::size_t kBeforePhase = 2;  // characters of a body line that are skipped
constexpr std::size_t kMostPhases = std::numeric_limits<Integer>::max();

// The text behind the key and the one character that is lost behind it, if the line has the key.
std::optional<std::string_view> valueOf(std::string_view key, std::string_view line) {
  const auto place = line.find(key);
  if (place == std::string_view::npos) return std::nullopt;
  return line.substr(std::min(line.size(), place + key.size() + 1));
}

void readKeys(std::string_view line, FracSetup& setup) {
  if (const auto text = valueOf("PFD=", line)) setup.PFD = leadingSingle(*text, "PFD");
  if (const auto text = valueOf("MOD=", line)) setup.MOD = leadingInteger(*text, "MOD");
  if (const auto text = valueOf("ICP=", line)) setup.ICP = leadingInteger(*text, "ICP");
  if (const auto text = valueOf("SW12=", line)) setup.SW12 = leadingInteger(*text, "SW12");
  if (const auto text = valueOf("SW3=", line)) setup.SW3 = leadingInteger(*text, "SW3");
  if (const auto text = valueOf("$P=", line)) setup.P = leadingInteger(*text, "$P");
}

FracSetup readLines(LineReader& lines, bool withKeys) {
  FracSetup setup;
  for (std::string_view line; line.find("FRAC") == std::string_view::npos;) {
    if (lines.atEnd()) throw Fault("the file ends without a line with \"FRAC\"");
    line = lines.next();
    if (withKeys) readKeys(line, setup);
  }
  while (!lines.atEnd()) {
    const auto line = lines.next();
    if (setup.phases.size() == kMostPhases) {
      throw Fault("more than " + std::to_string(kMostPhases) + " phase values");
    }
    setup.phases.push_back(leadingInteger(line.substr(std::min(line.size(), kBeforePhase)), "phase"));
  }
  return setup;
}

}  // namespace

FracSetup parseFracSetup(std::string_view text, std::string_view file, bool withKeys) {
  LineReader lines(text);
  try {
    return readLines(lines, withKeys);
  } catch (const Fault& fault) {
    throw Fault(lines.complaint(file, fault.what()));
  }
}

void PLL::readFracSetup(bool withKeys) {
  if (SetupFileName.empty()) {
    SetupText.clear();
  } else {
    takeFracSetup(readTextFile(SetupFileName), withKeys);
  }
}

// All of it or, with a Fault, nothing.
void PLL::takeFracSetup(std::string_view text, bool withKeys) {
  FracSetup setup = parseFracSetup(text, SetupFileName, withKeys);
  PFDFromFile = setup.PFD.value_or(PFDFromFile);
  ModFromFile = setup.MOD.value_or(ModFromFile);
  ICPFromFile = setup.ICP.value_or(ICPFromFile);
  SW12FromFile = setup.SW12.value_or(SW12FromFile);
  SW3FromFile = setup.SW3.value_or(SW3FromFile);
  PreScalarFromFile = setup.P.value_or(PreScalarFromFile);
  const auto phases = setup.phases.size();
  if (phases > 0) {
    // The table is cut or extended line by line and keeps what it holds: a single line leaves the second
    // element of the file before as the spare one.
    const Integer spare = phases == 1 && PhaseTable.size() > 1 ? PhaseTable[1] : Integer{0};
    PhaseTable = std::move(setup.phases);
    PhaseTable.push_back(spare);
  }
  if (phases < kExpectedPhases) {
    module_.platform.screen.messageBox("Warnning: Setup File is wrong !", Icon::plain);
  }
}

void PLL::UpdateSetup_Frac() { readFracSetup(true); }

void PLL::UpdateSetup_Frac_old() { readFracSetup(false); }

}  // namespace tessarine
