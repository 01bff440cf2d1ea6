// The part of the board's trace that a picture of the last load shows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "board/EvaluationBoard.h"

namespace tessarine::desktop {

struct WireStretch {
  // Of a load that never ends, with load enable broken or sweeps without pauses.
  static constexpr std::size_t kMostChanges = 8192;

  board::Levels before;                           // the levels up to the first change
  std::vector<board::WireTrace::Change> changes;  // oldest first
  std::int64_t end = 0;                           // the last write
  std::vector<board::LoadedWord> words;           // latched within the stretch
  std::vector<std::int64_t> looseBits;            // rising clock edges since the last load pulse
  const board::ChipMap* map = nullptr;            // of the chip on the board; null: none

  [[nodiscard]] bool empty() const { return changes.empty(); }
  [[nodiscard]] board::Levels levelsAt(std::int64_t time) const;
  // Null for a word that no register took.
  [[nodiscard]] const board::Register* registerOf(const board::LoadedWord& word) const;
};

// From the last long silence on, or from the beginning of the last load if that is later.
[[nodiscard]] WireStretch lastStretch(const board::EvaluationBoard& board);

}  // namespace tessarine::desktop
