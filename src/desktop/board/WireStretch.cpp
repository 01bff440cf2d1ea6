#include "desktop/board/WireStretch.h"

#include <algorithm>

namespace tessarine::desktop {

namespace {

using board::EvaluationBoard;
using board::Levels;
using board::LoadedWord;
using board::WireTrace;

std::size_t behindLastSilence(const WireTrace& trace) {
  std::size_t first = trace.size() - 1;
  while (first > 0 && trace.size() - first < WireStretch::kMostChanges &&
         trace[first].time - trace[first - 1].time < EvaluationBoard::kPauseMicroseconds) {
    --first;
  }
  return first;
}

// The first change that belongs to the bit or pulse at `time`: data and load enable settle before the clock
// rises.
std::size_t settlingOf(const WireTrace& trace, std::int64_t time, std::size_t least) {
  std::size_t first = std::max(trace.countBefore(time), least);
  while (first > least && !trace[first - 1].levels.clock && !trace[first - 1].levels.loadEnable) --first;
  return first;
}

}  // namespace

Levels WireStretch::levelsAt(std::int64_t time) const {
  const auto above = std::ranges::upper_bound(changes, time, {}, &WireTrace::Change::time);
  return above == changes.begin() ? before : (above - 1)->levels;
}

const board::Register* WireStretch::registerOf(const LoadedWord& word) const {
  return map != nullptr && word.registerIndex ? &map->registers[*word.registerIndex] : nullptr;
}

WireStretch lastStretch(const EvaluationBoard& board) {
  const WireTrace& trace = board.trace();
  WireStretch stretch;
  if (trace.size() == 0) return stretch;
  if (board.chip() != nullptr) stretch.map = &board.chip()->map();

  std::size_t first = behindLastSilence(trace);
  for (const LoadedWord& word : board.lastLoad()) {
    const std::int64_t begin = word.bitTimes.empty() ? word.latchTime : word.bitTimes.front();
    if (begin < trace[first].time) continue;
    if (stretch.words.empty()) first = settlingOf(trace, begin, first);
    stretch.words.push_back(word);
  }

  if (first > 0) stretch.before = trace[first - 1].levels;
  Levels previous = stretch.before;
  for (std::size_t index = first; index < trace.size(); ++index) {
    const WireTrace::Change& change = trace[index];
    if (change.levels.loadEnable && !previous.loadEnable) stretch.looseBits.clear();
    if (change.levels.clock && !previous.clock) stretch.looseBits.push_back(change.time);
    previous = change.levels;
    stretch.changes.push_back(change);
  }
  stretch.end = board.lastWrite();
  return stretch;
}

}  // namespace tessarine::desktop
