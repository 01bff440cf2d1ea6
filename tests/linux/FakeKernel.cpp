#include "linux/FakeKernel.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <regex>

namespace tessarine {

bool isInTheManual(std::string sentence) {
  std::ifstream file(TESSARINE_SOURCE_DIR "/docs/hardware.md");
  const std::string manual{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const auto holds = [&](const std::string& part) { return manual.find(part) != std::string::npos; };
  bool found = holds("\n| " + sentence.substr(0, std::min(sentence.find(". "), sentence.find(" (ppdev0)"))));
  const std::size_t line = sentence.find("ype");
  if (line == std::string::npos) return found;
  sentence.erase(0, sentence.find(": ", line) + 2);
  sentence.erase(std::min(sentence.size(), sentence.find(" (and")));
  const std::regex joints("; | && | \\| ");
  for (std::sregex_token_iterator part(sentence.begin(), sentence.end(), joints, -1), end; part != end;
       ++part)
    found = found && holds(*part);
  return found;
}

}  // namespace tessarine
