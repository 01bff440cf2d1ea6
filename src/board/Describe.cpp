#include "board/Describe.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "board/NumberText.h"

namespace tessarine::board {

namespace {

std::string megahertz(std::optional<double> value) {
  return value ? fixedText(*value, 6) + " MHz" : std::string("none");
}

std::string registerLine(const Register& spec, std::uint32_t word) {
  std::string line = "register\t" + std::string(spec.name) + '\t' + binaryText(word, spec.width) + '\t' +
                     hexText(word, spec.width);
  for (const Field& field : spec.fields) {
    if (field.reserved) continue;
    line += '\t' + std::string(field.name) + '=' + std::to_string(field.value(word));
    if (!field.meanings.empty()) line += " (" + std::string(field.meaning(word)) + ')';
  }
  return line + '\n';
}

std::string historyLine(const FrequencyHistory& history) {
  double low = 0;
  double high = 0;
  for (std::size_t index = 0; index < history.size(); ++index) {
    const double value = history[index].outputMHz;
    if (value == 0) continue;
    low = low == 0 ? value : std::min(low, value);
    high = std::max(high, value);
  }
  std::string line = "history\t" + std::to_string(history.size()) + " changes";
  if (high > 0) line += '\t' + megahertz(low) + '\t' + megahertz(high);
  return line + '\n';
}

}  // namespace

std::string describeBoard(const EvaluationBoard& board) {
  const Chip* chip = board.chip();
  std::string text = "chip\t" + std::string(chip == nullptr ? "none" : chip->model().name) + '\n';
  for (std::size_t index = 0; chip != nullptr && index < chip->map().registers.size(); ++index) {
    if (const auto word = chip->word(index)) text += registerLine(chip->map().registers[index], *word);
  }
  const Tuning& tuning = board.tuning();
  for (const Tuning::Divider& divider : tuning.dividers)
    text += "divider\t" + std::string(divider.name) + '\t' + shortText(divider.value) + '\n';
  text += "detector\t" + megahertz(tuning.detectorMHz) + '\n';
  text += "output\t" + megahertz(tuning.outputMHz) + '\n';
  text += tuning.locked() ? std::string("lock\t1\n") : "lock\t0\t" + tuning.reason() + '\n';
  text += "pin\t" + std::to_string(tuning.lockPin ? 1 : 0) + '\n';
  for (const std::string& note : tuning.notes) text += "note\t" + note + '\n';
  return text + historyLine(board.history());
}

}  // namespace tessarine::board
